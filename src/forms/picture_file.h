#pragma once

#include <QImage>

#include <filesystem>

namespace quillora::forms {

/// The picture of a PNG, JPEG, GIF or BMP file, opaque (what is transparent in it becomes white). Its kind is
/// told by its content, not by its name. Throws std::runtime_error for a file that can't be read, is none of
/// these, or says that it has more than kMaximumPictureSide pixels a side or kMaximumPicturePixels in all,
/// and does so before memory is taken for them.
QImage readPicture(const std::filesystem::path& file);

inline constexpr int kMaximumPictureSide = 16384;
/// 128 MiB at four bytes a pixel, which is where the library would refuse as well.
inline constexpr long long kMaximumPicturePixels = 32LL * 1024 * 1024;

/// Whether a picture of this size may be held at all.
bool isPictureSizeAllowed(QSize size);

} // namespace quillora::forms
