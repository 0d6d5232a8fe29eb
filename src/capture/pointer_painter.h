#pragma once

#include "capture/pixel_rectangle.h"
#include "capture/screen_image.h"

#include <cstdint>
#include <vector>

namespace quillora::capture {

/// The picture of a mouse pointer.
struct CursorImage {
    int width = 0;
    int height = 0;
    /// The pixel of the picture that points.
    PixelPoint hotSpot{};
    /// Rows from the top, alpha in the highest byte, then red, green, blue, which are multiplied by alpha.
    std::vector<std::uint32_t> pixels{};
};

/// Where a cursor is drawn that points at @p position.
PixelRectangle cursorArea(const CursorImage& cursor, PixelPoint position);

/// Draws the cursor over what the image holds. Pixels outside @p clip stay as they are; @p clip and @p
/// position are in pixels of the image.
void paintCursor(ScreenImage& image, const PixelRectangle& clip, const CursorImage& cursor,
                 PixelPoint position);

/// Where a highlight of @p diameter pixels around @p position is drawn. Empty for a diameter below 1.
PixelRectangle highlightArea(PixelPoint position, int diameter);

/// Tints a disc around @p position, fading out over its outermost pixels. Every colour keeps its distance
/// from its neighbours: white becomes a light amber and black a dark one, so that text under the disc can be
/// read, dark on light and light on dark.
void paintHighlight(ScreenImage& image, const PixelRectangle& clip, PixelPoint position, int diameter);

} // namespace quillora::capture
