#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillora::capture {

/// A picture as video codecs take it: 4:2:0, BT.601, limited range. Planes have no padding between rows; a
/// chroma plane has half the width and half the height, rounded up.
struct VideoPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> luma{};
    std::vector<std::uint8_t> blueChroma{};
    std::vector<std::uint8_t> redChroma{};

    VideoPicture() = default;

    /// A black picture.
    VideoPicture(int pictureWidth, int pictureHeight) : width(pictureWidth), height(pictureHeight)
    {
        luma.assign(std::size_t(width) * std::size_t(height), 16);
        blueChroma.assign(std::size_t(chromaWidth()) * std::size_t(chromaHeight()), 128);
        redChroma = blueChroma;
    }

    int chromaWidth() const { return (width + 1) / 2; }
    int chromaHeight() const { return (height + 1) / 2; }
};

} // namespace quillora::capture
