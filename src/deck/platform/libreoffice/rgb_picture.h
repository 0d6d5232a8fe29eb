#pragma once

#include "deck/platform/libreoffice/picture_size.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillora::deck::libreoffice {

/// A picture of three bytes a pixel, red, green, blue, without gaps between its rows.
struct RgbPicture {
    PictureSize size;
    std::vector<std::uint8_t> bytes{};
};

/// The colours of a painted slot, copied out of it: the converter could still write there.
RgbPicture rgbOf(std::span<const std::uint8_t> slot, PictureSize size);

/// Stretches without regard to the ratio; every pixel of the source counts as far as the target's pixel
/// covers it (a triangle filter as wide as the reduction), so that thin lines and small text stay when made
/// smaller.
RgbPicture stretched(const RgbPicture& picture, PictureSize size);

} // namespace quillora::deck::libreoffice
