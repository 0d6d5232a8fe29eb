#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillora::audio {

/// One connection to a sound server with the loop that moves it on, turned by hand by whoever waits for
/// something: so each wait has an end, and nothing is torn down from within a callback. For one thread. It
/// never starts a server.
class PulseLoop {
  public:
    using Clock = std::chrono::steady_clock;

    /// @p server is PULSE_SERVER's syntax; without it the user's server. Never waits.
    explicit PulseLoop(const std::optional<std::string>& server);

    pa_context* context() const { return m_context.get(); }
    bool ready() const { return m_context && pa_context_get_state(m_context.get()) == PA_CONTEXT_READY; }
    /// It will never be ready, or not any more.
    bool failed() const
    {
        return !m_connecting || !PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context.get()));
    }

    /// Waits for something to happen, at most for @p limit, and lets it happen.
    void turn(std::chrono::microseconds limit);
    /// Turns until @p condition is true, which it returns; false at @p deadline and when the connection
    /// fails.
    bool turnUntil(Clock::time_point deadline, const std::function<bool()>& condition);
    /// Ends a turn() that waits. May be called from any thread.
    void wake();

  private:
    struct Free {
        void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
        void operator()(pa_context* context) const
        {
            pa_context_disconnect(context);
            pa_context_unref(context);
        }
    };

    std::unique_ptr<pa_mainloop, Free> m_loop;
    std::unique_ptr<pa_context, Free> m_context;
    bool m_connecting = false;
};

} // namespace quillora::audio
