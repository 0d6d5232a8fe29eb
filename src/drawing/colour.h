#pragma once

#include "base/colour.h"

namespace quillora::drawing {

/// The high byte is 0 in every pixel of a surface, and nothing that is drawn looks at it.
using base::Colour;

using base::blueOf;
using base::greenOf;
using base::redOf;
using base::rgb;

/// What reading a pixel outside a surface gives: the 32-bit value -1, which is no colour.
inline constexpr Colour kNoColour = 0xFFFFFFFF;

/// The three channels of a colour.
inline constexpr Colour kColourBits = 0x00FFFFFF;

} // namespace quillora::drawing
