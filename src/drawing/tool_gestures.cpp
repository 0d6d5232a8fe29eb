#include "drawing/tool_gestures.h"

#include "base/rounding.h"
#include "base/skip_failures.h"
#include "drawing/brush_tools.h"
#include "drawing/constrain_point.h"
#include "drawing/curve_tool.h"
#include "drawing/polygon_tool.h"
#include "drawing/rubber_band.h"
#include "drawing/selection.h"
#include "drawing/text_tool.h"
#include "drawing/tool_cursor.h"

#include <array>
#include <limits>

namespace quillora::drawing {
namespace {

using base::skipFailures;

void nothing(GestureContext& /*context*/, const PointerEvent& /*event*/) {}
void nothingPending(DrawingCanvas& /*canvas*/) {}

/// A tool whose gesture needs the canvas alone.
template <auto gesture>
void onCanvas(GestureContext& context, const PointerEvent& event)
{
    gesture(context.canvas, event);
}

template <const BandShape& shape>
void pressBand(GestureContext& context, const PointerEvent& event)
{
    if (shape.start == BandStart::line)
        drawStartLine(context.canvas, event);
    setUpBand(context.canvas, shape.brush);
}

template <const BandShape& shape>
void dragBand(GestureContext& context, const PointerEvent& event)
{
    moveBand(context.canvas, shape, event);
}

template <const BandShape& shape>
void drawBand(GestureContext& context, const PointerEvent& event)
{
    releaseBand(context.canvas, shape, event);
}

template <const BandShape& shape>
constexpr ToolGesture kBandGesture{pressBand<shape>, dragBand<shape>, drawBand<shape>, nothingPending};

void pressSelection(DrawingCanvas& canvas, const PointerEvent& event)
{
    drawStartLine(canvas, event);
    canvas.surface().DrawWidth = 1;
    skipFailures([&] { CommitSelection(canvas); });
    setUpBand(canvas, BandBrush::none);
}

void takePenColour(DrawingCanvas& canvas, const PointerEvent& event)
{
    const Colour colour = canvas.surface().Point(event.x, event.y);
    if (colour != kNoColour)
        canvas.lblForeColor = colour;
}

void drawEraserBox(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& surface = canvas.surface();
    const double width = surface.DrawWidth;
    surface.Line(event.x, event.y, event.x + width, event.y - width, LineForm::box);
}

void pressEraser(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = surface.BackColor();
    drawEraserBox(canvas, event);
}

void pressFill(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    surface.FillColor = canvas.lblForeColor;
    surface.FillStyle = canvas.fillStyle();
    const auto place = roundedPlace(event);
    surface.ExtFloodFill(place.x, place.y, surface.Point(event.x, event.y));
}

void pressPencil(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = canvas.lblForeColor;
    surface.Line(event.x, event.y, event.x, event.y, LineForm::box);
}

/// A stroke is a chain of segments, each from the newest point back to the one before.
void movePencil(DrawingCanvas& canvas, const PointerEvent& event)
{
    canvas.setEnd(canvas.start());
    canvas.setStart(roundedPlace(event));
    const auto& fields = canvas.fields;
    canvas.surface().Line(fields.startX, fields.startY, fields.endX, fields.endY);
}

void pressTextBox(GestureContext& context, const PointerEvent& event)
{
    pressText(context.canvas, context.ports, event);
}

void spray(GestureContext& context, const PointerEvent& event)
{
    constexpr int kSprayPerWidth = 4;
    auto& surface = context.canvas.surface();
    SprayDots(surface, context.ports.random, event.x, event.y, surface.DrawWidth * kSprayPerWidth);
}

void pressSpray(GestureContext& context, const PointerEvent& event)
{
    auto& surface = context.canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = context.canvas.lblForeColor;
    spray(context, event);
}

void brushFilter(GestureContext& context, const PointerEvent& event)
{
    const auto place = roundedPlace(event);
    ApplyFilterAt(context, context.canvas.fields.filterId, place.x, place.y);
}

void pressZoom(DrawingCanvas& canvas, const PointerEvent& /*event*/)
{
    setUpBand(canvas, BandBrush::byFillMode);
}

void releaseZoom(DrawingCanvas& canvas, const PointerEvent& event)
{
    if (event.shift != kControlAlone)
        canvas.fields.pointerDown = false;
}

void stampBrush(DrawingCanvas& canvas, const PointerEvent& event)
{
    auto& surface = canvas.surface();
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = canvas.lblForeColor;
    surface.FillColor = canvas.lblForeColor;
    StampBrush(surface, canvas.fillStyle(), canvas.fields.brushShape, event.x, event.y);
}

void pressHand(GestureContext& context, const PointerEvent& event)
{
    auto& canvas = context.canvas;
    canvas.surface().ScaleMode = ScaleUnit::twips;
    skipFailures([&] { showCursor(canvas, context.ports.assets, kHandGrabCursor); });
    const int left = canvas.picPaint.Left.value;
    const int top = canvas.picPaint.Top.value;
    canvas.setStart({base::roundToInt(double{base::kTwipsPerPixel} * event.x + left),
                     base::roundToInt(double{base::kTwipsPerPixel} * event.y + top)});
    canvas.fields.handleGrabX = left;
    canvas.fields.handleGrabY = top;
    canvas.fields.handleDragging = true;
}

/// The Hand moves nothing: the canvas fills its place on the stage.
void moveHand(DrawingCanvas& canvas, const PointerEvent& /*event*/)
{
    if (canvas.fields.handleDragging)
        canvas.surface().Refresh();
}

void releaseHand(GestureContext& context, const PointerEvent& /*event*/)
{
    auto& canvas = context.canvas;
    canvas.fields.handleDragging = false;
    canvas.surface().ScaleMode = ScaleUnit::pixels;
    showCursor(canvas, context.ports.assets, kHandFlatCursor);
}

/// In the order of the tools' ids.
constexpr std::array<ToolGesture, kToolCount> kToolGestures{{
    {onCanvas<pressSelection>, onCanvas<moveSelectionBand>, onCanvas<releaseSelectionBand>, CommitSelection},
    {onCanvas<takePenColour>, nothing, nothing, nothingPending},
    {onCanvas<pressEraser>, onCanvas<drawEraserBox>, nothing, nothingPending},
    {onCanvas<pressFill>, nothing, nothing, nothingPending},
    {onCanvas<pressPencil>, onCanvas<movePencil>, nothing, nothingPending},
    kBandGesture<kLineBand>,
    kBandGesture<kRectangleBand>,
    kBandGesture<kEllipseBand>,
    {pressTextBox, nothing, nothing, nothingPending},
    kBandGesture<kArrowBand>,
    {pressSpray, spray, nothing, nothingPending},
    kBandGesture<kRoundedRectangleBand>,
    {onCanvas<pressPolygon>, onCanvas<movePolygon>, nothing, finishPolygon},
    {onCanvas<pressCurve>, onCanvas<moveCurve>, nothing, finishCurve},
    {brushFilter, brushFilter, nothing, nothingPending},
    {onCanvas<pressZoom>, nothing, onCanvas<releaseZoom>, nothingPending},
    {onCanvas<stampBrush>, onCanvas<stampBrush>, nothing, nothingPending},
    {pressHand, onCanvas<moveHand>, releaseHand, nothingPending},
}};

constexpr ToolGesture kNoGesture{nothing, nothing, nothing, nothingPending};

} // namespace

const ToolGesture& toolGesture(int id) { return id >= 0 && id < kToolCount ? kToolGestures[id] : kNoGesture; }

void finishPending(DrawingCanvas& canvas) { toolGesture(canvas.fields.currentTool).finish(canvas); }

void RedrawPending(DrawingCanvas& canvas)
{
    if (canvas.fields.currentTool == toolId(Tool::polygon) && canvas.fields.polygonOpen)
        DrawPolygon(canvas, PolygonPart::allSegments);
    else if (canvas.fields.currentTool == toolId(Tool::curve))
        DrawCurve(canvas, CurvePass::band);
}

void ApplyFilterAt(GestureContext& context, int filter, int x, int y)
{
    auto& canvas = context.canvas;
    const bool selected = canvas.picSelect.Visible;
    if (!selected)
        finishPending(canvas);
    if (filter == static_cast<int>(Filter::replaceColour))
        context.filters.replacement = {canvas.lblForeColor, canvas.lblFillColor};
    if ((x == -1 && y == -1) || canvas.fields.currentTool != toolId(Tool::filterBrush)) {
        context.filters.ApplyFilter(filter, selected ? canvas.picSelect.surface : canvas.surface(),
                                    kWholeSurface);
        ToggleMarquee(canvas);
        if (!canvas.picSelect.Visible)
            TakeSnapshot(canvas);
        ToggleMarquee(canvas);
        return;
    }
    const int reach = canvas.fields.dotIndex;
    constexpr int farthest = std::numeric_limits<int>::max() - WidthGrid::kCells;
    if (x > farthest || y > farthest || x + reach < 0 || y + reach < 0)
        return;
    context.filters.ApplyFilter(filter, canvas.surface(), {x - reach, y - reach, x + reach, y + reach});
}

} // namespace quillora::drawing
