#pragma once

#include "base/colour.h"

#include <filesystem>

namespace quillora::deck {

/// A control that holds pixels of its own: a picture is resized in it rather than scaled when painted, and
/// takes pen lines. Failures are std::runtime_error; the surface then keeps what it had.
class ImageSurface {
  public:
    virtual ~ImageSurface() = default;
    virtual void LoadFile(const std::filesystem::path& picture) = 0;
    /// Stretches the held picture to this many pixels, with no regard to its ratio.
    virtual void ResizeImage(int width, int height) = 0;
    /// A blank picture of this many pixels.
    virtual void NewImage(int width, int height) = 0;
    /// The pen of the segments to come; those that are drawn stay as they are.
    virtual void setPenColor(base::Colour colour) = 0;
    /// In pixels of the form, at least 1.
    virtual void setPenWidth(int pixels) = 0;
    /// A line in the current pen, in the pixels of the held picture.
    virtual void DrawSegment(int x1, int y1, int x2, int y2) = 0;
};

} // namespace quillora::deck
