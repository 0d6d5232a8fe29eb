#include "forms/backdrop_widget.h"

#include "forms/picture_file.h"

#include <QPainter>

#include <stdexcept>

namespace quillora::forms {

BackdropWidget::BackdropWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("back_img");
    setAccessibleName(tr("Backdrop"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void BackdropWidget::load(const std::filesystem::path& picture)
{
    const QByteArray file = readPictureFile(picture);
    // The other surfaces take PNG; what a presenter chooses here is JPG, GIF or BMP, and the message says so.
    if (file.startsWith("\x89PNG"))
        throw std::runtime_error("a backdrop is JPG, GIF or BMP");
    m_picture = decodePicture(file);
    m_stretched = QImage();
    update();
}

void BackdropWidget::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull())
        m_picture = QImage(QStringLiteral(":/quillora/design/backdrop.jpg"));
    const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
    if (m_stretched.size() != size) {
        m_stretched = m_picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_stretched.setDevicePixelRatio(devicePixelRatioF());
    }
    QPainter(this).drawImage(0, 0, m_stretched);
}

} // namespace quillora::forms
