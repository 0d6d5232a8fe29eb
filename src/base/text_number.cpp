#include "base/text_number.h"

#include "base/rounding.h"

#include <charconv>

namespace quillora::base {

double leadingNumber(std::string_view text)
{
    const auto start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos)
        return 0;
    text.remove_prefix(start);
    // from_chars takes a minus sign but no plus sign.
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    // It would also read the words "inf" and "nan", which are texts here.
    const auto first = text.find_first_not_of('-');
    if (first == std::string_view::npos || (text[first] != '.' && (text[first] < '0' || text[first] > '9')))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} ? value : 0;
}

int leadingInteger(std::string_view text) { return roundToInt(leadingNumber(text)); }

std::string decimalText(long long value) { return std::to_string(value); }

} // namespace quillora::base
