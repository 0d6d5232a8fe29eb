#include "drawing/selection.h"

#include "base/rounding.h"
#include "drawing/constrain_point.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace quillora::drawing {
namespace {

/// The pixels of the largest desktop that a drag can cross. The pointer is captured by the canvas, so its
/// place is not bounded by the window.
constexpr std::int64_t kLargestSelection = 7680 * 4320;

std::int64_t distance(int one, int other) { return std::abs(std::int64_t{one} - other); }

/// In the range of int, whatever the terms.
int sum(int one, double other) { return base::roundToInt(one + other); }

void drawMarquee(DrawingCanvas& canvas)
{
    const auto& selection = canvas.picSelect;
    canvas.surface().Line(
        selection.Left - 1.0, selection.Top - 1.0, static_cast<double>(selection.Left) + selection.Width,
        static_cast<double>(selection.Top) + selection.Height, LineForm::box, canvas.surface().BackColor());
}

void giveUpSelection(DrawingCanvas& canvas)
{
    canvas.picSelect.Visible = false;
    drawSelectionBand(canvas);
    canvas.fields.selectionFresh = false;
}

/// The band stays on the canvas: it is the marquee.
void lift(DrawingCanvas& canvas)
{
    auto& fields = canvas.fields;
    auto& selection = canvas.picSelect;
    const auto width = distance(fields.endX, fields.startX) - 1;
    const auto height = distance(fields.endY, fields.startY) - 1;
    if (width > RasterImage::kLongestSide || height > RasterImage::kLongestSide ||
        width * height > kLargestSelection)
        throw std::length_error("a selection larger than any screen");
    selection.Width = static_cast<int>(width);
    selection.Height = static_cast<int>(height);
    selection.Left = sum(std::min(fields.startX, fields.endX), 1);
    selection.Top = sum(std::min(fields.startY, fields.endY), 1);
    selection.Visible = true;
    selection.surface.resize(selection.Width, selection.Height);
    selection.surface.setPicture({});
    selection.surface.PaintPicture(
        canvas.surface().Image(), 0, 0,
        base::PixelRectangle{selection.Left, selection.Top, selection.Width, selection.Height});
    fields.selectionFresh = true;
}

void clearUnderSelection(DrawingCanvas& canvas)
{
    auto& surface = canvas.surface();
    const auto& selection = canvas.picSelect;
    surface.DrawStyle = canvas.penStyle();
    surface.DrawMode = RasterOperation::copyPen;
    surface.Line(selection.Left, selection.Top, static_cast<double>(selection.Left) + selection.Width - 1,
                 static_cast<double>(selection.Top) + selection.Height - 1, LineForm::filledBox,
                 surface.BackColor());
}

} // namespace

void drawSelectionBand(DrawingCanvas& canvas)
{
    const auto& fields = canvas.fields;
    if (canvas.start() == canvas.end())
        return;
    canvas.surface().Line(fields.startX, fields.startY, fields.endX, fields.endY, LineForm::box,
                          canvas.surface().BackColor());
}

void moveSelectionBand(DrawingCanvas& canvas, const PointerEvent& event)
{
    drawSelectionBand(canvas);
    canvas.setEnd(constrainedEnd(canvas.start(), event, DraggedShape::boxLike));
    drawSelectionBand(canvas);
}

void releaseSelectionBand(DrawingCanvas& canvas, const PointerEvent& event)
{
    const auto& fields = canvas.fields;
    if (distance(fields.endX, fields.startX) <= 1 || distance(fields.endY, fields.startY) <= 1) {
        giveUpSelection(canvas);
    } else {
        canvas.setEnd(constrainedEnd(canvas.start(), event, DraggedShape::boxLike));
        lift(canvas);
    }
    canvas.surface().DrawWidth = fields.dotIndex + 1;
}

void picSelect_MouseDown(DrawingCanvas& canvas, const PointerEvent& event)
{
    if (event.button != kLeftButton)
        return;
    auto& surface = canvas.surface();
    canvas.fields.selectionDragging = true;
    surface.DrawWidth = 1;
    if (event.shift != kControlAlone && canvas.fields.selectionFresh) {
        clearUnderSelection(canvas);
        canvas.fields.selectionFresh = false;
    }
    surface.DrawStyle = PenStyle::dotted;
    surface.DrawMode = RasterOperation::xorPen;
    drawMarquee(canvas);
    canvas.setStart(roundedPlace(event));
}

void picSelect_MouseMove(DrawingCanvas& canvas, const PointerEvent& event)
{
    if (event.button != kLeftButton || !canvas.fields.selectionDragging)
        return;
    canvas.setEnd(roundedPlace(event));
    auto& selection = canvas.picSelect;
    selection.Left = sum(selection.Left, static_cast<double>(canvas.fields.endX) - canvas.fields.startX);
    selection.Top = sum(selection.Top, static_cast<double>(canvas.fields.endY) - canvas.fields.startY);
}

void picSelect_MouseUp(DrawingCanvas& canvas, const PointerEvent& event)
{
    if (event.button != kLeftButton)
        return;
    drawMarquee(canvas);
    canvas.fields.selectionFresh = false;
    canvas.fields.selectionDragging = false;
}

void CommitSelection(DrawingCanvas& canvas)
{
    auto& selection = canvas.picSelect;
    if (!selection.Visible)
        return;
    auto& surface = canvas.surface();
    selection.Visible = false;
    surface.PaintPicture(selection.surface.Image(), selection.Left, selection.Top);
    surface.DrawMode = RasterOperation::xorPen;
    surface.DrawWidth = 1;
    drawMarquee(canvas);
    if (!canvas.fields.selectionFresh)
        TakeSnapshot(canvas);
}

void ToggleMarquee(DrawingCanvas& canvas)
{
    if (!canvas.picSelect.Visible)
        return;
    auto& surface = canvas.surface();
    const auto mode = surface.DrawMode;
    const int width = surface.DrawWidth;
    surface.DrawStyle = PenStyle::dotted;
    surface.DrawMode = RasterOperation::xorPen;
    surface.DrawWidth = 1;
    canvas.fields.selectionFresh = false;
    drawMarquee(canvas);
    surface.DrawStyle = PenStyle::solid;
    surface.DrawMode = mode;
    surface.DrawWidth = width;
}

} // namespace quillora::drawing
