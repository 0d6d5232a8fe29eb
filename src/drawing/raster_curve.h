#pragma once

#include "base/pixel_rectangle.h"

#include <array>
#include <utility>
#include <vector>

namespace quillora::drawing {

/// The straight lines that stand for a curve; each begins where the one before it ended, unless what lay
/// between cannot be seen.
using CurvePieces = std::vector<std::pair<base::PixelPoint, base::PixelPoint>>;

/// The cubic Bezier curve from the first point to the last, as straight lines nowhere farther than a quarter
/// of a pixel from it, without those that leave no trace in @p window. Where a line begins and ends does not
/// depend on the window. Points must be within reach (see raster_line.h).
CurvePieces flattenCurve(const std::array<base::PixelPoint, 4>& points, const base::PixelRectangle& window);

} // namespace quillora::drawing
