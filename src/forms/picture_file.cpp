#include "forms/picture_file.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <stdexcept>

namespace quillora::forms {

namespace {

/// No picture of an allowed size needs more, whatever its kind.
constexpr qint64 kMaximumFileBytes = 256LL * 1024 * 1024;

QImage opaque(QImage picture)
{
    if (!picture.hasAlphaChannel())
        return std::move(picture).convertToFormat(QImage::Format_RGB32);
    QImage flat(picture.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, picture);
    return flat;
}

/// Reads no more than the head of the file.
void checkHead(QImageReader& reader)
{
    reader.setDecideFormatFromContent(true);
    // Drawings that can name other files, such as SVG, are no pictures here.
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg" && format != "gif" && format != "bmp")
        throw std::runtime_error("no picture");
    if (!isPictureSizeAllowed(reader.size()))
        throw std::runtime_error("picture of a size that is not allowed");
}

} // namespace

bool isPictureSizeAllowed(QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= kMaximumPictureSide &&
           size.height() <= kMaximumPictureSide &&
           static_cast<long long>(size.width()) * size.height() <= kMaximumPicturePixels;
}

QByteArray readPictureFile(const std::filesystem::path& file)
{
    // An import asks for the picture without a name each time; the toolkit would complain on the terminal.
    if (file.empty())
        throw std::runtime_error("picture without a name");
    QFile opened(QFile::decodeName(file.c_str()));
    if (!opened.open(QIODevice::ReadOnly))
        throw std::runtime_error("picture can't be read: " + file.string());
    if (opened.size() > kMaximumFileBytes)
        throw std::runtime_error("picture file of a size that is not allowed: " + file.string());
    QByteArray contents = opened.readAll();
    QBuffer buffer(&contents);
    QImageReader reader(&buffer);
    checkHead(reader);
    return contents;
}

QImage decodePicture(const QByteArray& file)
{
    QBuffer buffer;
    buffer.setData(file);
    QImageReader reader(&buffer);
    checkHead(reader);
    QImage picture;
    if (!reader.read(&picture))
        throw std::runtime_error("picture is damaged");
    return opaque(std::move(picture));
}

QImage readPicture(const std::filesystem::path& file) { return decodePicture(readPictureFile(file)); }

} // namespace quillora::forms
