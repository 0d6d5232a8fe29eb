#include "forms/platform/webengine/browser_messages.h"

#include <QSize>

#include <stdexcept>

namespace quillora::forms::webengine {

std::optional<QByteArray> MessageReader::next()
{
    constexpr qsizetype kHead = sizeof(quint32);
    if (m_bytes.size() < kHead)
        return std::nullopt;
    quint32 length = 0;
    QDataStream(m_bytes) >> length;
    if (length == 0 || length > m_longest)
        throw std::runtime_error("a message of a length that no message has");
    if (m_bytes.size() - kHead < qsizetype(length))
        return std::nullopt;
    QByteArray whole = m_bytes.mid(kHead, qsizetype(length));
    m_bytes.remove(0, kHead + qsizetype(length));
    return whole;
}

bool fitsThePicture(QSize size)
{
    return size.width() > 0 && size.height() > 0 &&
           qint64(size.width()) * size.height() <= kPictureCapacity / 4;
}

} // namespace quillora::forms::webengine
