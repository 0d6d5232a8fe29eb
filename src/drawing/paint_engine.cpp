#include "drawing/paint_engine.h"

#include "base/skip_failures.h"
#include "drawing/constrain_point.h"
#include "drawing/curve_tool.h"
#include "drawing/selection.h"
#include "drawing/text_tool.h"
#include "drawing/tool_cursor.h"

namespace quillora::drawing {

using base::skipFailures;

PaintEngine::PaintEngine(DrawingCanvas& canvas, const DrawingPorts& ports)
    : m_canvas(canvas), m_ports(ports), m_filters(ports.random), m_context{m_canvas, m_filters, m_ports}
{}

void PaintEngine::DrawPrepare()
{
    m_canvas.picPaint.MousePointer = kCustomCursor;
    showCursor(m_canvas, m_ports.assets, kDrawCursor);
    StartPaointer();
    auto& grid = m_canvas.widthGrid;
    grid.paintAllBlack();
    m_canvas.fields.dotIndex = WidthGrid::kFirstCell;
    grid.paintInsideWhite(WidthGrid::kCellWithWhiteInside);
    grid.paintChosen(m_canvas.fields.dotIndex);
    grid.lblDot = WidthGrid::kFirstMarkerPosition;
}

void PaintEngine::StartPaointer()
{
    m_canvas.fields = DrawingFields{};
    m_canvas.ring.restart();
    m_canvas.picPaint.BorderStyle = 1;
    m_canvas.dialogs.setFlags();
    m_canvas.surface().Font = m_canvas.txtText.Font;
}

void PaintEngine::picPaint_MouseDown(const PointerEvent& event)
{
    auto& fields = m_canvas.fields;
    if (event.button == kRightButton && fields.currentTool == toolId(Tool::pickColor)) {
        const Colour colour = m_canvas.surface().Point(event.x, event.y);
        if (colour != kNoColour)
            m_canvas.lblFillColor = colour;
    }
    if (event.button != kLeftButton)
        return;
    fields.pointerDown = true;
    m_canvas.setStart(roundedPlace(event));
    const bool selects = fields.currentTool == toolId(Tool::selectArea);
    m_canvas.surface().DrawStyle = selects ? PenStyle::dotted : m_canvas.penStyle();
    m_canvas.surface().DrawWidth = selects ? 1 : fields.dotIndex + 1;
    skipFailures([&] { toolGesture(fields.currentTool).press(m_context, event); });
}

void PaintEngine::picPaint_MouseMove(const PointerEvent& event)
{
    if (event.button == kLeftButton && m_canvas.fields.pointerDown)
        toolGesture(m_canvas.fields.currentTool).move(m_context, event);
}

void PaintEngine::picPaint_MouseUp(const PointerEvent& event)
{
    if (event.button != kLeftButton || !m_canvas.fields.pointerDown)
        return;
    m_canvas.setEnd(roundedPlace(event));
    toolGesture(m_canvas.fields.currentTool).release(m_context, event);
}

void PaintEngine::picPaint_DblClick() { finishPending(m_canvas); }

void PaintEngine::picPaint_KeyUp(int key)
{
    if (key == kEnterKey)
        picPaint_DblClick();
}

void PaintEngine::picPaint_Resize() { m_canvas.fields.canvasResized = true; }

void PaintEngine::picSelect_MouseDown(const PointerEvent& event)
{
    drawing::picSelect_MouseDown(m_canvas, event);
}

void PaintEngine::picSelect_MouseMove(const PointerEvent& event)
{
    drawing::picSelect_MouseMove(m_canvas, event);
}

void PaintEngine::picSelect_MouseUp(const PointerEvent& event)
{
    drawing::picSelect_MouseUp(m_canvas, event);
}

void PaintEngine::imgBezier_MouseDown(int index, const PointerEvent& event)
{
    drawing::imgBezier_MouseDown(m_canvas, index, event);
}

void PaintEngine::imgBezier_MouseMove(int index, const PointerEvent& event)
{
    drawing::imgBezier_MouseMove(m_canvas, index, event);
}

void PaintEngine::imgBezier_MouseUp(int index, const PointerEvent& event)
{
    drawing::imgBezier_MouseUp(m_canvas, index, event);
}

void PaintEngine::txtText_KeyDown() { drawing::txtText_KeyDown(m_canvas, m_ports); }

void PaintEngine::txtText_KeyUp(int key) { drawing::txtText_KeyUp(m_canvas, m_ports, key); }

void PaintEngine::txtText_DblClick() { drawing::txtText_DblClick(m_canvas); }

void PaintEngine::txtText_LostFocus() { drawing::txtText_LostFocus(m_canvas, m_ports); }

void PaintEngine::SelectTool(int index, int button)
{
    if (button != kLeftButton)
        return;
    skipFailures([&] { picPaint_DblClick(); }, [&] { m_canvas.fields.currentTool = index; });
    clickTool();
}

void PaintEngine::clickTool()
{
    const int tool = m_canvas.fields.currentTool;
    const auto frames = toolOptionFrames(tool);
    m_canvas.picPaint.Visible = true;
    if (frames != OptionFrames::none)
        m_canvas.fraOptDotVisible = true;
    if (frames == OptionFrames::fraOptDotAndFill)
        m_canvas.fraOptFillVisible = true;
    skipFailures(
        [&] {
            if (tool != toolId(Tool::selectArea))
                CommitSelection(m_canvas);
        },
        [&] { ApplyToolCursor(); }, [&] { m_ports.focus.focusCanvas(); });
}

void PaintEngine::ApplyToolCursor() { drawing::ApplyToolCursor(m_canvas, m_ports.assets); }

void PaintEngine::fraOptDot_MouseDown(const PointerEvent& event)
{
    auto& grid = m_canvas.widthGrid;
    grid.paintAllBlack();
    if (event.button != kLeftButton)
        return;
    if (const auto cell = widthGridCell(event.x, event.y)) {
        m_canvas.fields.dotIndex = static_cast<std::int16_t>(*cell);
        grid.lblDot = widthMarkerPosition(*cell);
        if (*cell == WidthGrid::kCellWithWhiteInside)
            grid.paintInsideWhite(*cell);
    }
    grid.paintChosen(m_canvas.fields.dotIndex);
    // What is pending goes in the old width and comes back in the new one.
    RedrawPending(m_canvas);
    m_canvas.surface().DrawWidth = m_canvas.fields.dotIndex + 1;
    RedrawPending(m_canvas);
}

void PaintEngine::fraOptFill_MouseDown(const PointerEvent& event)
{
    if (event.button != kLeftButton)
        return;
    if (const auto mode = fillModeAt(event.y)) {
        m_canvas.fields.fillMode = *mode;
        m_canvas.fillColumn.choose(*mode);
    }
}

void PaintEngine::lblColor_MouseDown(int index, int button)
{
    if (index < 0 || index >= kColourCells)
        return;
    if (button == kLeftButton)
        takePenColour(m_canvas.lblColor[index]);
    else if (button == kRightButton)
        m_canvas.lblFillColor = m_canvas.lblColor[index];
}

void PaintEngine::lblForeColor_DblClick()
{
    m_ports.cdlColor.ShowColor();
    takePenColour(m_ports.cdlColor.Color);
}

void PaintEngine::lblFillColor_DblClick()
{
    m_ports.cdlColor.ShowColor();
    m_canvas.lblFillColor = m_ports.cdlColor.Color;
}

void PaintEngine::takePenColour(Colour colour)
{
    // What is pending goes in the old colour and comes back in the new one.
    RedrawPending(m_canvas);
    m_canvas.lblForeColor = colour;
    m_canvas.surface().DrawMode = RasterOperation::xorPen;
    m_canvas.surface().ForeColor = m_canvas.bandColour(colour);
    RedrawPending(m_canvas);
}

void PaintEngine::Command2_Click() { m_canvas.surface().Cls(); }

void PaintEngine::chooseBackground(Sheet sheet)
{
    const auto picture = background(sheet).picture;
    m_canvas.surface().setPicture(picture.empty() ? RasterImage{} : m_ports.assets.loadPicture(picture));
}

void PaintEngine::ApplyFilterAt(int filter, int x, int y) { drawing::ApplyFilterAt(m_context, filter, x, y); }

} // namespace quillora::drawing
