#pragma once

#include <limits>
#include <stdexcept>

namespace quillora::drawing {

/// @p value where a 16-bit integer can hold it; throws std::overflow_error where not. Parts of the engine
/// reckon in such integers, and what they do at the end of the range is a failure, not a wrap.
inline int sixteenBits(int value)
{
    using Range = std::numeric_limits<short>;
    if (value < Range::min() || value > Range::max())
        throw std::overflow_error("beyond the range of a 16-bit integer");
    return value;
}

} // namespace quillora::drawing
