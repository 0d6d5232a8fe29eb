#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/pen.h"
#include "drawing/raster_image.h"

#include <cstdint>

namespace quillora::drawing {

/// Puts one ink on runs of pixels, leaves out what lies outside the picture, and remembers what it touched. A
/// shape drawn through it must name each of its pixels once.
class RunPainter {
  public:
    RunPainter(RasterImage& image, Ink ink) : m_image(image), m_ink{ink.colour & kColourBits, ink.operation}
    {}

    /// Row @p y from @p left to @p right, both in it.
    void paint(std::int64_t y, std::int64_t left, std::int64_t right);

    base::PixelRectangle touched() const;

  private:
    RasterImage& m_image;
    Ink m_ink;
    int m_left = RasterImage::kLongestSide;
    int m_top = RasterImage::kLongestSide;
    int m_right = -1;
    int m_bottom = -1;
};

} // namespace quillora::drawing
