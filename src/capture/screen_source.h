#pragma once

#include "capture/pixel_rectangle.h"
#include "capture/screen_image.h"

namespace quillora::capture {

/// What to draw of the mouse pointer.
struct PointerDrawing {
    bool cursor = false;
    bool highlight = false;
    /// Diameter of the highlight in pixels.
    int highlightSize = 35;

    bool operator==(const PointerDrawing&) const = default;
};

/// The screen as the capture engine asks for it. Used from one thread, the engine's grab thread.
class ScreenSource {
  public:
    virtual ~ScreenSource() = default;

    struct Grab {
        /// The part of the image, in its own pixels, outside which it is the same as in the call before.
        /// Empty when nothing has changed at all; the whole image on the first call and whenever region
        /// changed.
        PixelRectangle changed{};
        /// Where the picture lies, until the next call on the source.
        ScreenImageView image{};
    };

    /// Takes a picture of @p region of the screen, at the size of that region. Parts off the screen are
    /// black.
    ///
    /// Costs next to nothing where nothing has changed. Never blocks for longer than a second and never ends
    /// the process. Throws std::runtime_error when the screen can't be read (display gone); a later call may
    /// work again.
    virtual Grab grab(const PixelRectangle& region, const PointerDrawing& pointer) = 0;

    /// The whole screen. Throws like grab().
    virtual PixelRectangle screen() = 0;
    /// Where the mouse pointer's hot spot is. Throws like grab().
    virtual PixelPoint pointer() = 0;
};

} // namespace quillora::capture
