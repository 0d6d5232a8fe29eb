#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/drawing_ports.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

// The Text tool: a box that floats over the canvas and prints its words into the picture when it is done. It
// is open or hidden; pressing elsewhere moves an open one, and Enter, Esc, a double click on it or a loss of
// the focus that no move caused closes it.

/// Opens the box at the pointer, or moves the one that is open and keeps its words.
void pressText(DrawingCanvas& canvas, const DrawingPorts& ports, const PointerEvent& event);

/// The box's text must be in `txtText.Text` before these are called. Its height follows the measure of a
/// label whose font is not the box's own.
void txtText_KeyDown(DrawingCanvas& canvas, const DrawingPorts& ports);
/// Enter prints, Esc gives the words up. Enter without words prints nothing, and still takes a snapshot.
void txtText_KeyUp(DrawingCanvas& canvas, const DrawingPorts& ports, int key);
void txtText_DblClick(DrawingCanvas& canvas);
void txtText_LostFocus(DrawingCanvas& canvas, const DrawingPorts& ports);

} // namespace quillora::drawing
