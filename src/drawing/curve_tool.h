#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

/// Whether the curve is one of the rubber band's, which a second one takes back, or the result.
enum class CurvePass { band, result };

/// The curve from handle 0 to handle 3, pulled by 1 and 2, in the pen of the moment.
void DrawCurve(DrawingCanvas& canvas, CurvePass pass);

/// With the handles hidden: brings them up round the pointer and draws the first curve. Leaves the surface in
/// exclusive-or until the curve is finished, over several gestures.
void pressCurve(DrawingCanvas& canvas, const PointerEvent& event);
/// The whole curve follows the pointer.
void moveCurve(DrawingCanvas& canvas, const PointerEvent& event);
/// Makes a pending curve final, hides the handles and takes a snapshot.
void finishCurve(DrawingCanvas& canvas);

// The events of the handles, in twips from the handle's own corner. An index that no handle has is ignored.

void imgBezier_MouseDown(DrawingCanvas& canvas, int index, const PointerEvent& event);
/// From the first move of a drag until its release the canvas counts in twips.
void imgBezier_MouseMove(DrawingCanvas& canvas, int index, const PointerEvent& event);
void imgBezier_MouseUp(DrawingCanvas& canvas, int index, const PointerEvent& event);

} // namespace quillora::drawing
