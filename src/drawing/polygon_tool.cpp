#include "drawing/polygon_tool.h"

#include "drawing/constrain_point.h"

namespace quillora::drawing {
namespace {

void drawSegments(DrawingCanvas& canvas, std::size_t first)
{
    const auto& points = canvas.fields.polygonPoints;
    for (std::size_t i = first; i < points.size(); ++i)
        canvas.surface().Line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
}

void drawClosed(DrawingCanvas& canvas)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    setPenAndBrush(canvas, canvas.lblForeColor, canvas.lblFillColor);
    surface.Polygon(canvas.fields.polygonPoints);
    surface.Refresh();
}

} // namespace

void DrawPolygon(DrawingCanvas& canvas, PolygonPart part)
{
    const auto count = canvas.fields.polygonPoints.size();
    if (part == PolygonPart::closedShape)
        drawClosed(canvas);
    else if (count >= 2)
        drawSegments(canvas, part == PolygonPart::lastSegment ? count - 1 : 1);
}

void pressPolygon(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& fields = canvas.fields;
    if (!fields.polygonOpen) {
        fields.polygonOpen = true;
        fields.polygonPoints = {roundedPlace(event)};
    } else {
        fields.polygonPoints.push_back(roundedPlace(event));
        DrawPolygon(canvas, PolygonPart::lastSegment);
    }
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::xorPen;
    surface.FillStyle = FillPattern::transparent;
    surface.ForeColor = canvas.bandColour(canvas.lblForeColor);
}

void movePolygon(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& points = canvas.fields.polygonPoints;
    if (points.empty())
        return;
    if (points.size() > 1)
        DrawPolygon(canvas, PolygonPart::lastSegment);
    else
        points.push_back(points.back());
    points.back() = roundedPlace(event);
    DrawPolygon(canvas, PolygonPart::lastSegment);
}

void finishPolygon(DrawingCanvas& canvas)
{
    if (!canvas.fields.polygonOpen)
        return;
    DrawPolygon(canvas, PolygonPart::lastSegment);
    DrawPolygon(canvas, PolygonPart::closedShape);
    canvas.fields.polygonOpen = false;
    TakeSnapshot(canvas);
}

} // namespace quillora::drawing
