#include "forms/camera_preview.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

namespace quillora::forms {

namespace {

/// Past this a pixel on the screen stands for more pixels of the camera than the quick filter looks at.
constexpr double kLargestQuickReduction = 2;

} // namespace

CameraPreview::CameraPreview(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
}

void CameraPreview::showPicturesOf(stage::NewestFrame& frames)
{
    m_frames = &frames;
    frames.setWanted(isVisible());
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

QRect CameraPreview::place() const
{
    if (m_frame.empty())
        return rect();
    // A corner can leave the frame as high as the whole stage, and most of it below the stage's edge.
    const QRect seen = rect() & parentWidget()->rect().translated(-pos());
    const QSize shown = QSize(m_frame.width, m_frame.height).scaled(seen.size(), Qt::KeepAspectRatio);
    return {seen.topLeft() + QPoint((seen.width() - shown.width()) / 2, (seen.height() - shown.height()) / 2),
            shown};
}

void CameraPreview::moveEvent(QMoveEvent*) { update(); }

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
    const QSize onDisplay = (QSizeF(picture.size()) * devicePixelRatioF()).toSize();
    if (m_frame.width > kLargestQuickReduction * onDisplay.width()) {
        QImage reduced = image.scaled(onDisplay, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter.drawImage(picture, reduced);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(picture, image);
}

void CameraPreview::showEvent(QShowEvent*)
{
    if (m_frames)
        m_frames->setWanted(true);
}

void CameraPreview::hideEvent(QHideEvent*)
{
    if (!m_frames)
        return;
    m_frames->setWanted(false);
    // Shown again, it must not begin with a moment that is long over.
    m_frame = {};
    stage::CameraFrame ignored;
    m_frames->take(ignored);
}

} // namespace quillora::forms
