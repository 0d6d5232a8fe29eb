#pragma once

#include <QByteArray>
#include <QImage>

#include <filesystem>

namespace quillora::forms {

/// What a PNG, JPEG, GIF or BMP file holds, for decodePicture(). The kind is told by the content, not by the
/// name. Throws std::runtime_error for a file that can't be read, is none of these, or says that it has more
/// than kMaximumPictureSide pixels a side or kMaximumPicturePixels in all.
QByteArray readPictureFile(const std::filesystem::path& file);

/// The picture in a file of one of these kinds, opaque: what is transparent in it becomes white. Throws
/// std::runtime_error, for a size that is not allowed before memory is taken for it.
QImage decodePicture(const QByteArray& file);

/// Both at once.
QImage readPicture(const std::filesystem::path& file);

inline constexpr int kMaximumPictureSide = 16384;
/// 128 MiB at four bytes a pixel, which is where the library would refuse as well.
inline constexpr long long kMaximumPicturePixels = 32LL * 1024 * 1024;

/// Whether a picture of this size may be held at all.
bool isPictureSizeAllowed(QSize size);

} // namespace quillora::forms
