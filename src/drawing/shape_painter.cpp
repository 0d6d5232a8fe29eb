#include "drawing/shape_painter.h"

#include "drawing/raster_curve.h"
#include "drawing/round_pen.h"
#include "drawing/run_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quillora::drawing {

namespace {

/// Dots and gaps of three pixels each: long enough to be seen in a video.
constexpr std::int64_t kDotLength = 3;

bool isDot(std::int64_t step) { return step % (2 * kDotLength) < kDotLength; }

/// Calls @p visit for what a dotted pen leaves of a run of an outline within @p image. Dots alternate along a
/// row where the outline is level and from row to row where it rises, by their place in the picture: so they
/// meet where two runs meet, and are the same whatever part of the outline is visible.
template <typename Visit>
void forEachDot(const RasterImage& image, std::int64_t y, std::int64_t left, std::int64_t right, Visit visit)
{
    const std::int64_t first = std::max<std::int64_t>(left, 0);
    const std::int64_t last = std::min<std::int64_t>(right, image.width() - 1);
    for (std::int64_t x = first; x <= last; ++x)
        if (isDot(left == right ? y : x))
            visit(y, x, x);
}

template <typename Visit>
void forEachOutlineRun(std::int64_t y, const Oval::Row& row, Visit visit)
{
    if (!row.hasGap()) {
        visit(y, row.left, row.right);
        return;
    }
    visit(y, row.left, row.gapLeft - 1);
    visit(y, row.gapRight + 1, row.right);
}

/// Calls @p put for each pixel of the line: @p step is the distance in memory along the coordinate that grows
/// each time, @p otherStep along the other.
template <typename Put>
void walk(const ThinLine& line, RasterImage& image, std::ptrdiff_t step, std::ptrdiff_t otherStep, Put put)
{
    const base::PixelPoint start = line.pixel(0);
    Colour* const pixels = image.data();
    std::ptrdiff_t index = std::ptrdiff_t{start.y} * image.width() + start.x;
    std::int64_t position = line.positionStart() & 0xFFFFFFFF;
    for (int count = line.count(); count > 0; --count) {
        put(pixels[index + (position >> 32) * otherStep]);
        index += step;
        position += line.slope();
    }
}

} // namespace

base::PixelRectangle ShapePainter::drawLine(const base::PixelPoint& from, const base::PixelPoint& to,
                                            const Pen& pen)
{
    if (pen.width == 1)
        return drawThinLine(ThinLine(from, to, LastPixel::leftOut, m_image.bounds()), pen);
    RunPainter painter(m_image, pen.ink);
    WideLine(from, to, pen.width)
        .forEachRun(m_image.height(),
                    [&](int y, std::int64_t left, std::int64_t right) { painter.paint(y, left, right); });
    return painter.touched();
}

base::PixelRectangle ShapePainter::drawDot(const base::PixelPoint& point, const Pen& pen)
{
    if (pen.width > 1)
        return drawLine(point, point, pen);
    RunPainter painter(m_image, pen.ink);
    painter.paint(point.y, point.x, point.x);
    return painter.touched();
}

base::PixelRectangle ShapePainter::drawThinLine(const ThinLine& line, const Pen& pen)
{
    if (line.empty())
        return {};
    if (pen.style == PenStyle::dotted) {
        RunPainter painter(m_image, pen.ink);
        for (int index = 0; index < line.count(); ++index) {
            const base::PixelPoint pixel = line.pixel(index);
            if (isDot(line.firstStep() + index))
                painter.paint(pixel.y, pixel.x, pixel.x);
        }
        return painter.touched();
    }
    if (line.slope() == 0 && !line.isSteep()) {
        const base::PixelRectangle box = line.box();
        RunPainter painter(m_image, pen.ink);
        painter.paint(box.top, box.left, box.right() - 1);
        return painter.touched();
    }
    const std::ptrdiff_t down = m_image.width();
    const std::ptrdiff_t step = line.majorDirection() * (line.isSteep() ? down : 1);
    const std::ptrdiff_t otherStep = line.minorDirection() * (line.isSteep() ? 1 : down);
    const Colour colour = pen.ink.colour & kColourBits;
    if (pen.ink.operation == RasterOperation::copyPen)
        walk(line, m_image, step, otherStep, [colour](Colour& pixel) { pixel = colour; });
    else
        walk(line, m_image, step, otherStep, [colour](Colour& pixel) { pixel ^= colour; });
    return line.box();
}

base::PixelRectangle ShapePainter::drawOval(const Oval& oval, const Pen& pen, std::optional<Ink> brush)
{
    return pen.width == 1 ? drawThinOval(oval, pen, brush) : drawWideOval(oval, pen, brush);
}

base::PixelRectangle ShapePainter::drawThinOval(const Oval& oval, const Pen& pen, std::optional<Ink> brush)
{
    RunPainter outline(m_image, pen.ink);
    RunPainter inside(m_image, brush.value_or(Ink{}));
    const auto paintOutline = [&](std::int64_t y, std::int64_t left, std::int64_t right) {
        outline.paint(y, left, right);
    };
    oval.forEachRow(0, m_image.height(), [&](std::int64_t y, const Oval::Row& row) {
        forEachOutlineRun(y, row, [&](std::int64_t runY, std::int64_t left, std::int64_t right) {
            if (pen.style == PenStyle::dotted)
                forEachDot(m_image, runY, left, right, paintOutline);
            else
                paintOutline(runY, left, right);
        });
        if (brush && row.hasGap())
            inside.paint(y, row.gapLeft, row.gapRight);
    });
    return base::boundingBox(outline.touched(), inside.touched());
}

base::PixelRectangle ShapePainter::drawWideOval(const Oval& oval, const Pen& pen, std::optional<Ink> brush)
{
    emptyMasks();
    const RoundPen roundPen(pen.width);
    oval.forEachRow(-pen.width, m_image.height() + pen.width, [&](std::int64_t y, const Oval::Row& row) {
        forEachOutlineRun(y, row, [&](std::int64_t runY, std::int64_t left, std::int64_t right) {
            roundPen.sweep(runY, left, right,
                           [&](std::int64_t penY, std::int64_t penLeft, std::int64_t penRight) {
                               m_outline.addSpan(penY, penLeft, penRight);
                           });
        });
        if (brush && row.hasGap())
            m_inside.addSpan(y, row.gapLeft, row.gapRight);
    });
    m_inside.subtract(m_outline);
    const base::PixelRectangle outline = paint(m_outline, pen.ink);
    return base::boundingBox(outline, paint(m_inside, brush.value_or(Ink{})));
}

base::PixelRectangle ShapePainter::drawPolygon(std::span<const base::PixelPoint> points, const Pen& pen,
                                               std::optional<Ink> brush)
{
    if (points.size() < 2)
        return {};
    emptyMasks();
    const auto addOutline = [&](const Pen& with) {
        for (std::size_t index = 0; index < points.size(); ++index)
            addEdge(points[index], points[(index + 1) % points.size()], with);
    };
    if (brush) {
        // The gaps of a dotted outline let through what was there, not the brush.
        addOutline({pen.ink, pen.width, PenStyle::solid});
        addInside(points);
        m_inside.subtract(m_outline);
        if (pen.style == PenStyle::dotted)
            m_outline.clear();
    }
    if (!brush || pen.style == PenStyle::dotted)
        addOutline(pen);
    const base::PixelRectangle outline = paint(m_outline, pen.ink);
    return base::boundingBox(outline, paint(m_inside, brush.value_or(Ink{})));
}

base::PixelRectangle ShapePainter::drawCurve(const std::array<base::PixelPoint, 4>& points, const Pen& pen)
{
    emptyMasks();
    const base::PixelRectangle reach{-pen.width, -pen.width, m_image.width() + 2 * pen.width,
                                     m_image.height() + 2 * pen.width};
    for (const auto& [from, to] : flattenCurve(points, reach))
        addEdge(from, to, pen);
    return paint(m_outline, pen.ink);
}

void ShapePainter::addEdge(const base::PixelPoint& from, const base::PixelPoint& to, const Pen& pen)
{
    if (pen.width > 1) {
        WideLine(from, to, pen.width)
            .forEachRun(m_image.height(), [&](int y, std::int64_t left, std::int64_t right) {
                m_outline.addSpan(y, left, right);
            });
        return;
    }
    const ThinLine line(from, to, LastPixel::drawn, m_image.bounds());
    for (int index = 0; index < line.count(); ++index) {
        const base::PixelPoint pixel = line.pixel(index);
        if (pen.style == PenStyle::solid || isDot(line.firstStep() + index))
            m_outline.addSpan(pixel.y, pixel.x, pixel.x);
    }
}

void ShapePainter::addInside(std::span<const base::PixelPoint> points)
{
    for (std::size_t index = 0; index < points.size(); ++index) {
        const base::PixelPoint& one = points[index];
        const base::PixelPoint& other = points[(index + 1) % points.size()];
        const base::PixelPoint& upper = one.y < other.y ? one : other;
        const base::PixelPoint& lower = one.y < other.y ? other : one;
        // A row through a corner crosses just one of its two edges, or both, or neither: as it does just
        // below.
        const std::int64_t first = std::max(upper.y, 0);
        const std::int64_t end = std::min(lower.y, m_image.height());
        const double slope = (lower.x - upper.x) / std::max(1.0, static_cast<double>(lower.y) - upper.y);
        for (std::int64_t y = first; y < end; ++y)
            m_inside.toggleFrom(
                y, upper.x + static_cast<std::int64_t>(std::ceil(slope * static_cast<double>(y - upper.y))));
    }
    m_inside.settleEdges();
}

void ShapePainter::emptyMasks()
{
    if (m_outline.width() != m_image.width() || m_outline.height() != m_image.height()) {
        m_outline = RasterMask(m_image.width(), m_image.height());
        m_inside = m_outline;
    }
    m_outline.clear();
    m_inside.clear();
}

base::PixelRectangle ShapePainter::paint(const RasterMask& mask, const Ink& ink)
{
    RunPainter painter(m_image, ink);
    mask.forEachRun([&](int y, int left, int end) { painter.paint(y, left, end - 1); });
    return painter.touched();
}

} // namespace quillora::drawing
