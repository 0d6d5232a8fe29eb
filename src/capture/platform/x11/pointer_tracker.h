#pragma once

#include "capture/platform/x11/x11_connection.h"
#include "capture/pointer_painter.h"

#include <optional>

namespace quillora::capture {

/// Where the mouse pointer is and what it looks like. The position is asked for each time, for a few dozen
/// bytes; the picture only after the server has told that it is another one.
class PointerTracker {
  public:
    explicit PointerTracker(const X11Connection& connection);

    /// Nothing when the pointer is on another screen of the display. Throws std::runtime_error.
    std::optional<PixelPoint> position() const;

    /// Takes up an event if it is about the cursor's picture.
    void handleEvent(const xcb_generic_event_t& event);
    /// Whether the picture is another one than image() gave last.
    bool imageChanged() const { return m_stale; }
    /// The picture of now; one of no size where there is none. Throws std::runtime_error.
    const CursorImage& image();

  private:
    const X11Connection& m_connection;
    CursorImage m_image{};
    bool m_stale = true;
};

} // namespace quillora::capture
