#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/drawing_ports.h"
#include "drawing/image_filters.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

/// What a gesture works on: the canvas with all its state, the filters, and the world outside.
struct GestureContext {
    DrawingCanvas& canvas;
    ImageFilters& filters;
    const DrawingPorts& ports;
};

/// A tool is what its gesture means: what the left button's press, the moves under it and its release do, and
/// what finishes a thing that is pending over several gestures. The shape that it draws stands elsewhere.
/// Press and release come after the steps that all tools share.
struct ToolGesture {
    using OnPointer = void (*)(GestureContext& context, const PointerEvent& event);
    using OnFinish = void (*)(DrawingCanvas& canvas);

    OnPointer press;
    OnPointer move;
    OnPointer release;
    OnFinish finish;
};

/// The gesture of tool number @p id; one that does nothing for a number that is no tool's.
const ToolGesture& toolGesture(int id);

/// Finishes what the tool in force has pending: a selection is committed, a polygon closed, a curve made
/// final.
void finishPending(DrawingCanvas& canvas);

/// Draws a polygon or curve in progress once more, which under exclusive-or takes it away or brings it back.
/// With the curve tool in force that is the curve of the handles as they stand, pending or not.
void RedrawPending(DrawingCanvas& canvas);

/// Applies effect number @p filter as the Filter Brush does, to a square round the point that grows with the
/// pen; under any other tool, or at (-1, -1), to the whole canvas or selection. Throws as
/// ImageFilters::ApplyFilter.
void ApplyFilterAt(GestureContext& context, int filter, int x, int y);

} // namespace quillora::drawing
