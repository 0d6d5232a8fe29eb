#include "session/platform/pulse/pulse_beeper.h"

#include "base/platform/pulse/pulse_connection.h"
#include "session/platform/pulse/tone.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace quillora::session {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRate = 44100;

/// What all of the talk with the server may take beyond the tone itself.
constexpr std::chrono::milliseconds kPatience{900};

/// How much the server keeps in store. Little, so that the tone begins soon.
constexpr std::chrono::milliseconds kStore{50};

struct Release {
    void operator()(pa_operation* operation) const { pa_operation_unref(operation); }
    void operator()(pa_stream* stream) const
    {
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
};
template <typename T>
using Held = std::unique_ptr<T, Release>;

/// One tone on its way to the server. Each step waits no longer than to the deadline and tells whether it
/// came off; the steps after one that didn't aren't tried.
class Playback {
  public:
    Playback(const std::optional<std::string>& server, Clock::time_point deadline)
        : m_deadline(deadline), m_connection(server)
    {}

    bool connect()
    {
        return waitFor([&] { return m_connection.ready(); });
    }

    bool open()
    {
        const pa_sample_spec form{PA_SAMPLE_FLOAT32NE, kRate, 1};
        m_stream.reset(pa_stream_new(m_connection.context(), "Beep", &form, nullptr));
        pa_buffer_attr buffer{};
        buffer.maxlength = static_cast<std::uint32_t>(-1);
        buffer.tlength = static_cast<std::uint32_t>(kStore.count() * kRate / 1000) * sizeof(float);
        buffer.prebuf = static_cast<std::uint32_t>(-1);
        buffer.minreq = static_cast<std::uint32_t>(-1);
        return m_stream &&
               pa_stream_connect_playback(m_stream.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr,
                                          nullptr) >= 0 &&
               waitFor([&] { return pa_stream_get_state(m_stream.get()) == PA_STREAM_READY; });
    }

    bool write(const std::vector<float>& samples)
    {
        const std::size_t bytes = samples.size() * sizeof(float);
        const auto* data = reinterpret_cast<const char*>(samples.data());
        for (std::size_t written = 0; written < bytes;) {
            if (!waitFor([&] { return writableBytes() >= sizeof(float); }))
                return false;
            const std::size_t piece =
                std::min(writableBytes() / sizeof(float) * sizeof(float), bytes - written);
            if (pa_stream_write(m_stream.get(), data + written, piece, nullptr, 0, PA_SEEK_RELATIVE) < 0)
                return false;
            written += piece;
        }
        return true;
    }

    bool drain()
    {
        const Held<pa_operation> draining(pa_stream_drain(m_stream.get(), nullptr, nullptr));
        return draining &&
               waitFor([&] { return pa_operation_get_state(draining.get()) != PA_OPERATION_RUNNING; });
    }

  private:
    bool streamFailed() const { return m_stream && !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream.get())); }

    std::size_t writableBytes() const
    {
        const std::size_t bytes = pa_stream_writable_size(m_stream.get());
        return bytes == static_cast<std::size_t>(-1) ? 0 : bytes;
    }

    bool waitFor(const std::function<bool()>& condition)
    {
        return m_connection.turnUntil(m_deadline, [&] { return streamFailed() || condition(); }) &&
               !streamFailed();
    }

    Clock::time_point m_deadline;
    base::PulseConnection m_connection;
    Held<pa_stream> m_stream{};
};

} // namespace

PulseBeeper::PulseBeeper(std::optional<std::string> server) : m_server(std::move(server)) {}

void PulseBeeper::Beep(int frequencyHz, std::chrono::milliseconds duration)
{
    const std::vector<float> samples = tone(frequencyHz, duration, kRate);
    if (samples.empty())
        return;
    Playback playback(m_server, Clock::now() + duration + kPatience);
    // The tone is a help, not a need: a step that fails leaves it silent.
    static_cast<void>(playback.connect() && playback.open() && playback.write(samples) && playback.drain());
}

} // namespace quillora::session
