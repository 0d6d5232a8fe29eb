#include "capture/picture_converter.h"

#include "capture/colour_conversion.h"

#include <utility>

namespace quillora::capture {

PictureConverter::PictureConverter(int width, int height)
    : m_width(width),
      m_height(height),
      m_pool(width, height),
      m_picture(std::make_shared<VideoPicture>(width, height))
{}

std::int64_t PictureConverter::update(const ScreenImageView& image, const PixelRectangle& changed)
{
    if (image.width == m_width && image.height == m_height) {
        convertColours(image, changed, writable(changed));
        return std::int64_t{changed.width} * changed.height;
    }
    PixelRectangle part = changed;
    if (!m_scaler || !m_scaler->takes(image.width, image.height)) {
        m_scaler.emplace(image.width, image.height, m_width, m_height);
        m_scaled.resize(m_width, m_height);
        part = {0, 0, image.width, image.height};
    }
    const PixelRectangle scaled = m_scaler->scale(image, part, m_scaled);
    convertColours(m_scaled, scaled, writable(scaled));
    return std::int64_t{scaled.width} * scaled.height;
}

SharedPicture PictureConverter::handOut()
{
    m_handedOut = true;
    return m_picture;
}

/// The picture for the change of @p changed alone.
VideoPicture& PictureConverter::writable(const PixelRectangle& changed)
{
    if (!std::exchange(m_handedOut, false))
        return *m_picture;
    const std::shared_ptr<VideoPicture> next = m_pool.take();
    if (changed != PixelRectangle{0, 0, m_width, m_height})
        *next = *m_picture;
    m_picture = next;
    return *m_picture;
}

} // namespace quillora::capture
