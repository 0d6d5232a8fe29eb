#pragma once

#include "base/twip_rectangle.h"

namespace quillora::stage {

/// Something that a layout moves and shows: a media's surface, the camera, a picture on the stage. A hidden
/// surface keeps its place, and can be moved. Failures are std::runtime_error.
class StageSurface {
  public:
    virtual ~StageSurface() = default;
    /// As move() was told last.
    virtual base::TwipRectangle rectangle() const = 0;
    virtual void move(const base::TwipRectangle& place) = 0;
    /// The surface's own flag: whether a parent is shown, or another surface covers it, doesn't count.
    virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    /// Above all that has the same parent.
    virtual void bringToFront() = 0;
};

} // namespace quillora::stage
