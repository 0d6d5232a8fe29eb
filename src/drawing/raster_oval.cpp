#include "drawing/raster_oval.h"

#include <cmath>

namespace quillora::drawing {

Oval::Oval(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY,
           std::int64_t ellipseWidth, std::int64_t ellipseHeight)
    : m_left(std::min(oneX, otherX)),
      m_top(std::min(oneY, otherY)),
      m_right(std::max(oneX, otherX)),
      m_bottom(std::max(oneY, otherY)),
      m_radiusX(static_cast<double>(std::clamp<std::int64_t>(ellipseWidth, 0, m_right - m_left)) / 2),
      m_radiusY(static_cast<double>(std::clamp<std::int64_t>(ellipseHeight, 0, m_bottom - m_top)) / 2)
{
    // A corner that is flat in one direction has no curve; left as it is, its rows would fill the whole
    // width.
    if (m_radiusX == 0 || m_radiusY == 0)
        m_radiusX = m_radiusY = 0;
}

Oval Oval::box(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY)
{
    return {oneX, oneY, otherX, otherY, 0, 0};
}

Oval Oval::ellipse(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY)
{
    return {oneX,
            oneY,
            otherX,
            otherY,
            std::max(oneX, otherX) - std::min(oneX, otherX),
            std::max(oneY, otherY) - std::min(oneY, otherY)};
}

double Oval::depthAt(double rows) const
{
    if (rows <= 0)
        return m_radiusX;
    if (rows >= m_radiusY)
        return 0;
    return m_radiusX - m_radiusX / m_radiusY * std::sqrt(rows * (2 * m_radiusY - rows));
}

Oval::Row Oval::cornerRow(std::int64_t rows, double depthAbove, double depthBelow) const
{
    // In a steep part of the curve the row has the one pixel that the curve passes nearest to; in a flat part
    // all that it passes between half a row above and half a row below.
    const double nearest = std::ceil(depthAt(static_cast<double>(rows)) - 0.5);
    const auto outer = static_cast<std::int64_t>(std::min(nearest, std::ceil(depthBelow)));
    const auto inner = static_cast<std::int64_t>(std::max(nearest, std::floor(depthAbove)));
    Row row{m_left + outer, m_right - outer, m_left + inner + 1, m_right - inner - 1};
    if (rows == 0)
        row.gapLeft = row.gapRight + 1;
    return row;
}

} // namespace quillora::drawing
