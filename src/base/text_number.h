#pragma once

#include <string>
#include <string_view>

namespace quillora::base {

/// The number at the start of @p text: blanks, an optional sign, decimal digits with an optional point and
/// exponent. What follows it is ignored; a text without a number gives 0. So "100%" is 100, "" is 0 and
/// "12.5 fps" is 12.5. Most of the system's numbers are kept as text, and this is how each is read.
double leadingNumber(std::string_view text);

/// leadingNumber() as a whole number, rounded half to even and clamped to the range of int.
int leadingInteger(std::string_view text);

/// A whole number as the decimal text in which fields keep it.
std::string decimalText(long long value);

} // namespace quillora::base
