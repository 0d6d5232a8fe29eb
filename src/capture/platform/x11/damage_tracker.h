#pragma once

#include "capture/pixel_rectangle.h"
#include "capture/platform/x11/x11_connection.h"

namespace quillora::capture {

/// Which part of the screen the server says has been drawn on. It is a hint: drivers are known to forget
/// some, so it counts how often it was found wrong, and is trusted no more after a few times.
class DamageTracker {
  public:
    explicit DamageTracker(const X11Connection& connection);

    /// Takes up an event if it is about damage.
    void handleEvent(const xcb_generic_event_t& event);
    /// Bounds what has been drawn on since it was last taken. What is drawn from now on is told anew: read
    /// the screen after taking, and nothing is ever lost between the two.
    PixelRectangle take();
    const PixelRectangle& pending() const { return m_pending; }

    bool trusted() const { return m_trusted; }
    /// The screen has changed where no damage was told.
    void countMiss();

  private:
    /// One miss may be the driver's start; a driver that forgets damage does so all the time.
    static constexpr int kMissesForgiven = 3;

    const X11Connection& m_connection;
    std::uint32_t m_damage = 0;
    PixelRectangle m_pending{};
    int m_misses = 0;
    bool m_trusted = false;
};

} // namespace quillora::capture
