#include "drawing/raster_line.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillora::drawing {

namespace {

constexpr std::int64_t kOne = std::int64_t{1} << 32;
constexpr std::int64_t kHalf = kOne / 2;

/// Rounded up; both positive or @p value negative.
std::int64_t ceilingQuotient(std::int64_t value, std::int64_t divisor)
{
    return value / divisor + (value % divisor > 0 ? 1 : 0);
}

/// The numbers n for which start + direction * n lies from 0 to extent, as first and end.
struct Range {
    std::int64_t first;
    std::int64_t end;
};

Range stepsInside(std::int64_t start, int direction, std::int64_t low, std::int64_t high)
{
    return direction > 0 ? Range{low - start, high - start} : Range{start - high + 1, start - low + 1};
}

} // namespace

base::PixelPoint heldWithinReach(const base::PixelPoint& point)
{
    return {std::clamp(point.x, -kFarthestCoordinate, kFarthestCoordinate),
            std::clamp(point.y, -kFarthestCoordinate, kFarthestCoordinate)};
}

ThinLine::ThinLine(const base::PixelPoint& from, const base::PixelPoint& to, LastPixel last,
                   const base::PixelRectangle& window)
{
    const std::int64_t across = std::int64_t{to.x} - from.x;
    const std::int64_t down = std::int64_t{to.y} - from.y;
    m_steep = std::abs(down) > std::abs(across);
    const std::int64_t major = m_steep ? down : across;
    const std::int64_t minor = m_steep ? across : down;
    const std::int64_t length = std::abs(major);
    m_majorDirection = major < 0 ? -1 : 1;
    m_minorDirection = minor < 0 ? -1 : 1;
    m_minorOrigin = m_steep ? from.x : from.y;
    // Rounded up, so that a line half-way between two pixels always takes the one farther from its start; the
    // error stays below what could change a pixel on lines of up to 46,000 pixels.
    m_slope = length == 0 ? 0 : ceilingQuotient(std::abs(minor) * kOne, length);

    const int majorFrom = m_steep ? from.y : from.x;
    const Range byMajor = m_steep ? stepsInside(majorFrom, m_majorDirection, window.top, window.bottom())
                                  : stepsInside(majorFrom, m_majorDirection, window.left, window.right());
    const Range rows = m_steep ? stepsInside(m_minorOrigin, m_minorDirection, window.left, window.right())
                               : stepsInside(m_minorOrigin, m_minorDirection, window.top, window.bottom());
    std::int64_t first = std::max<std::int64_t>(byMajor.first, 0);
    std::int64_t end = std::min(byMajor.end, length + (last == LastPixel::drawn ? 1 : 0));
    if (m_slope == 0) {
        if (rows.first > 0 || rows.end <= 0)
            end = first;
    } else {
        first = std::max(first, ceilingQuotient(rows.first * kOne - kHalf, m_slope));
        end = std::min(end, ceilingQuotient(rows.end * kOne - kHalf, m_slope));
    }
    m_count = std::max<std::int64_t>(end - first, 0);
    if (m_count == 0)
        return;
    m_firstStep = first;
    m_majorStart = static_cast<int>(majorFrom + m_majorDirection * first);
    m_positionStart = first * m_slope + kHalf;
}

base::PixelPoint ThinLine::pixel(int index) const
{
    const int major = m_majorStart + m_majorDirection * index;
    const auto minorSteps = static_cast<int>((m_positionStart + index * m_slope) >> 32);
    const int minor = m_minorOrigin + m_minorDirection * minorSteps;
    return m_steep ? base::PixelPoint{minor, major} : base::PixelPoint{major, minor};
}

base::PixelRectangle ThinLine::box() const
{
    if (empty())
        return {};
    const base::PixelPoint one = pixel(0);
    const base::PixelPoint other = pixel(count() - 1);
    return {std::min(one.x, other.x), std::min(one.y, other.y), std::abs(one.x - other.x) + 1,
            std::abs(one.y - other.y) + 1};
}

WideLine::WideLine(const base::PixelPoint& from, const base::PixelPoint& to, int penWidth)
    : m_start(from.y <= to.y ? from : to),
      m_across(from.y <= to.y ? to.x - from.x : from.x - to.x),
      m_down(std::abs(to.y - from.y)),
      m_radius(penWidth / 2.0),
      m_middle(penWidth % 2 == 0 ? -0.5 : 0)
{
    if (m_down == 0)
        return;
    const double length = std::hypot(m_across, m_down);
    m_slope = m_across / m_down;
    m_halfWidth = m_radius * length / m_down;
    m_leftEdgeTop = m_radius * m_across / length;
    m_rightEdgeTop = -m_leftEdgeTop;
}

WideLine::Run WideLine::runAt(double downFromStart) const
{
    const auto reachOfCircle = [this](double down) {
        return std::sqrt(std::max(m_radius * m_radius - down * down, 0.0));
    };
    double left = 0;
    double right = 0;
    if (m_down == 0) {
        const double reach = reachOfCircle(downFromStart);
        left = std::min(m_across, 0.0) - reach;
        right = std::max(m_across, 0.0) + reach;
    } else {
        // Each side is a straight edge between the circles of the two ends; which of the three it is in this
        // row depends on where the edge begins and ends.
        const double middle = downFromStart * m_slope;
        if (downFromStart < m_leftEdgeTop)
            left = -reachOfCircle(downFromStart);
        else if (downFromStart > m_leftEdgeTop + m_down)
            left = m_across - reachOfCircle(downFromStart - m_down);
        else
            left = middle - m_halfWidth;
        if (downFromStart < m_rightEdgeTop)
            right = reachOfCircle(downFromStart);
        else if (downFromStart > m_rightEdgeTop + m_down)
            right = m_across + reachOfCircle(downFromStart - m_down);
        else
            right = middle + m_halfWidth;
    }
    return {m_start.x + static_cast<std::int64_t>(std::ceil(left + m_middle)),
            m_start.x + static_cast<std::int64_t>(std::floor(right + m_middle))};
}

} // namespace quillora::drawing
