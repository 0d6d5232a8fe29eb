#pragma once

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
    /// Which source places make up each target place, and with which weights; in one direction.
    struct Axis {
        Axis(int fromLength, int toLength);

        int from;
        int to;
        int taps;
        std::vector<int> first{};
        /// taps for each target place, their sum 2^14.
        std::vector<std::int16_t> weights{};

        /// The target places that depend on the source places from @p begin up to @p end.
        std::pair<int, int> dependentOn(int begin, int end) const;
        const std::int16_t* weightsOf(int place) const
        {
            return weights.data() + std::ptrdiff_t(place) * taps;
        }
    };

    Axis m_columns;
    Axis m_rows;
    std::vector<std::uint8_t> m_line{};
};

} // namespace quillora::capture
