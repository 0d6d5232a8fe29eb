#pragma once

#include "capture/pixel_rectangle.h"

#include <cstddef>
#include <cstdint>

namespace quillora::capture {

/// Rows of pixels in memory that somebody else owns.
struct PixelRows {
    const std::uint8_t* first = nullptr;
    /// Bytes from one row to the next.
    std::size_t stride = 0;
};

/// The smallest rectangle outside which two pictures of @p width by @p height pixels are the same, byte by
/// byte. Empty when they are the same everywhere. Reads every row once where they are, which costs what
/// comparing memory costs; where they differ, only what lies outside the rectangle as it is known so far.
PixelRectangle changedPart(PixelRows before, PixelRows after, int width, int height, int bytesPerPixel);

} // namespace quillora::capture
