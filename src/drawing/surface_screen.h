#pragma once

#include "base/pixel_rectangle.h"

namespace quillora::drawing {

/// Where a surface is seen. It shows pixels of the persistent image, and only those that it was told of: what
/// was drawn through the device context stays unseen until it lies in a rectangle told here, or until the
/// screen repaints for reasons of its own.
class SurfaceScreen {
  public:
    virtual ~SurfaceScreen() = default;
    /// @p changed, never empty and never outside the surface, is to be shown with the end of the present
    /// event. A stroke tells this many times over: gather, and paint once.
    virtual void show(const base::PixelRectangle& changed) = 0;
    /// What was told is to be shown now, before this returns.
    virtual void refresh() = 0;
};

} // namespace quillora::drawing
