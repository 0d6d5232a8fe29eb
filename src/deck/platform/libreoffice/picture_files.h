#pragma once

#include "deck/platform/libreoffice/rgb_picture.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace quillora::deck::libreoffice {

/// A PNG file's bytes. Compressed for speed: an import writes dozens of them while the presenter waits.
std::vector<std::uint8_t> pngOf(const RgbPicture& picture);
/// A JPEG file's bytes at quality 92, colours not subsampled: slides are coloured text on plain ground.
std::vector<std::uint8_t> jpegOf(const RgbPicture& picture);

/// Writes beside @p file and renames, so that a picture is there whole or not at all. Throws
/// std::runtime_error.
void writeWhole(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

} // namespace quillora::deck::libreoffice
