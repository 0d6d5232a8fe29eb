#include "drawing/round_pen.h"

#include "drawing/raster_line.h"

namespace quillora::drawing {

RoundPen::RoundPen(int width)
{
    // The pen is the line from a pixel to itself, taken far enough down that no row of it is cut off.
    WideLine({0, width}, {0, width}, width)
        .forEachRun(2 * width + 1, [&](int y, std::int64_t left, std::int64_t right) {
            m_rows.push_back({y - width, left, right});
        });
}

} // namespace quillora::drawing
