#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/raster_image.h"

namespace quillora::drawing {

/// Makes @p ink of every pixel of colour @p surface that is joined to (x, y) by its sides through pixels of
/// that colour. Gives a rectangle that holds what changed: nothing where the start lies outside or has
/// another colour. Takes time in proportion to what changes, whatever its form.
base::PixelRectangle floodFill(RasterImage& image, int x, int y, Colour surface, Colour ink);

} // namespace quillora::drawing
