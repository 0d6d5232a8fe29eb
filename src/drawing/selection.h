#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

// Select Area: a rectangle of the canvas is lifted into `picSelect`, which floats over the canvas until it is
// committed. The marquee lies one pixel outside it on all sides, in exclusive-or with the back colour: over
// the background it shows black, and drawn twice it is gone.

/// The rubber band of Select Area. Where both its corners are one pixel it has no extent and draws nothing:
/// the press alone leaves no dot for later to take back.
void drawSelectionBand(DrawingCanvas& canvas);
void moveSelectionBand(DrawingCanvas& canvas, const PointerEvent& event);
/// Lifts the area of the drag; one of a pixel across or down is given up. Throws std::length_error for an
/// area that reaches further than any screen.
void releaseSelectionBand(DrawingCanvas& canvas, const PointerEvent& event);

// The events of `picSelect`, in its own pixels.

/// Clears what lies under a fresh selection, so that the drag moves it. Under Ctrl the drag copies.
void picSelect_MouseDown(DrawingCanvas& canvas, const PointerEvent& event);
void picSelect_MouseMove(DrawingCanvas& canvas, const PointerEvent& event);
void picSelect_MouseUp(DrawingCanvas& canvas, const PointerEvent& event);

/// Writes a visible selection into the canvas where it floats, and hides it. Takes a snapshot unless it was
/// lifted and never moved.
void CommitSelection(DrawingCanvas& canvas);
/// Draws the marquee of a visible selection once, and leaves the pen as it was but for its style.
void ToggleMarquee(DrawingCanvas& canvas);

} // namespace quillora::drawing
