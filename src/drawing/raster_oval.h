#pragma once

#include "drawing/round_pen.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace quillora::drawing {

/// The outline, one pixel wide, of a box whose corners are quarters of an ellipse, and its inside. With
/// corners of no size it is a plain box, with corners as large as itself an ellipse. Each side touches its
/// edge of the box. Rows are worked out each for itself, so that one looks the same whichever others are
/// asked for.
class Oval {
  public:
    /// The pixels of a row from left to right belong to the outline, but for those from gapLeft to gapRight,
    /// which are inside. Each in what it names; a gap of nothing has its left right of its right.
    struct Row {
        std::int64_t left = 0;
        std::int64_t right = 0;
        std::int64_t gapLeft = 0;
        std::int64_t gapRight = 0;

        bool hasGap() const { return gapLeft <= gapRight; }
    };

    /// Corners of the box, in it, in any order. The ellipse's sizes are one less than the pixels it takes,
    /// since its curve runs through the middles of them; a larger one than the box shrinks to it.
    Oval(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY,
         std::int64_t ellipseWidth, std::int64_t ellipseHeight);

    static Oval box(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY);
    static Oval ellipse(std::int64_t oneX, std::int64_t oneY, std::int64_t otherX, std::int64_t otherY);

    std::int64_t left() const { return m_left; }
    std::int64_t top() const { return m_top; }
    std::int64_t right() const { return m_right; }
    std::int64_t bottom() const { return m_bottom; }

    /// Calls @p visit(y, row) for each row from @p first up to @p end, which is not in it; in no certain
    /// order.
    template <typename Visit>
    void forEachRow(std::int64_t first, std::int64_t end, Visit visit) const;

  private:
    /// How far the curve has come in from the side where it is @p rows below the top of its corner.
    double depthAt(double rows) const;
    Row cornerRow(std::int64_t rows, double depthAbove, double depthBelow) const;
    template <typename Visit>
    void forEachCornerRow(std::int64_t first, std::int64_t end, Visit visit) const;

    std::int64_t m_left;
    std::int64_t m_top;
    std::int64_t m_right;
    std::int64_t m_bottom;
    double m_radiusX;
    double m_radiusY;
};

template <typename Visit>
void Oval::forEachRow(std::int64_t first, std::int64_t end, Visit visit) const
{
    const std::int64_t height = m_bottom - m_top + 1;
    const auto cornerHeight = static_cast<std::int64_t>(m_radiusY) + 1;
    const std::int64_t straightTop = m_top + std::min(cornerHeight, (height + 1) / 2);
    const std::int64_t straightEnd = m_bottom + 1 - std::min(cornerHeight, height / 2);
    forEachCornerRow(std::max(first, m_top) - m_top, std::min(end, straightTop) - m_top,
                     [&](std::int64_t rows, const Row& row) { visit(m_top + rows, row); });
    for (std::int64_t y = std::max(first, straightTop); y < std::min(end, straightEnd); ++y)
        visit(y, Row{m_left, m_right, m_left + 1, m_right - 1});
    forEachCornerRow(m_bottom - std::min(end - 1, m_bottom), m_bottom + 1 - std::max(first, straightEnd),
                     [&](std::int64_t rows, const Row& row) { visit(m_bottom - rows, row); });
}

template <typename Visit>
void Oval::forEachCornerRow(std::int64_t first, std::int64_t end, Visit visit) const
{
    double depthAbove = depthAt(static_cast<double>(first) - 0.5);
    for (std::int64_t rows = first; rows < end; ++rows) {
        const double depthBelow = depthAt(static_cast<double>(rows) + 0.5);
        visit(rows, cornerRow(rows, depthAbove, depthBelow));
        depthAbove = depthBelow;
    }
}

/// The same with an outline that a round pen draws along the thin one. A row of it is again one outline with
/// one gap: the runs of neighbouring rows touch, and so do what the pen makes of them.
class WideOval {
  public:
    WideOval(const Oval& oval, int penWidth) : m_oval(oval), m_penWidth(penWidth), m_pen(penWidth) {}

    /// Calls @p visit(y, row) for each row from 0 up to @p end, which is not in it, from top to bottom.
    template <typename Visit>
    void forEachRow(std::int64_t end, Visit visit) const;

  private:
    Oval m_oval;
    int m_penWidth;
    RoundPen m_pen;
};

template <typename Visit>
void WideOval::forEachRow(std::int64_t end, Visit visit) const
{
    const std::int64_t thinTop = std::max<std::int64_t>(m_oval.top(), -m_penWidth);
    const std::int64_t thinEnd = std::min<std::int64_t>(m_oval.bottom() + 1, end + m_penWidth);
    if (thinTop >= thinEnd)
        return;
    std::vector<Oval::Row> thin(static_cast<std::size_t>(thinEnd - thinTop));
    m_oval.forEachRow(thinTop, thinEnd, [&](std::int64_t y, const Oval::Row& row) {
        thin[static_cast<std::size_t>(y - thinTop)] = row;
    });
    const std::int64_t first = std::max<std::int64_t>(thinTop - m_penWidth, 0);
    for (std::int64_t y = first; y < std::min(thinEnd + m_penWidth, end); ++y) {
        Oval::Row swept{m_oval.right() + m_penWidth, m_oval.left() - m_penWidth, m_oval.left() - m_penWidth,
                        m_oval.right() + m_penWidth};
        for (const RoundPen::Row& pen : m_pen.rows()) {
            const std::int64_t from = y - pen.down;
            if (from < thinTop || from >= thinEnd)
                continue;
            const Oval::Row& row = thin[static_cast<std::size_t>(from - thinTop)];
            swept.left = std::min(swept.left, row.left + pen.left);
            swept.right = std::max(swept.right, row.right + pen.right);
            swept.gapLeft = std::max(swept.gapLeft, row.gapLeft + pen.right);
            swept.gapRight = std::min(swept.gapRight, row.gapRight + pen.left);
        }
        if (swept.left <= swept.right)
            visit(y, swept);
    }
}

} // namespace quillora::drawing
