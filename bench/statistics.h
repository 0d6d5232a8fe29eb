#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillora::bench {

/// The value that @p share of the values, which are sorted and not none, do not exceed.
inline double percentile(const std::vector<double>& sorted, double share)
{
    return sorted[std::min(sorted.size() - 1, std::size_t(share * double(sorted.size())))];
}

/// Of at least one value.
inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return percentile(values, 0.5);
}

} // namespace quillora::bench
