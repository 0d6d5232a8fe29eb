#pragma once

#include "drawing/surface_screen.h"

#include <vector>

namespace quillora::tests {

/// Keeps what it was told to show, and when it was told to show it at once.
class FakeSurfaceScreen : public drawing::SurfaceScreen {
  public:
    void show(const base::PixelRectangle& changed) override
    {
        shown.push_back(changed);
        waiting = base::boundingBox(waiting, changed);
    }
    void refresh() override
    {
        ++refreshes;
        waiting = {};
    }

    std::vector<base::PixelRectangle> shown;
    /// All that was told since the last refresh.
    base::PixelRectangle waiting;
    int refreshes = 0;
};

} // namespace quillora::tests
