#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace quillora::capture {

/// Bounds the time that calls to the X server take. XCB waits without limit, in many places, for a server
/// that may have stopped; only the end of its socket makes it return. So a thread of the watchdog's own shuts
/// the socket down when a watched stretch lasts too long, and XCB then reports a broken connection.
class ConnectionWatchdog {
  public:
    using Clock = std::chrono::steady_clock;

    /// A watched stretch is cut off when it has lasted this long, or up to kTick later.
    static constexpr std::chrono::milliseconds kPatience{700};

    /// Watches the connection behind @p socket, through a descriptor of its own. Throws std::system_error.
    explicit ConnectionWatchdog(int socket);
    ~ConnectionWatchdog();
    ConnectionWatchdog(const ConnectionWatchdog&) = delete;
    ConnectionWatchdog& operator=(const ConnectionWatchdog&) = delete;

    /// The stretch from @p since to the end of this object. Stretches don't nest.
    class Stretch {
      public:
        Stretch(ConnectionWatchdog& watchdog, Clock::time_point since) : m_watchdog(watchdog)
        {
            m_watchdog.begin(since);
        }
        ~Stretch() { m_watchdog.end(); }
        Stretch(const Stretch&) = delete;
        Stretch& operator=(const Stretch&) = delete;

      private:
        ConnectionWatchdog& m_watchdog;
    };

  private:
    /// The thread looks at this pace instead of being woken for each stretch, of which there are dozens a
    /// second.
    static constexpr std::chrono::milliseconds kTick{200};

    void begin(Clock::time_point since);
    void end();
    void run(std::stop_token stop);

    int m_socket = -1;
    std::mutex m_mutex;
    std::condition_variable_any m_stopped;
    /// Guarded by m_mutex; empty between stretches.
    std::optional<Clock::time_point> m_begun;
    /// Last: it uses all of the above.
    std::jthread m_thread;
};

} // namespace quillora::capture
