#include "forms/picture_file.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <stdexcept>

namespace quillora::forms {

namespace {

QImage opaque(QImage picture)
{
    if (!picture.hasAlphaChannel())
        return std::move(picture).convertToFormat(QImage::Format_RGB32);
    QImage flat(picture.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, picture);
    return flat;
}

} // namespace

bool isPictureSizeAllowed(QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= kMaximumPictureSide &&
           size.height() <= kMaximumPictureSide &&
           static_cast<long long>(size.width()) * size.height() <= kMaximumPicturePixels;
}

QImage readPicture(const std::filesystem::path& file)
{
    QImageReader reader(QFile::decodeName(file.c_str()));
    reader.setDecideFormatFromContent(true);
    // Drawings that can name other files, such as SVG, are no pictures here.
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg" && format != "gif" && format != "bmp")
        throw std::runtime_error("no picture: " + file.string());
    if (!isPictureSizeAllowed(reader.size()))
        throw std::runtime_error("picture of a size that is not allowed: " + file.string());
    QImage picture;
    if (!reader.read(&picture))
        throw std::runtime_error("picture can't be read: " + file.string());
    return opaque(std::move(picture));
}

} // namespace quillora::forms
