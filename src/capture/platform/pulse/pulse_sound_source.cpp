#include "capture/platform/pulse/pulse_sound_source.h"

#include "base/platform/pulse/pulse_connection.h"
#include "capture/platform/pulse/input_names.h"
#include "capture/platform/pulse/record_stream.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace quillora::capture {
namespace {

constexpr std::chrono::milliseconds kFirstPause{100};
constexpr std::chrono::milliseconds kLongestPause{2000};
constexpr std::chrono::milliseconds kNamesPatience{800};

/// A turn is ended by what happens; this only bounds it.
constexpr std::chrono::seconds kLongestTurn{10};

void pauseUnlessStopped(const std::stop_token& stop, std::chrono::milliseconds duration)
{
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, stop, duration, [] { return false; });
}

} // namespace

PulseSoundSource::PulseSoundSource(std::optional<std::string> server) : m_server(std::move(server)) {}

PulseSoundSource::~PulseSoundSource() { stop(); }

void PulseSoundSource::start(SoundSink& sink)
{
    stop();
    m_thread = std::jthread([this, &sink](const std::stop_token& stop) { read(stop, sink); });
}

void PulseSoundSource::stop()
{
    if (!m_thread.joinable())
        return;
    m_thread.request_stop();
    m_thread.join();
}

std::vector<std::string> PulseSoundSource::inputNames() { return inputNamesOf(m_server, kNamesPatience); }

void PulseSoundSource::read(const std::stop_token& stop, SoundSink& sink) const
{
    std::chrono::milliseconds pause = kFirstPause;
    while (!stop.stop_requested()) {
        if (readOneConnection(stop, sink))
            pause = kFirstPause;
        pauseUnlessStopped(stop, pause);
        pause = std::min(2 * pause, kLongestPause);
    }
}

/// Until the connection or its stream fails, or stop is asked. Returns whether any sound came.
bool PulseSoundSource::readOneConnection(const std::stop_token& stop, SoundSink& sink) const
{
    base::PulseConnection connection(m_server);
    const std::stop_callback waker(stop, [&] { connection.wake(); });
    std::optional<RecordStream> stream;
    bool delivered = false;
    while (!stop.stop_requested() && !connection.failed() && !(stream && stream->failed())) {
        if (!stream && connection.ready())
            stream.emplace(connection);
        if (stream && stream->deliverTo(sink))
            delivered = true;
        connection.turn(kLongestTurn);
    }
    return delivered;
}

} // namespace quillora::capture
