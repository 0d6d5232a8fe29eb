#pragma once

#include "capture/platform/x11/connection_watchdog.h"
#include "capture/platform/x11/pixel_layout.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace quillora::capture {

/// Frees what XCB hands out.
struct XcbDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using XcbPointer = std::unique_ptr<T, XcbDeleter>;

/// A connection to an X server for one thread, and which of the extensions that capture uses are there. All
/// calls to the server belong into a stretch of its watchdog.
class X11Connection {
  public:
    /// Which kind of event an extension's first event is, or nothing where the extension isn't there.
    struct Extensions {
        std::optional<std::uint8_t> damage{};
        std::optional<std::uint8_t> xfixes{};
        std::optional<std::uint8_t> randr{};
        /// Whether the server can write pictures into memory that it is handed by descriptor.
        bool sharedMemory = false;
    };

    /// Throws std::runtime_error when the display can't be reached, counting the watchdog's patience from
    /// @p since, or isn't of a kind that can be captured.
    X11Connection(const std::optional<std::string>& displayName, ConnectionWatchdog::Clock::time_point since);

    xcb_connection_t* get() const { return m_connection.get(); }
    ConnectionWatchdog& watchdog() const { return *m_watchdog; }
    const Extensions& extensions() const { return m_extensions; }
    const PixelLayout& layout() const { return m_layout; }
    xcb_window_t root() const { return m_screen->root; }
    bool broken() const { return xcb_connection_has_error(get()) != 0; }

    /// Throws std::runtime_error when the connection is broken.
    void check() const
    {
        if (broken())
            throwLost();
    }
    /// For the reply to a request that can't fail but by the end of the connection: returns it, or throws
    /// std::runtime_error.
    template <typename Reply>
    XcbPointer<Reply> expect(Reply* reply) const
    {
        if (!reply)
            throwLost();
        return XcbPointer<Reply>(reply);
    }

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void findExtensions(bool local);
    [[noreturn]] void throwLost() const;

    std::unique_ptr<ConnectionWatchdog> m_watchdog;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr;
    Extensions m_extensions{};
    PixelLayout m_layout{};
};

} // namespace quillora::capture
