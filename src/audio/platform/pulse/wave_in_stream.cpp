#include "audio/platform/pulse/wave_in_stream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillora::audio {
namespace {

/// A turn is ended by what happens; this only bounds it.
constexpr std::chrono::seconds kLongestTurn{10};

/// How much sound the server hands over at a time.
constexpr std::uint32_t kFragmentsPerSecond = 40;

pa_sample_spec formOf(const WaveFormat& format)
{
    return {PA_SAMPLE_S16NE, format.nSamplesPerSec,
            static_cast<std::uint8_t>(std::min<int>(format.nChannels, 255))};
}

} // namespace

WaveInStream::WaveInStream(const std::optional<std::string>& server, std::optional<std::string> source,
                           const WaveFormat& format, const Target& target)
    : m_source(std::move(source)),
      m_form(formOf(format)),
      m_frameBytes(std::max<std::size_t>(format.nBlockAlign, 1)),
      m_target(target),
      m_loop(server),
      m_thread([this](const std::stop_token& stop) { run(stop); })
{}

WaveInStream::~WaveInStream()
{
    m_thread.request_stop();
    m_thread.join();
}

bool WaveInStream::opened(std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    m_stateChanged.wait_for(lock, limit, [&] { return m_state != State::opening; });
    return m_state == State::open;
}

bool WaveInStream::queue(WaveHeader& header)
{
    const std::lock_guard lock(m_mutex);
    if (m_state == State::failed || std::ranges::find(m_queued, &header) != m_queued.end())
        return false;
    header.dwBytesRecorded = 0;
    m_queued.push_back(&header);
    return true;
}

void WaveInStream::start()
{
    const std::lock_guard lock(m_mutex);
    m_started = true;
}

void WaveInStream::stop()
{
    const std::lock_guard lock(m_mutex);
    m_started = false;
    if (!m_queued.empty() && m_queued.front()->dwBytesRecorded > 0)
        finishFirst();
}

void WaveInStream::reset()
{
    const std::lock_guard lock(m_mutex);
    m_started = false;
    while (!m_queued.empty())
        finishFirst();
}

void WaveInStream::run(const std::stop_token& stop)
{
    const std::stop_callback waker(stop, [&] { m_loop.wake(); });
    Stream stream;
    while (!stop.stop_requested() && !m_loop.failed()) {
        if (!stream && m_loop.ready()) {
            stream = connectStream();
            if (!stream)
                break;
        }
        if (stream && !PA_STREAM_IS_GOOD(pa_stream_get_state(stream.get())))
            break;
        if (stream && pa_stream_get_state(stream.get()) == PA_STREAM_READY) {
            setState(State::open);
            if (!read(*stream))
                break;
        }
        m_loop.turn(kLongestTurn);
    }
    setState(State::failed);
}

WaveInStream::Stream WaveInStream::connectStream() const
{
    if (!pa_sample_spec_valid(&m_form))
        return nullptr;
    Stream stream(pa_stream_new(m_loop.context(), "Wave input", &m_form, nullptr));
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<std::uint32_t>(-1);
    buffer.fragsize = std::max<std::uint32_t>(m_form.rate / kFragmentsPerSecond, 1) *
                      static_cast<std::uint32_t>(m_frameBytes);
    // An input that was chosen and goes away is not to be another microphone from then on; the default input
    // may.
    const int flags = PA_STREAM_ADJUST_LATENCY | (m_source ? PA_STREAM_DONT_MOVE : PA_STREAM_NOFLAGS);
    if (stream && pa_stream_connect_record(stream.get(), m_source ? m_source->c_str() : nullptr, &buffer,
                                           static_cast<pa_stream_flags_t>(flags)) < 0)
        return nullptr;
    return stream;
}

bool WaveInStream::read(pa_stream& stream)
{
    for (;;) {
        const void* data = nullptr;
        std::size_t bytes = 0;
        if (pa_stream_peek(&stream, &data, &bytes) < 0)
            return false;
        if (bytes == 0)
            return true;
        // A hole in what the server has kept is silence of its length.
        const std::string silence(data ? 0 : bytes, '\0');
        take(data ? static_cast<const char*>(data) : silence.data(), bytes);
        pa_stream_drop(&stream);
    }
}

void WaveInStream::take(const char* data, std::size_t bytes)
{
    const std::lock_guard lock(m_mutex);
    while (m_started && bytes > 0 && !m_queued.empty()) {
        WaveHeader& header = *m_queued.front();
        const std::size_t piece = std::min(bytes, capacityOf(header) - header.dwBytesRecorded);
        // A buffer too small for a sample has no address.
        if (piece > 0)
            std::memcpy(reinterpret_cast<char*>(header.lpData) + header.dwBytesRecorded, data, piece);
        header.dwBytesRecorded += static_cast<std::uint32_t>(piece);
        data += piece;
        bytes -= piece;
        if (header.dwBytesRecorded == capacityOf(header))
            finishFirst();
    }
}

void WaveInStream::finishFirst()
{
    const auto address = reinterpret_cast<messages::Parameter>(m_queued.front());
    m_queued.pop_front();
    m_target.queue.post(
        {.hwnd = m_target.window, .iMsg = messages::kWaveInputDataMessage, .lParam = address});
}

/// In whole samples of all channels: an odd length has half a sample at its end.
std::size_t WaveInStream::capacityOf(const WaveHeader& header) const
{
    return header.dwBufferLength / m_frameBytes * m_frameBytes;
}

void WaveInStream::setState(State state)
{
    const std::lock_guard lock(m_mutex);
    m_state = state;
    m_stateChanged.notify_all();
}

} // namespace quillora::audio
