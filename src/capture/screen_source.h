#pragma once

#include "capture/pixel_rectangle.h"

#include <cstdint>
#include <vector>

namespace quillora::capture {

/// A picture of the screen: rows from the top, four bytes a pixel in the order blue, green, red, unused, no
/// padding between rows.
struct ScreenImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels{};

    void resize(int newWidth, int newHeight)
    {
        width = newWidth;
        height = newHeight;
        pixels.resize(std::size_t(4) * std::size_t(newWidth) * std::size_t(newHeight));
    }
};

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
        /// The part of the image, in its own pixels, outside which it is the same as before this call. Empty
        /// when nothing has changed at all; the whole image on the first call and whenever region changed.
        PixelRectangle changed{};
    };

    /// Brings @p image up to date with @p region of the screen, at the size of that region. The image is the one
    /// of the previous call and still holds what that call left. Parts off the screen are black.
    ///
    /// Costs next to nothing where nothing has changed. Never blocks for longer than a second and never ends the
    /// process. Throws std::runtime_error when the screen can't be read (display gone); the image is then left
    /// as it is, and a later call may work again.
    virtual Grab grab(const PixelRectangle& region, const PointerDrawing& pointer, ScreenImage& image) = 0;

    /// The whole screen. Throws like grab().
    virtual PixelRectangle screen() = 0;
    /// Where the mouse pointer's hot spot is. Throws like grab().
    virtual PixelPoint pointer() = 0;
};

} // namespace quillora::capture
