#pragma once

#include "drawing/raster_image.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillora::drawing {

/// An element of `picBuffer`: the canvas as it was, and its size as text.
struct Snapshot {
    RasterImage Picture{};
    std::string Tag{};
};

/// The last pictures of the canvas, in a ring that is kept up to date for a restore that is not offered:
/// nothing reads it back. Elements are made when the ring first reaches them and stay from then on.
class SnapshotRing {
  public:
    static constexpr int kPositions = 11;

    std::int16_t bufferNewest = 0;
    std::int16_t bufferLast = 0;
    std::int16_t bufferOldest = 0;
    /// Set by every snapshot, read by nothing.
    bool bufferDirty = false;
    /// The first element is there from the start.
    std::array<std::optional<Snapshot>, kPositions> picBuffer{Snapshot{}};

    /// Stores the canvas one position on. Its width and height in twips make the tag.
    void take(const RasterImage& image, int widthTwips, int heightTwips);
    /// Back to position 0 alone, which holds the canvas as it is.
    void ResetBuffer(const RasterImage& image, int widthTwips, int heightTwips);
    /// The positions and the mark as they are when drawing begins; the elements stay.
    void restart();
};

} // namespace quillora::drawing
