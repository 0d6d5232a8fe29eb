#pragma once

#include "drawing/constrain_point.h"
#include "drawing/drawing_canvas.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

/// Shapes that follow the pointer: while dragged they are drawn by exclusive-or in a colour that shows as the
/// wanted one over untouched background, and a second time to take them back, so that no copy of the picture
/// is kept. On release the shape is drawn for good over the last band, which is not taken back.

/// Whether a dragged shape follows the fill mode, or is pen alone.
enum class BandBrush { none, byFillMode };
/// Whether the press leaves a line from the point to itself, in whatever pen and mode the surface was left
/// in.
enum class BandStart { silent, line };
/// Whether moves bring the screen up to date: what goes through the device context isn't seen otherwise.
enum class BandScreen { asDrawn, refreshed };

/// A shape that a drag draws, as moveBand() and releaseBand() take it.
struct BandShape {
    DraggedShape constraint;
    BandStart start;
    BandBrush brush;
    BandScreen screen;
    /// Draws from the canvas's start to its end; nothing where the shape has no extent to draw.
    void (*draw)(DrawingCanvas& canvas);
    /// Gives the surface the colours of the result. The lone line takes the pen colour of the moment; the
    /// others turn back those that the press set.
    void (*finalColours)(DrawingCanvas& canvas);
};

extern const BandShape kLineBand;
extern const BandShape kRectangleBand;
extern const BandShape kEllipseBand;
extern const BandShape kArrowBand;
extern const BandShape kRoundedRectangleBand;

/// The dot that a press leaves where BandStart says so.
void drawStartLine(DrawingCanvas& canvas, const PointerEvent& event);
/// Exclusive-or, the colours of the band, and the end at the start.
void setUpBand(DrawingCanvas& canvas, BandBrush brush);

/// These throw std::overflow_error where an arrow's head would leave the range of its numbers.
void moveBand(DrawingCanvas& canvas, const BandShape& shape, const PointerEvent& event);
void releaseBand(DrawingCanvas& canvas, const BandShape& shape, const PointerEvent& event);

} // namespace quillora::drawing
