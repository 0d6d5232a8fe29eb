#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/raster_line.h"

#include <array>
#include <vector>

namespace quillora::drawing {

/// The cubic Bezier curve from the first point to the last, as straight lines nowhere farther than a quarter
/// of a pixel from it, without those that leave no trace in @p window. Where a line begins and ends does not
/// depend on the window. Points must be within reach (see raster_line.h).
std::vector<Edge> flattenCurve(const std::array<base::PixelPoint, 4>& points,
                               const base::PixelRectangle& window);

} // namespace quillora::drawing
