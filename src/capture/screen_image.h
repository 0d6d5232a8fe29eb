#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillora::capture {

/// A picture of the screen: rows from the top, four bytes a pixel in the order blue, green, red, unused, no
/// padding between rows.
struct ScreenImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels{};

    void resize(int newWidth, int newHeight)
    {
        width = newWidth;
        height = newHeight;
        pixels.resize(std::size_t(4) * std::size_t(newWidth) * std::size_t(newHeight));
    }
};

/// Such a picture in somebody else's memory.
struct ScreenImageView {
    int width = 0;
    int height = 0;
    const std::uint8_t* pixels = nullptr;

    ScreenImageView() = default;
    ScreenImageView(int viewWidth, int viewHeight, const std::uint8_t* viewPixels)
        : width(viewWidth), height(viewHeight), pixels(viewPixels)
    {}
    ScreenImageView(const ScreenImage& image)
        : ScreenImageView(image.width, image.height, image.pixels.data())
    {}
};

} // namespace quillora::capture
