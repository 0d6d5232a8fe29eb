#pragma once

#include "base/scaling_axis.h"
#include "stage/newest_frame.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillora::stage {

/// The size of a picture that is to be seen whole in @p room, in its own shape and never enlarged. Neither is
/// empty.
FrameSize fitted(FrameSize picture, FrameSize room);

/// Brings planar pictures (all brightness, then the two colour planes at half the width and height, rounded
/// up, without gaps) from one size to another, before their colours are turned into those of the screen:
/// there they are half as many bytes, and the smaller picture has fewer pixels to turn.
///
/// The filter is linear; where the picture gets smaller than half, it is widened by the factor. Not
/// thread-safe.
class PlanarScaler {
  public:
    /// All sizes at least 1.
    PlanarScaler(FrameSize from, FrameSize to);

    bool scales(FrameSize from, FrameSize to) const { return from == m_from && to == m_to; }

    /// The scaled picture, good until the next call. @p planes are those of a whole picture.
    std::span<const std::uint8_t> scale(std::span<const std::uint8_t> planes);

  private:
    /// A plane's columns and rows.
    struct Plane {
        Plane(FrameSize fromSize, FrameSize toSize, FrameSize picture, FrameSize scaledPicture);

        base::ScalingAxis columns;
        base::ScalingAxis rows;
        /// The weights of two neighbours in each number; those of all target columns for the first two
        /// neighbours come first.
        std::vector<std::uint32_t> pairs{};
    };

    void scale(const Plane& plane, const std::uint8_t* from, std::uint8_t* to);

    FrameSize m_from;
    FrameSize m_to;
    Plane m_brightness;
    Plane m_colour;
    std::vector<std::uint8_t> m_line{};
    std::vector<std::uint8_t> m_scaled{};
};

} // namespace quillora::stage
