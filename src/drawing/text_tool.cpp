#include "drawing/text_tool.h"

namespace quillora::drawing {
namespace {

constexpr auto kMoving = "moving";

/// The label is measured with a letter more than the box holds, so an empty box is as high as a line.
void followHeight(DrawingCanvas& canvas, const DrawingPorts& ports, char letter)
{
    auto& label = canvas.lblTextSize;
    label.Caption = letter + canvas.txtText.Text;
    canvas.txtText.Height = ports.text.measure(label.Font, label.Caption).height;
}

} // namespace

void pressText(DrawingCanvas& canvas, const DrawingPorts& ports, const PointerEvent& event)
{
    auto& box = canvas.txtText;
    if (box.Visible) {
        box.Tag = kMoving;
        box.Left = event.x;
        box.Top = event.y;
    } else {
        box.BackColor = canvas.surface().BackColor();
        box.ForeColor = canvas.lblForeColor;
        box.Left = event.x;
        box.Top = event.y;
        box.Text.clear();
        box.Visible = true;
    }
    ports.focus.focusText();
}

void txtText_KeyDown(DrawingCanvas& canvas, const DrawingPorts& ports) { followHeight(canvas, ports, 'M'); }

void txtText_KeyUp(DrawingCanvas& canvas, const DrawingPorts& ports, int key)
{
    if (key == kEnterKey)
        txtText_DblClick(canvas);
    else if (key == kEscapeKey)
        canvas.txtText.Visible = false;
    else
        followHeight(canvas, ports, 'O');
    if (!canvas.txtText.Visible)
        ports.focus.focusCanvas();
}

void txtText_DblClick(DrawingCanvas& canvas)
{
    auto& surface = canvas.surface();
    surface.CurrentX = canvas.txtText.Left;
    surface.CurrentY = canvas.txtText.Top;
    surface.ForeColor = canvas.lblForeColor;
    surface.Print(canvas.txtText.Text);
    canvas.txtText.Visible = false;
    TakeSnapshot(canvas);
}

void txtText_LostFocus(DrawingCanvas& canvas, const DrawingPorts& ports)
{
    if (canvas.txtText.Visible && canvas.txtText.Tag != kMoving)
        txtText_KeyUp(canvas, ports, kEnterKey);
    canvas.txtText.Tag.clear();
}

} // namespace quillora::drawing
