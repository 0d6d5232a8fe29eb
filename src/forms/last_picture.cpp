#include "forms/last_picture.h"

#include "forms/picture_file.h"

namespace quillora::forms {

QImage LastPicture::decode(const QByteArray& file)
{
    if (m_decoded.isNull() || file != m_file) {
        m_decoded = decodePicture(file);
        m_stretched = {};
        m_file = file;
    }
    return m_decoded;
}

QImage LastPicture::stretch(const QImage& picture, QSize size)
{
    const auto stretched = [&] {
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    // Ink on the picture gives it another key: what was drawn on must not come back as it was.
    if (picture.cacheKey() != m_decoded.cacheKey())
        return stretched();
    if (m_stretched.size() != size)
        m_stretched = stretched();
    return m_stretched;
}

} // namespace quillora::forms
