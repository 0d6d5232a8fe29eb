#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillora::base {

/// One attempt at a connection to a sound server, and the loop that moves it on. For one thread. It never
/// starts a server: where none runs, the user doesn't want one.
///
/// The loop is turned by hand and what came of it is looked at afterwards, instead of in callbacks: so each
/// user can give up at any time, and nothing is torn down from within a callback.
class PulseConnection {
  public:
    using Clock = std::chrono::steady_clock;

    /// @p server is PULSE_SERVER's syntax; without it the user's server. Never waits.
    explicit PulseConnection(const std::optional<std::string>& server);

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
    struct FreeLoop {
        void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
    };
    struct FreeContext {
        void operator()(pa_context* context) const
        {
            pa_context_disconnect(context);
            pa_context_unref(context);
        }
    };

    std::unique_ptr<pa_mainloop, FreeLoop> m_loop;
    std::unique_ptr<pa_context, FreeContext> m_context;
    bool m_connecting = false;
};

} // namespace quillora::base
