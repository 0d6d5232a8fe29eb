#include "forms/camera_preview.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

namespace quillora::forms {

namespace {

/// A picture that was hidden for longer is old news. The stage hides the camera while it is rearranged, too,
/// which takes a slow machine less.
constexpr int kStillFreshMs = 250;

} // namespace

CameraPreview::CameraPreview(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    m_sinceHidden.start();
}

void CameraPreview::showPicturesOf(stage::NewestFrame& frames)
{
    m_frames = &frames;
    tellRoom();
    frames.onChange(
        [this] { QMetaObject::invokeMethod(this, &CameraPreview::takeNewest, Qt::QueuedConnection); });
}

void CameraPreview::takeNewest()
{
    const QRect before = place();
    if (!m_frames->take(m_frame))
        return;
    // Only what changes is sent to the display; the bars beside the picture stay as they are.
    update(before | place());
}

QRect CameraPreview::seen() const
{
    // A corner can leave the frame as high as the whole stage, and most of it below the stage's edge.
    return rect() & parentWidget()->rect().translated(-pos());
}

void CameraPreview::tellRoom()
{
    if (!m_frames)
        return;
    const QSize room = isVisible() ? (QSizeF(seen().size()) * devicePixelRatioF()).toSize() : QSize(0, 0);
    m_frames->setRoom({room.width(), room.height()});
}

QRect CameraPreview::place() const
{
    if (m_frame.empty())
        return rect();
    const QRect seen = this->seen();
    const QSize shown = QSize(m_frame.width, m_frame.height).scaled(seen.size(), Qt::KeepAspectRatio);
    return {seen.topLeft() + QPoint((seen.width() - shown.width()) / 2, (seen.height() - shown.height()) / 2),
            shown};
}

void CameraPreview::moveEvent(QMoveEvent*)
{
    tellRoom();
    update();
}

void CameraPreview::resizeEvent(QResizeEvent*) { tellRoom(); }

void CameraPreview::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect picture = place();
    if (m_frame.empty() || !picture.contains(event->rect()))
        painter.fillRect(event->rect(), Qt::black);
    if (m_frame.empty())
        return;
    const QImage image(reinterpret_cast<const uchar*>(m_frame.pixels.data()), m_frame.width, m_frame.height,
                       m_frame.width * 4, QImage::Format_RGB32);
    // Most pictures come in the size of their place. What is left is one for which there is more room than it
    // needs, and the last one from before the place changed.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(picture, image);
}

void CameraPreview::showEvent(QShowEvent* event)
{
    // A window that was minimised has gone on taking pictures.
    if (m_frames && !event->spontaneous() && m_sinceHidden.hasExpired(kStillFreshMs)) {
        // Dropped here rather than when it was hidden: a picture that was on its way then came after that.
        m_frame = {};
        stage::CameraFrame ignored;
        m_frames->take(ignored);
    }
    tellRoom();
}

void CameraPreview::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        m_sinceHidden.start();
    tellRoom();
}

} // namespace quillora::forms
