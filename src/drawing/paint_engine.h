#pragma once

#include "drawing/backgrounds.h"
#include "drawing/drawing_canvas.h"
#include "drawing/drawing_ports.h"
#include "drawing/image_filters.h"
#include "drawing/pointer_event.h"
#include "drawing/tool_gestures.h"

namespace quillora::drawing {

/// The drawing board's one door: the form hands it the events of the canvas, of what floats over it and of
/// the palette, and afterwards shows the canvas's state as it stands.
///
/// A press on the canvas or on a tool skips what fails in it. Any other event lets a failure through to the
/// form as a std::exception, with what was done to then done; the canvas can be drawn on as before. On one
/// thread.
class PaintEngine {
  public:
    /// What is given must outlive this object.
    PaintEngine(DrawingCanvas& canvas, const DrawingPorts& ports);
    PaintEngine(const PaintEngine&) = delete;
    PaintEngine& operator=(const PaintEngine&) = delete;

    /// Makes the board ready, each time that drawing is chosen: the pencil, two pixels wide, whatever was in
    /// hand and whatever the palette shows.
    void DrawPrepare();
    /// The state as it begins, the flags of the dialogs, and the text box's font for the canvas.
    void StartPaointer();

    // The canvas. Coordinates are in its ScaleMode.

    void picPaint_MouseDown(const PointerEvent& event);
    void picPaint_MouseMove(const PointerEvent& event);
    void picPaint_MouseUp(const PointerEvent& event);
    /// Finishes what is pending.
    void picPaint_DblClick();
    /// Enter does as the double click.
    void picPaint_KeyUp(int key);
    void picPaint_Resize();

    // What floats over the canvas.

    void picSelect_MouseDown(const PointerEvent& event);
    void picSelect_MouseMove(const PointerEvent& event);
    void picSelect_MouseUp(const PointerEvent& event);
    void imgBezier_MouseDown(int index, const PointerEvent& event);
    void imgBezier_MouseMove(int index, const PointerEvent& event);
    void imgBezier_MouseUp(int index, const PointerEvent& event);
    void txtText_KeyDown();
    void txtText_KeyUp(int key);
    void txtText_DblClick();
    void txtText_LostFocus();

    // The palette. Coordinates are in twips from the corner of the control.

    /// Both events of a tool's button: its press, which finishes what is pending and puts the tool in force,
    /// and the click that follows a press with the left button. Any other button does nothing.
    void SelectTool(int index, int button);
    /// Throws where the tool's cursor can't be loaded; the pointer then keeps its picture.
    void ApplyToolCursor();
    void fraOptDot_MouseDown(const PointerEvent& event);
    void fraOptFill_MouseDown(const PointerEvent& event);
    /// An index that no cell has is ignored.
    void lblColor_MouseDown(int index, int button);
    void lblForeColor_DblClick();
    void lblFillColor_DblClick();
    /// Clears the drawing; the background stays.
    void Command2_Click();
    /// Lays a sheet behind the drawing, which is gone with it. Throws where its picture can't be loaded; the
    /// drawing then stays.
    void chooseBackground(Sheet sheet);

    /// Applies an effect to the whole canvas or selection, or as a brush; see tool_gestures.h.
    void ApplyFilterAt(int filter, int x, int y);

  private:
    void clickTool();
    void takePenColour(Colour colour);

    DrawingCanvas& m_canvas;
    DrawingPorts m_ports;
    ImageFilters m_filters;
    GestureContext m_context;
};

} // namespace quillora::drawing
