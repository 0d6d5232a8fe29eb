#pragma once

#include <cstdint>

namespace quillora::drawing {

/// A colour: red in the low byte, then green, then blue. The high byte is 0 in every pixel of a surface, and
/// nothing that is drawn looks at it.
using Colour = std::uint32_t;

/// What reading a pixel outside a surface gives: the 32-bit value -1, which is no colour.
inline constexpr Colour kNoColour = 0xFFFFFFFF;

/// The three channels of a colour.
inline constexpr Colour kColourBits = 0x00FFFFFF;

/// Only the low byte of each channel counts.
constexpr Colour rgb(int red, int green, int blue)
{
    return static_cast<Colour>(red & 0xFF) | static_cast<Colour>(green & 0xFF) << 8 |
           static_cast<Colour>(blue & 0xFF) << 16;
}

constexpr int redOf(Colour colour) { return static_cast<int>(colour & 0xFF); }
constexpr int greenOf(Colour colour) { return static_cast<int>(colour >> 8 & 0xFF); }
constexpr int blueOf(Colour colour) { return static_cast<int>(colour >> 16 & 0xFF); }

} // namespace quillora::drawing
