#include "drawing/shape_painter.h"

#include "drawing/raster_curve.h"
#include "drawing/run_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

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

bool overlapIsHidden(const Pen& pen) { return pen.ink.operation == RasterOperation::copyPen; }

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
    return pen.width == 1 ? drawThinLine(ThinLine(from, to, LastPixel::leftOut, m_image.bounds()), pen)
                          : drawWideLine({from, to}, pen);
}

base::PixelRectangle ShapePainter::drawDot(const base::PixelPoint& point, const Pen& pen)
{
    const std::array dot{Edge{point, point}};
    return drawEdges(dot, pen);
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

base::PixelRectangle ShapePainter::drawWideLine(const Edge& edge, const Pen& pen)
{
    RunPainter painter(m_image, pen.ink);
    WideLine(edge.from, edge.to, pen.width)
        .forEachRun(m_image.height(),
                    [&](int y, std::int64_t left, std::int64_t right) { painter.paint(y, left, right); });
    return painter.touched();
}

base::PixelRectangle ShapePainter::drawOval(const Oval& oval, const Pen& pen, std::optional<Ink> brush)
{
    RunPainter outline(m_image, pen.ink);
    RunPainter inside(m_image, brush.value_or(Ink{}));
    const auto paintOutline = [&](std::int64_t y, std::int64_t left, std::int64_t right) {
        outline.paint(y, left, right);
    };
    const auto paintRow = [&](std::int64_t y, const Oval::Row& row) {
        forEachOutlineRun(y, row, [&](std::int64_t runY, std::int64_t left, std::int64_t right) {
            if (pen.style == PenStyle::dotted)
                forEachDot(m_image, runY, left, right, paintOutline);
            else
                paintOutline(runY, left, right);
        });
        if (brush && row.hasGap())
            inside.paint(y, row.gapLeft, row.gapRight);
    };
    if (pen.width == 1)
        oval.forEachRow(0, m_image.height(), paintRow);
    else
        WideOval(oval, pen.width).forEachRow(m_image.height(), paintRow);
    return base::boundingBox(outline.touched(), inside.touched());
}

base::PixelRectangle ShapePainter::drawPolygon(std::span<const base::PixelPoint> points, const Pen& pen,
                                               std::optional<Ink> brush)
{
    if (points.size() < 2)
        return {};
    std::vector<Edge> edges;
    for (std::size_t index = 0; index < points.size(); ++index)
        edges.push_back({points[index], points[(index + 1) % points.size()]});
    base::PixelRectangle touched;
    if (brush) {
        RasterMask& inside = emptied(m_inside);
        addInsideEdges(edges, inside);
        // The gaps of a dotted outline let through what was there, not the brush.
        if (pen.style == PenStyle::dotted || !overlapIsHidden(pen)) {
            RasterMask& outline = emptied(m_outline);
            addEdges(edges, {pen.ink, pen.width, PenStyle::solid}, outline);
            inside.settleEdges();
            inside.subtract(outline);
            touched = paint(inside, *brush);
        } else {
            RunPainter painter(m_image, *brush);
            inside.forEachRunBetweenEdges([&](int y, int left, int end) { painter.paint(y, left, end - 1); });
            touched = painter.touched();
        }
    }
    return base::boundingBox(touched, drawEdges(edges, pen));
}

base::PixelRectangle ShapePainter::drawCurve(const std::array<base::PixelPoint, 4>& points, const Pen& pen)
{
    const base::PixelRectangle reach{-pen.width, -pen.width, m_image.width() + 2 * pen.width,
                                     m_image.height() + 2 * pen.width};
    return drawEdges(flattenCurve(points, reach), pen);
}

base::PixelRectangle ShapePainter::drawEdges(std::span<const Edge> edges, const Pen& pen)
{
    if (edges.size() > 1 && !overlapIsHidden(pen)) {
        RasterMask& outline = emptied(m_outline);
        addEdges(edges, pen, outline);
        return paint(outline, pen.ink);
    }
    base::PixelRectangle touched;
    for (const Edge& edge : edges) {
        const base::PixelRectangle drawn =
            pen.width > 1
                ? drawWideLine(edge, pen)
                : drawThinLine(ThinLine(edge.from, edge.to, LastPixel::drawn, m_image.bounds()), pen);
        touched = base::boundingBox(touched, drawn);
    }
    return touched;
}

void ShapePainter::addEdges(std::span<const Edge> edges, const Pen& pen, RasterMask& mask) const
{
    for (const Edge& edge : edges) {
        if (pen.width > 1) {
            WideLine(edge.from, edge.to, pen.width)
                .forEachRun(m_image.height(), [&](int y, std::int64_t left, std::int64_t right) {
                    mask.addSpan(y, left, right);
                });
            continue;
        }
        const ThinLine line(edge.from, edge.to, LastPixel::drawn, m_image.bounds());
        for (int index = 0; index < line.count(); ++index) {
            const base::PixelPoint pixel = line.pixel(index);
            if (pen.style == PenStyle::solid || isDot(line.firstStep() + index))
                mask.addSpan(pixel.y, pixel.x, pixel.x);
        }
    }
}

void ShapePainter::addInsideEdges(std::span<const Edge> edges, RasterMask& mask) const
{
    for (const Edge& edge : edges) {
        const base::PixelPoint& upper = edge.from.y < edge.to.y ? edge.from : edge.to;
        const base::PixelPoint& lower = edge.from.y < edge.to.y ? edge.to : edge.from;
        // A row through a corner crosses just one of its two edges, or both, or neither, as just below the
        // corner.
        const int first = std::max(upper.y, 0);
        const int end = std::min(lower.y, m_image.height());
        const double slope = (lower.x - upper.x) / std::max(1.0, static_cast<double>(lower.y) - upper.y);
        for (int y = first; y < end; ++y) {
            const double across = slope * (static_cast<double>(y) - upper.y);
            mask.toggleFrom(y, upper.x + static_cast<std::int64_t>(std::ceil(across)));
        }
    }
}

RasterMask& ShapePainter::emptied(RasterMask& mask) const
{
    if (mask.width() != m_image.width() || mask.height() != m_image.height())
        mask = RasterMask(m_image.width(), m_image.height());
    mask.clear();
    return mask;
}

base::PixelRectangle ShapePainter::paint(const RasterMask& mask, const Ink& ink)
{
    RunPainter painter(m_image, ink);
    mask.forEachRun([&](int y, int left, int end) { painter.paint(y, left, end - 1); });
    return painter.touched();
}

} // namespace quillora::drawing
