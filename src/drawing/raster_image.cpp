#include "drawing/raster_image.h"

#include <stdexcept>

namespace quillora::drawing {

RasterImage::RasterImage(int width, int height, Colour colour)
{
    if (width > kLongestSide || height > kLongestSide)
        throw std::length_error("a picture has too many pixels a side");
    if (width <= 0 || height <= 0)
        return;
    m_pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour & kColourBits);
    m_width = width;
    m_height = height;
}

} // namespace quillora::drawing
