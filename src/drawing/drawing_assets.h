#pragma once

#include "drawing/raster_image.h"

#include <string_view>

namespace quillora::drawing {

/// The cursors and backgrounds that stand beside the program, by their file names. Both operations throw
/// std::runtime_error for a file that is missing, cannot be read, or is not what it should be.
class DrawingAssets {
  public:
    virtual ~DrawingAssets() = default;
    /// Afterwards the cursor can be shown under this name.
    virtual void loadCursor(std::string_view fileName) = 0;
    /// The picture's pixels, of which only the top left that a canvas can show is needed.
    virtual RasterImage loadPicture(std::string_view fileName) = 0;
};

} // namespace quillora::drawing
