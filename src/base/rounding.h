#pragma once

namespace quillora::base {

/// @p value rounded to the nearest whole number, a half going to the even neighbour, and clamped to the range
/// of int. NaN gives 0. Every conversion of a coordinate or a result to an integer goes through here.
int roundToInt(double value);

} // namespace quillora::base
