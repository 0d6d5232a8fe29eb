#include "drawing/surface.h"

#include "base/rounding.h"
#include "base/twips.h"
#include "drawing/flood_fill.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace quillora::drawing {

namespace {

/// Row by row, so that it may be told where to begin on either side; both rectangles must be inside.
void copyRows(const RasterImage& from, const base::PixelRectangle& part, RasterImage& to, int x, int y)
{
    for (int row = 0; row < part.height; ++row) {
        const auto source =
            from.row(part.top + row)
                .subspan(static_cast<std::size_t>(part.left), static_cast<std::size_t>(part.width));
        std::transform(source.begin(), source.end(), to.row(y + row).begin() + x,
                       [](Colour colour) { return colour & kColourBits; });
    }
}

int mixed(int paper, int ink, int coverage)
{
    constexpr int kWhole = 255;
    return (paper * (kWhole - coverage) + ink * coverage + kWhole / 2) / kWhole;
}

Colour mixed(Colour paper, Colour ink, int coverage)
{
    return rgb(mixed(redOf(paper), redOf(ink), coverage), mixed(greenOf(paper), greenOf(ink), coverage),
               mixed(blueOf(paper), blueOf(ink), coverage));
}

} // namespace

Surface::Surface(int width, int height, Colour backColour, SurfaceScreen* screen, TextRasteriser* text)
    : m_backColour(backColour & kColourBits),
      m_screen(screen),
      m_text(text),
      m_image(width, height, backColour)
{}

double Surface::ScaleWidth() const { return width() / pixelsPerUnit(); }

double Surface::ScaleHeight() const { return height() / pixelsPerUnit(); }

void Surface::Line(double x1, double y1, double x2, double y2, LineForm form, std::optional<Colour> colour)
{
    const base::PixelPoint from = toPixel(x1, y1);
    const base::PixelPoint to = toPixel(x2, y2);
    const Pen with = pen(colour);
    if (form == LineForm::line) {
        shown(m_painter.drawLine(from, to, with));
        return;
    }
    const std::optional<Ink> inside = form == LineForm::filledBox ? with.ink : brush();
    shown(m_painter.drawOval(Oval::box(from.x, from.y, to.x, to.y), with, inside));
}

void Surface::Circle(double x, double y, double radius, double aspect)
{
    if (!(radius >= 0) || !(aspect >= 0))
        return;
    const double across = aspect > 1 ? radius / aspect : radius;
    const double down = aspect > 1 ? radius : radius * aspect;
    const base::PixelPoint topLeft = toPixel(x - across, y - down);
    const base::PixelPoint bottomRight = toPixel(x + across, y + down);
    shown(m_painter.drawOval(Oval::ellipse(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y), pen(),
                             brush()));
}

void Surface::PSet(double x, double y) { shown(m_painter.drawDot(toPixel(x, y), pen())); }

Colour Surface::Point(double x, double y) const
{
    const base::PixelPoint point = toPixel(x, y);
    return GetPixel(point.x, point.y);
}

void Surface::PaintPicture(const RasterImage& picture, double x, double y,
                           std::optional<base::PixelRectangle> part)
{
    if (&picture == &m_image) {
        PaintPicture(RasterImage(picture), x, y, part);
        return;
    }
    const base::PixelRectangle wanted = part.value_or(picture.bounds());
    const base::PixelPoint place = toPixel(x, y);
    const base::PixelRectangle source = base::intersection(wanted, picture.bounds());
    if (source.empty())
        return;
    // Where the picture's own top left comes to lie; as wide a number as the difference needs.
    const std::int64_t originX = std::int64_t{place.x} - wanted.left;
    const std::int64_t originY = std::int64_t{place.y} - wanted.top;
    const std::int64_t left = std::max<std::int64_t>(originX + source.left, 0);
    const std::int64_t top = std::max<std::int64_t>(originY + source.top, 0);
    const std::int64_t right = std::min<std::int64_t>(originX + source.right(), width());
    const std::int64_t bottom = std::min<std::int64_t>(originY + source.bottom(), height());
    if (right <= left || bottom <= top)
        return;
    const base::PixelRectangle target{static_cast<int>(left), static_cast<int>(top),
                                      static_cast<int>(right - left), static_cast<int>(bottom - top)};
    copyRows(picture,
             {static_cast<int>(left - originX), static_cast<int>(top - originY), target.width, target.height},
             m_image, target.left, target.top);
    shown(target);
}

void Surface::Print(std::string_view text)
{
    if (m_text == nullptr || text.empty())
        return;
    const TextSize size = m_text->measure(Font, text);
    const base::PixelPoint place = toPixel(CurrentX, CurrentY);
    const base::PixelRectangle seen =
        base::intersection({place.x, place.y, size.width, size.height}, m_image.bounds());
    if (seen.empty())
        return;
    std::vector<std::uint8_t> coverage(static_cast<std::size_t>(seen.width) *
                                       static_cast<std::size_t>(seen.height));
    m_text->rasterise(Font, text, base::relativeTo(place, seen), coverage);
    auto covered = coverage.begin();
    for (int y = seen.top; y < seen.bottom(); ++y)
        for (int x = seen.left; x < seen.right(); ++x)
            m_image.at(x, y) = mixed(m_image.at(x, y), ForeColor, *covered++);
    shown(seen);
}

void Surface::Cls()
{
    paintBackground();
    shown(m_image.bounds());
}

void Surface::setPicture(RasterImage picture)
{
    m_picture = std::move(picture);
    Cls();
}

void Surface::resize(int newWidth, int newHeight)
{
    const RasterImage old = std::exchange(m_image, RasterImage(newWidth, newHeight, m_backColour));
    paintBackground();
    copyRows(old, base::intersection(old.bounds(), m_image.bounds()), m_image, 0, 0);
    m_unshown = {};
    shown(m_image.bounds());
}

void Surface::Refresh()
{
    shown(takeUnshown());
    if (m_screen != nullptr)
        m_screen->refresh();
}

base::PixelRectangle Surface::takeUnshown() { return std::exchange(m_unshown, {}); }

void Surface::ExtFloodFill(int x, int y, Colour colour)
{
    if (const std::optional<Ink> with = brush())
        drawnByDevice(floodFill(m_image, x, y, colour, with->colour));
}

void Surface::RoundRect(int left, int top, int right, int bottom, int ellipseWidth, int ellipseHeight)
{
    const base::PixelPoint one = heldWithinReach({std::min(left, right), std::min(top, bottom)});
    const base::PixelPoint other = heldWithinReach({std::max(left, right), std::max(top, bottom)});
    if (one.x == other.x || one.y == other.y)
        return;
    const Oval oval(one.x, one.y, other.x - 1, other.y - 1, std::abs(std::int64_t{ellipseWidth}) - 1,
                    std::abs(std::int64_t{ellipseHeight}) - 1);
    drawnByDevice(m_painter.drawOval(oval, pen(), brush()));
}

void Surface::Polygon(std::span<const base::PixelPoint> points)
{
    std::vector<base::PixelPoint> held(points.size());
    std::transform(points.begin(), points.end(), held.begin(), heldWithinReach);
    drawnByDevice(m_painter.drawPolygon(held, pen(), brush()));
}

void Surface::PolyBezier(const std::array<base::PixelPoint, 4>& points)
{
    std::array<base::PixelPoint, 4> held;
    std::transform(points.begin(), points.end(), held.begin(), heldWithinReach);
    drawnByDevice(m_painter.drawCurve(held, pen()));
}

void Surface::SetPixel(int x, int y, Colour colour)
{
    if (!m_image.contains(x, y))
        return;
    m_image.at(x, y) = colour & kColourBits;
    drawnByDevice({x, y, 1, 1});
}

RasterImage& Surface::devicePixels(const base::PixelRectangle& touched)
{
    drawnByDevice(base::intersection(touched, m_image.bounds()));
    return m_image;
}

Pen Surface::pen(std::optional<Colour> colour) const
{
    Pen pen;
    pen.ink = {colour.value_or(ForeColor), DrawMode};
    pen.style = DrawStyle;
    pen.width = DrawStyle == PenStyle::dotted ? 1 : std::clamp(DrawWidth, 1, kWidestPen);
    return pen;
}

std::optional<Ink> Surface::brush() const
{
    if (FillStyle == FillPattern::transparent)
        return {};
    return Ink{FillColor, DrawMode};
}

base::PixelPoint Surface::toPixel(double x, double y) const
{
    const double scale = pixelsPerUnit();
    return heldWithinReach({base::roundToInt(x * scale), base::roundToInt(y * scale)});
}

double Surface::pixelsPerUnit() const
{
    return ScaleMode == ScaleUnit::twips ? 1.0 / base::kTwipsPerPixel : 1.0;
}

void Surface::paintBackground()
{
    std::fill_n(m_image.data(), static_cast<std::size_t>(width()) * static_cast<std::size_t>(height()),
                m_backColour);
    copyRows(m_picture, base::intersection(m_picture.bounds(), m_image.bounds()), m_image, 0, 0);
}

void Surface::shown(const base::PixelRectangle& changed)
{
    if (m_screen != nullptr && !changed.empty())
        m_screen->show(changed);
}

void Surface::drawnByDevice(const base::PixelRectangle& changed)
{
    m_unshown = base::boundingBox(m_unshown, changed);
}

} // namespace quillora::drawing
