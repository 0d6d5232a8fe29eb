#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace quillora::messages {

/// Frees what XCB hands out.
struct XcbDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using XcbPointer = std::unique_ptr<T, XcbDeleter>;

/// A connection to an X server of the hot keys' own, on which no call waits for ever: answers are waited for
/// until a deadline, and the connecting, which XCB can't be kept from waiting in, is done on a thread that is
/// left to itself when it takes too long.
class KeyConnection {
  public:
    using Clock = std::chrono::steady_clock;

    /// What one operation may keep the caller waiting.
    static constexpr std::chrono::milliseconds kPatience{700};

    /// Without a display that answers in time, broken from the start.
    explicit KeyConnection(const std::optional<std::string>& display);

    bool broken() const { return !m_connection || xcb_connection_has_error(get()) != 0; }
    /// None when it is broken.
    xcb_connection_t* get() const { return m_connection.get(); }
    xcb_window_t root() const { return m_root; }

    /// Whether the request succeeded that has no reply; false also when that isn't known by @p deadline.
    bool succeeded(xcb_void_cookie_t request, Clock::time_point deadline) const;
    /// Nothing when there was an error, or no reply by @p deadline.
    template <typename Reply, typename Cookie>
    XcbPointer<Reply> reply(Cookie request, Clock::time_point deadline) const
    {
        return XcbPointer<Reply>(static_cast<Reply*>(wait(request.sequence, deadline).reply.release()));
    }
    /// Waits until the server has done all that it was asked. False at @p deadline.
    bool synchronise(Clock::time_point deadline) const;
    /// Makes the connection readable once the server has done all that it was asked. Answers that were given
    /// up don't always: they may have been read already, along with the sending of something else.
    void askForSignOfLife() const;

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    struct Answer {
        bool arrived = false;
        XcbPointer<void> reply{};
        XcbPointer<xcb_generic_error_t> error{};
    };

    Answer wait(unsigned sequence, Clock::time_point deadline) const;

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection{};
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace quillora::messages
