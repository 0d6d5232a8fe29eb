#pragma once

#include "base/scaling_axis.h"
#include "capture/pixel_rectangle.h"
#include "capture/screen_image.h"

#include <cstdint>
#include <vector>

namespace quillora::capture {

/// Scales the pictures of one size to another size, and only the part of them that has changed.
///
/// The filter is the cubic of Catmull and Rom, widened by the factor where the picture gets smaller: it keeps
/// strokes of text darker than a linear one would, which counts where the stage of 747 columns becomes a
/// video of 746. A part that is scaled on its own comes out as it would within the whole. Not thread-safe.
class ImageScaler {
  public:
    /// All sizes at least 1.
    ImageScaler(int fromWidth, int fromHeight, int toWidth, int toHeight);

    bool takes(int fromWidth, int fromHeight) const
    {
        return fromWidth == m_columns.from && fromHeight == m_rows.from;
    }

    /// Brings @p to up to date with the part @p changed of @p from. Returns the part of @p to that depends on
    /// it.
    PixelRectangle scale(const ScreenImageView& from, const PixelRectangle& changed, ScreenImage& to);

  private:
    base::ScalingAxis m_columns;
    base::ScalingAxis m_rows;
    std::vector<std::uint8_t> m_line{};
};

} // namespace quillora::capture
