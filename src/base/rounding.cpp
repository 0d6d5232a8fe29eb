#include "base/rounding.h"

#include <cmath>
#include <limits>

namespace quillora::base {

int roundToInt(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (value <= lowest)
        return std::numeric_limits<int>::min();
    if (value >= highest)
        return std::numeric_limits<int>::max();
    const double below = std::floor(value);
    const double rest = value - below;
    const bool belowIsOdd = std::fmod(below, 2.0) != 0;
    return static_cast<int>(rest > 0.5 || (rest == 0.5 && belowIsOdd) ? below + 1 : below);
}

} // namespace quillora::base
