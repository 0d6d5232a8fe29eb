#include "capture/platform/x11/pixel_layout.h"

#include <xcb/xcb.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace quillora::capture {
namespace {

const xcb_visualtype_t* rootVisual(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem; xcb_depth_next(&depth))
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
            if (visual.data->visual_id == screen.root_visual)
                return visual.data;
    return nullptr;
}

const xcb_format_t* formatOfDepth(const xcb_setup_t& setup, std::uint8_t depth)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem; xcb_format_next(&format))
        if (format.data->depth == depth)
            return format.data;
    return nullptr;
}

bool hasMasks(const xcb_visualtype_t& visual, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return visual.red_mask == red && visual.green_mask == green && visual.blue_mask == blue;
}

} // namespace

std::size_t PixelLayout::rowBytes(int width) const
{
    const std::size_t padBytes = static_cast<std::size_t>(rowPadBits) / 8;
    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(bytesPerPixel());
    return (bytes + padBytes - 1) / padBytes * padBytes;
}

void PixelLayout::convert(const std::uint8_t* from, std::uint8_t* to, int pixels) const
{
    if (kind == Kind::bgrx) {
        std::memcpy(to, from, 4 * static_cast<std::size_t>(pixels));
        return;
    }
    for (int pixel = 0; pixel < pixels; ++pixel, from += 2, to += 4) {
        const int value = from[0] | from[1] << 8;
        // The high bits are repeated below, so that the fullest value becomes 255.
        to[0] = static_cast<std::uint8_t>((value & 0x1f) << 3 | (value & 0x1f) >> 2);
        to[1] = static_cast<std::uint8_t>((value >> 5 & 0x3f) << 2 | (value >> 5 & 0x3f) >> 4);
        to[2] = static_cast<std::uint8_t>((value >> 11) << 3 | (value >> 11) >> 2);
        to[3] = 0;
    }
}

PixelLayout pixelLayoutOf(const xcb_setup_t& setup, const xcb_screen_t& screen)
{
    const xcb_visualtype_t* visual = rootVisual(screen);
    const xcb_format_t* format = formatOfDepth(setup, screen.root_depth);
    if (visual && format && setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) {
        if (format->bits_per_pixel == 32 && hasMasks(*visual, 0xff0000, 0xff00, 0xff))
            return {PixelLayout::Kind::bgrx, format->scanline_pad};
        if (format->bits_per_pixel == 16 && hasMasks(*visual, 0xf800, 0x7e0, 0x1f))
            return {PixelLayout::Kind::rgb565, format->scanline_pad};
    }
    throw std::runtime_error("screens of depth " + std::to_string(screen.root_depth) + " can't be captured");
}

} // namespace quillora::capture
