#include "session/platform/pulse/pulse_beeper.h"

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
    void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
    void operator()(pa_operation* operation) const { pa_operation_unref(operation); }
    void operator()(pa_context* context) const
    {
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
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
    explicit Playback(Clock::time_point deadline) : m_deadline(deadline) {}

    bool connect(const char* server)
    {
        // There is no loop where the process has no descriptor left for one.
        if (m_loop)
            m_context.reset(pa_context_new(pa_mainloop_get_api(m_loop.get()), "Quillora Recorder"));
        return m_context &&
               pa_context_connect(m_context.get(), server, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0 &&
               waitFor([&] { return pa_context_get_state(m_context.get()) == PA_CONTEXT_READY; });
    }

    bool open()
    {
        const pa_sample_spec form{PA_SAMPLE_FLOAT32NE, kRate, 1};
        m_stream.reset(pa_stream_new(m_context.get(), "Beep", &form, nullptr));
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
    bool failed() const
    {
        return !PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context.get())) ||
               (m_stream && !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream.get())));
    }

    std::size_t writableBytes() const
    {
        const std::size_t bytes = pa_stream_writable_size(m_stream.get());
        return bytes == static_cast<std::size_t>(-1) ? 0 : bytes;
    }

    bool waitFor(const std::function<bool()>& condition)
    {
        while (!condition()) {
            const Clock::time_point now = Clock::now();
            if (failed() || now >= m_deadline)
                return false;
            const auto rest = std::chrono::ceil<std::chrono::microseconds>(m_deadline - now);
            if (pa_mainloop_prepare(m_loop.get(),
                                    static_cast<int>(std::min<std::int64_t>(rest.count(), 1'000'000))) < 0 ||
                pa_mainloop_poll(m_loop.get()) < 0)
                return false;
            pa_mainloop_dispatch(m_loop.get());
        }
        return true;
    }

    Clock::time_point m_deadline;
    Held<pa_mainloop> m_loop{pa_mainloop_new()};
    Held<pa_context> m_context{};
    Held<pa_stream> m_stream{};
};

} // namespace

PulseBeeper::PulseBeeper(std::optional<std::string> server) : m_server(std::move(server)) {}

void PulseBeeper::Beep(int frequencyHz, std::chrono::milliseconds duration)
{
    const std::vector<float> samples = tone(frequencyHz, duration, kRate);
    if (samples.empty())
        return;
    Playback playback(Clock::now() + duration + kPatience);
    // The tone is a help, not a need: a step that fails leaves it silent.
    static_cast<void>(playback.connect(m_server ? m_server->c_str() : nullptr) && playback.open() &&
                      playback.write(samples) && playback.drain());
}

} // namespace quillora::session
