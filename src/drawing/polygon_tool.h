#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

/// What DrawPolygon draws: its lines in the mode and pen of the moment, its closed shape for good.
enum class PolygonPart { lastSegment, allSegments, closedShape };

/// The polygon of `polygonPoints`, drawn wholly or in part. Segments of fewer than two points are nothing.
void DrawPolygon(DrawingCanvas& canvas, PolygonPart part);

/// The first press begins a polygon, later ones add a point each. Leaves the surface in exclusive-or until
/// the polygon is closed, over several gestures.
void pressPolygon(DrawingCanvas& canvas, const PointerEvent& event);
/// The last point follows the pointer. A polygon of one point gets its second one so.
void movePolygon(DrawingCanvas& canvas, const PointerEvent& event);
/// Closes an open polygon and takes a snapshot.
void finishPolygon(DrawingCanvas& canvas);

} // namespace quillora::drawing
