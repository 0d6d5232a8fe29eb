#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/pointer_event.h"

namespace quillora::drawing {

/// Whether a dragged shape is a line, which Ctrl holds upright or level, or fills the rectangle of the drag,
/// to which Ctrl does nothing.
enum class DraggedShape { boxLike, line };

/// An event's place, rounded.
base::PixelPoint roundedPlace(const PointerEvent& event);

/// The end point of a drag from @p start to the event's place. Shift alone cuts the longer side down to the
/// shorter one, which gives a square or a line at 45 degrees; Ctrl alone snaps a line to the nearer axis, an
/// exact diagonal going upright.
base::PixelPoint constrainedEnd(base::PixelPoint start, const PointerEvent& event, DraggedShape shape);

} // namespace quillora::drawing
