#pragma once

#include "base/pixel_rectangle.h"

#include <cmath>
#include <cstdint>

namespace quillora::drawing {

/// Coordinates beyond are taken as this: no product of two of them, nor of one and a fixed-point slope,
/// leaves 64 bits.
inline constexpr int kFarthestCoordinate = 1 << 29;

base::PixelPoint heldWithinReach(const base::PixelPoint& point);

/// A straight piece of an outline.
struct Edge {
    base::PixelPoint from;
    base::PixelPoint to;
};

enum class LastPixel { drawn, leftOut };

/// A line one pixel wide, as far as it lies in a rectangle: one pixel in each column, or in each row where it
/// is steeper, in order from its start. Where in its pixels it begins and ends follows from the whole line by
/// arithmetic, so that a line that is cut off shows the pixels that it would show uncut, and costs only
/// those.
class ThinLine {
  public:
    /// Points must be within reach, and @p window must not reach below 0 nor above 32767.
    ThinLine(const base::PixelPoint& from, const base::PixelPoint& to, LastPixel last,
             const base::PixelRectangle& window);

    bool empty() const { return m_count <= 0; }
    /// Pixels in the window.
    int count() const { return static_cast<int>(m_count); }
    /// Which pixel of the whole line is the first in the window.
    std::int64_t firstStep() const { return m_firstStep; }
    bool isSteep() const { return m_steep; }
    /// In x, or in y where the line is steep: the same for all its pixels but for one each time.
    int majorStart() const { return m_majorStart; }
    int majorDirection() const { return m_majorDirection; }
    int minorDirection() const { return m_minorDirection; }
    /// The other coordinate at the line's pixel @p index in the window is minorOrigin() plus
    /// minorDirection() times (position >> 32), where position begins at positionStart() and grows by slope()
    /// each pixel.
    int minorOrigin() const { return m_minorOrigin; }
    std::int64_t positionStart() const { return m_positionStart; }
    std::int64_t slope() const { return m_slope; }

    base::PixelPoint pixel(int index) const;
    /// Holds every pixel in the window.
    base::PixelRectangle box() const;

  private:
    bool m_steep = false;
    int m_majorStart = 0;
    int m_majorDirection = 1;
    int m_minorDirection = 1;
    int m_minorOrigin = 0;
    std::int64_t m_firstStep = 0;
    std::int64_t m_count = 0;
    std::int64_t m_slope = 0;
    std::int64_t m_positionStart = 0;
};

/// A line that a round pen draws: every pixel whose centre is no farther than half the pen's width from the
/// straight line between the two points. A pen of even width has its middle half a pixel up and left of the
/// point. One run a row.
class WideLine {
  public:
    WideLine(const base::PixelPoint& from, const base::PixelPoint& to, int penWidth);

    /// Calls @p visit(y, left, right), both in it, for each row between 0 and @p rows.
    template <typename Visit>
    void forEachRun(int rows, Visit visit) const;

  private:
    struct Run {
        std::int64_t left;
        std::int64_t right;
    };
    Run runAt(double downFromStart) const;

    // The line runs from the point, which is the upper one, downwards or level.
    base::PixelPoint m_start;
    double m_across;
    double m_down;
    double m_radius;
    double m_middle;
    double m_slope = 0;
    double m_halfWidth = 0;
    double m_leftEdgeTop = 0;
    double m_rightEdgeTop = 0;
};

template <typename Visit>
void WideLine::forEachRun(int rows, Visit visit) const
{
    const double top = m_start.y + m_middle - m_radius;
    const double bottom = m_start.y + m_middle + m_down + m_radius;
    if (bottom < 0 || top > rows)
        return;
    const int first = top > 0 ? static_cast<int>(std::ceil(top)) : 0;
    const int end = bottom < rows - 1 ? static_cast<int>(std::floor(bottom)) + 1 : rows;
    for (int y = first; y < end; ++y) {
        const Run run = runAt(y - m_start.y - m_middle);
        if (run.left <= run.right)
            visit(y, run.left, run.right);
    }
}

} // namespace quillora::drawing
