#include "drawing/constrain_point.h"

#include "base/rounding.h"

#include <cmath>

namespace quillora::drawing {

base::PixelPoint roundedPlace(const PointerEvent& event)
{
    return {base::roundToInt(event.x), base::roundToInt(event.y)};
}

base::PixelPoint constrainedEnd(base::PixelPoint start, const PointerEvent& event, DraggedShape shape)
{
    const double x = event.x;
    const double y = event.y;
    const double dx = std::abs(x - start.x);
    const double dy = std::abs(y - start.y);
    if (event.shift == kShiftAlone) {
        if (dy >= dx)
            return {base::roundToInt(x), base::roundToInt(y <= start.y ? start.y - dx : start.y + dx)};
        return {base::roundToInt(x <= start.x ? start.x - dy : start.x + dy), base::roundToInt(y)};
    }
    if (event.shift == kControlAlone && shape == DraggedShape::line) {
        if (dy >= dx)
            return {start.x, base::roundToInt(y)};
        return {base::roundToInt(x), start.y};
    }
    return roundedPlace(event);
}

} // namespace quillora::drawing
