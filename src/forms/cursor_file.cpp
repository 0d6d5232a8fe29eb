#include "forms/cursor_file.h"

#include "forms/picture_file.h"

#include <QByteArray>
#include <QFile>
#include <QImageReader>
#include <QPixmap>
#include <QtEndian>

#include <stdexcept>

namespace quillora::forms {

namespace {

// The head of a cursor file: three 16-bit words (0, 2, number of images), then 16 bytes for each image, of
// which the words at 4 and 6 are the hot spot. All little-endian.
constexpr qsizetype kHeadLength = 6 + 16;
constexpr quint16 kCursorKind = 2;
constexpr int kMaximumCursorSide = 256;

} // namespace

QCursor readCursor(const std::filesystem::path& file)
{
    const QString name = QFile::decodeName(file.c_str());
    QFile opened(name);
    if (!opened.open(QIODevice::ReadOnly))
        throw std::runtime_error("cursor can't be read: " + file.string());
    const QByteArray head = opened.read(kHeadLength);
    if (head.size() < kHeadLength || qFromLittleEndian<quint16>(head.constData() + 2) != kCursorKind)
        throw std::runtime_error("no cursor: " + file.string());

    QImageReader reader(name, "cur");
    const QSize size = reader.size();
    if (size.width() > kMaximumCursorSide || size.height() > kMaximumCursorSide)
        throw std::runtime_error("cursor of a size that is not allowed: " + file.string());
    const QImage picture = reader.read();
    if (picture.isNull())
        throw std::runtime_error("no cursor: " + file.string());
    return QCursor(QPixmap::fromImage(picture), qFromLittleEndian<quint16>(head.constData() + 6 + 4),
                   qFromLittleEndian<quint16>(head.constData() + 6 + 6));
}

} // namespace quillora::forms
