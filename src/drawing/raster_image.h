#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/colour.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quillora::drawing {

/// A picture in memory, rows from top to bottom without gaps. A value: a copy is a picture of its own.
class RasterImage {
  public:
    /// A picture of more pixels a side could not be indexed safely in 32 bits.
    static constexpr int kLongestSide = 32767;

    /// The empty picture.
    RasterImage() = default;
    /// All pixels @p colour. A side of 0 or less gives the empty picture. Throws std::length_error for a side
    /// above kLongestSide.
    RasterImage(int width, int height, Colour colour = 0);

    int width() const { return m_width; }
    int height() const { return m_height; }
    base::PixelRectangle bounds() const { return {0, 0, m_width, m_height}; }
    bool contains(int x, int y) const { return x >= 0 && x < m_width && y >= 0 && y < m_height; }

    /// Both need a place inside: they don't look.
    Colour& at(int x, int y) { return m_pixels[indexOf(x, y)]; }
    Colour at(int x, int y) const { return m_pixels[indexOf(x, y)]; }
    std::span<Colour> row(int y) { return {&m_pixels[indexOf(0, y)], static_cast<std::size_t>(m_width)}; }
    std::span<const Colour> row(int y) const
    {
        return {&m_pixels[indexOf(0, y)], static_cast<std::size_t>(m_width)};
    }
    Colour* data() { return m_pixels.data(); }
    const Colour* data() const { return m_pixels.data(); }

    bool operator==(const RasterImage&) const = default;

  private:
    std::size_t indexOf(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    int m_width = 0;
    int m_height = 0;
    std::vector<Colour> m_pixels;
};

} // namespace quillora::drawing
