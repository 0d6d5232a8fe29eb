#include "drawing/rubber_band.h"

#include "drawing/shapes.h"

namespace quillora::drawing {
namespace {

/// Corners are quarters of an ellipse of this many pixels across and down, whatever the pen.
constexpr int kCornerEllipse = 10;

void drawLine(DrawingCanvas& canvas)
{
    const auto& fields = canvas.fields;
    canvas.surface().Line(fields.startX, fields.startY, fields.endX, fields.endY);
}

void drawBox(DrawingCanvas& canvas)
{
    const auto& fields = canvas.fields;
    if (canvas.start() != canvas.end())
        canvas.surface().Line(fields.startX, fields.startY, fields.endX, fields.endY, LineForm::box);
}

void drawEllipse(DrawingCanvas& canvas)
{
    if (canvas.fields.endX == canvas.fields.startX)
        return;
    const auto ellipse = ellipseBetween(canvas.start(), canvas.end());
    canvas.surface().Circle(ellipse.centreX, ellipse.centreY, ellipse.radius, ellipse.aspect);
}

void drawArrowBand(DrawingCanvas& canvas) { drawArrow(canvas.surface(), canvas.start(), canvas.end()); }

void drawRoundedRectangle(DrawingCanvas& canvas)
{
    const auto& fields = canvas.fields;
    canvas.surface().RoundRect(fields.startX, fields.startY, fields.endX, fields.endY, kCornerEllipse,
                               kCornerEllipse);
}

void takePenColour(DrawingCanvas& canvas) { canvas.surface().ForeColor = canvas.lblForeColor; }

void turnColoursBack(DrawingCanvas& canvas)
{
    auto& surface = canvas.surface();
    surface.ForeColor ^= surface.BackColor();
    surface.FillColor ^= surface.BackColor();
}

} // namespace

const BandShape kLineBand{DraggedShape::line,  BandStart::line, BandBrush::none,
                          BandScreen::asDrawn, drawLine,        takePenColour};
const BandShape kRectangleBand{DraggedShape::boxLike, BandStart::silent, BandBrush::byFillMode,
                               BandScreen::asDrawn,   drawBox,           turnColoursBack};
const BandShape kEllipseBand{DraggedShape::boxLike, BandStart::silent, BandBrush::byFillMode,
                             BandScreen::asDrawn,   drawEllipse,       turnColoursBack};
const BandShape kArrowBand{DraggedShape::line,  BandStart::line, BandBrush::none,
                           BandScreen::asDrawn, drawArrowBand,   turnColoursBack};
const BandShape kRoundedRectangleBand{DraggedShape::boxLike, BandStart::silent,    BandBrush::byFillMode,
                                      BandScreen::refreshed, drawRoundedRectangle, turnColoursBack};

void drawStartLine(DrawingCanvas& canvas, const PointerEvent& event)
{
    canvas.surface().Line(event.x, event.y, event.x, event.y);
}

void setUpBand(DrawingCanvas& canvas, BandBrush brush)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::xorPen;
    const Colour pen = canvas.bandColour(canvas.lblForeColor);
    if (brush == BandBrush::byFillMode) {
        setPenAndBrush(canvas, pen, canvas.bandColour(canvas.lblFillColor));
    } else {
        surface.ForeColor = pen;
        surface.FillStyle = FillPattern::transparent;
    }
    canvas.setEnd(canvas.start());
}

void moveBand(DrawingCanvas& canvas, const BandShape& shape, const PointerEvent& event)
{
    shape.draw(canvas);
    canvas.setEnd(constrainedEnd(canvas.start(), event, shape.constraint));
    shape.draw(canvas);
    if (shape.screen == BandScreen::refreshed)
        canvas.surface().Refresh();
}

void releaseBand(DrawingCanvas& canvas, const BandShape& shape, const PointerEvent& event)
{
    canvas.surface().DrawMode = RasterOperation::copyPen;
    shape.finalColours(canvas);
    canvas.setEnd(constrainedEnd(canvas.start(), event, shape.constraint));
    shape.draw(canvas);
}

} // namespace quillora::drawing
