#include "capture/picture_converter.h"

#include "capture/colour_conversion.h"

namespace quillora::capture {

PictureConverter::PictureConverter(int width, int height) : m_picture(width, height) {}

std::int64_t PictureConverter::update(const ScreenImage& image, const PixelRectangle& changed)
{
    if (image.width == m_picture.width && image.height == m_picture.height) {
        convertColours(image, changed, m_picture);
        return std::int64_t{changed.width} * changed.height;
    }
    PixelRectangle part = changed;
    if (!m_scaler || !m_scaler->takes(image.width, image.height)) {
        m_scaler.emplace(image.width, image.height, m_picture.width, m_picture.height);
        m_scaled.resize(m_picture.width, m_picture.height);
        part = {0, 0, image.width, image.height};
    }
    const PixelRectangle scaled = m_scaler->scale(image, part, m_scaled);
    convertColours(m_scaled, scaled, m_picture);
    return std::int64_t{scaled.width} * scaled.height;
}

} // namespace quillora::capture
