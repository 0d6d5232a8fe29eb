#include "drawing/curve_tool.h"

#include "base/rounding.h"
#include "drawing/constrain_point.h"

namespace quillora::drawing {
namespace {

constexpr float kTwipsPerPixel = base::kTwipsPerPixel;
/// How far from the pointer the handles come up, in pixels.
constexpr float kHandleDistance = 50;

/// Left and right by turns, the upper two first.
void placeHandles(DrawingCanvas& canvas, float x, float y)
{
    for (int i = 0; i < 4; ++i) {
        auto& handle = canvas.imgBezier[i];
        handle.Left = (x + (i % 2 == 0 ? -kHandleDistance : kHandleDistance)) * kTwipsPerPixel;
        handle.Top = (y + (i < 2 ? -kHandleDistance : kHandleDistance)) * kTwipsPerPixel;
        handle.Visible = true;
    }
}

base::PixelPoint controlPoint(const CurveHandle& handle)
{
    constexpr float half = CurveHandle::kSide / 2.0F;
    return {base::roundToInt((handle.Left + half) / kTwipsPerPixel),
            base::roundToInt((handle.Top + half) / kTwipsPerPixel)};
}

bool isHandle(const DrawingCanvas& canvas, int index)
{
    return index >= 0 && index < static_cast<int>(canvas.imgBezier.size());
}

} // namespace

void DrawCurve(DrawingCanvas& canvas, CurvePass pass)
{
    auto& surface = canvas.surface();
    if (pass == CurvePass::result)
        surface.DrawMode = RasterOperation::copyPen;
    const auto& handles = canvas.imgBezier;
    surface.PolyBezier({controlPoint(handles[0]), controlPoint(handles[1]), controlPoint(handles[2]),
                        controlPoint(handles[3])});
    surface.Refresh();
}

void pressCurve(DrawingCanvas& canvas, const PointerEvent& event)
{
    if (!canvas.imgBezier[0].Visible) {
        auto& surface = canvas.surface();
        surface.DrawMode = RasterOperation::xorPen;
        surface.ForeColor = canvas.bandColour(canvas.lblForeColor);
        placeHandles(canvas, event.x, event.y);
        DrawCurve(canvas, CurvePass::band);
    }
    canvas.setStart(roundedPlace(event));
}

void moveCurve(DrawingCanvas& canvas, const PointerEvent& event)
{
    DrawCurve(canvas, CurvePass::band);
    for (auto& handle : canvas.imgBezier) {
        handle.Left += (event.x - static_cast<float>(canvas.fields.startX)) * kTwipsPerPixel;
        handle.Top += (event.y - static_cast<float>(canvas.fields.startY)) * kTwipsPerPixel;
    }
    DrawCurve(canvas, CurvePass::band);
    canvas.setStart(roundedPlace(event));
}

void finishCurve(DrawingCanvas& canvas)
{
    if (!canvas.imgBezier[0].Visible)
        return;
    auto& surface = canvas.surface();
    DrawCurve(canvas, CurvePass::band);
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = canvas.lblForeColor;
    DrawCurve(canvas, CurvePass::result);
    for (auto& handle : canvas.imgBezier)
        handle.Visible = false;
    TakeSnapshot(canvas);
}

void imgBezier_MouseDown(DrawingCanvas& canvas, int index, const PointerEvent& event)
{
    if (!isHandle(canvas, index))
        return;
    const auto place = roundedPlace(event);
    canvas.fields.handleGrabX = place.x;
    canvas.fields.handleGrabY = place.y;
    canvas.fields.handleDragging = true;
}

void imgBezier_MouseMove(DrawingCanvas& canvas, int index, const PointerEvent& event)
{
    if (!isHandle(canvas, index) || !canvas.fields.handleDragging)
        return;
    DrawCurve(canvas, CurvePass::band);
    canvas.surface().ScaleMode = ScaleUnit::twips;
    auto& handle = canvas.imgBezier[index];
    handle.Top += event.y - static_cast<float>(canvas.fields.handleGrabY);
    handle.Left += event.x - static_cast<float>(canvas.fields.handleGrabX);
    DrawCurve(canvas, CurvePass::band);
}

void imgBezier_MouseUp(DrawingCanvas& canvas, int index, const PointerEvent& /*event*/)
{
    if (!isHandle(canvas, index))
        return;
    canvas.fields.handleDragging = false;
    canvas.surface().ScaleMode = ScaleUnit::pixels;
}

} // namespace quillora::drawing
