#pragma once

#include <cstdint>

namespace quillora::base {

/// A colour: red in the low byte, then green, then blue. The high byte is 0 in every colour that is shown.
using Colour = std::uint32_t;

/// Only the low byte of each channel counts.
constexpr Colour rgb(int red, int green, int blue)
{
    return static_cast<Colour>(red & 0xFF) | static_cast<Colour>(green & 0xFF) << 8 |
           static_cast<Colour>(blue & 0xFF) << 16;
}

constexpr int redOf(Colour colour) { return static_cast<int>(colour & 0xFF); }
constexpr int greenOf(Colour colour) { return static_cast<int>(colour >> 8 & 0xFF); }
constexpr int blueOf(Colour colour) { return static_cast<int>(colour >> 16 & 0xFF); }

} // namespace quillora::base
