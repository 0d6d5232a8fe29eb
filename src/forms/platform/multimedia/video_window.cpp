#include "video_window.h"

#include "frame_picture.h"

#include <QPainter>

VideoWindow::VideoWindow(WId host)
{
    setFlags(Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setParent(QWindow::fromWinId(host));
}

void VideoWindow::showFrame(const QVideoFrame& frame)
{
    // At the end of a video comes a frame without a picture; the last one stays.
    if (QImage picture = pictureOf(frame); !picture.isNull()) {
        m_picture = std::move(picture);
        update();
    }
}

void VideoWindow::clear()
{
    m_picture = {};
    update();
}

void VideoWindow::paintEvent(QPaintEvent*)
{
    const QRect whole({}, size());
    QPainter painter(this);
    painter.fillRect(whole, Qt::black);
    if (m_picture.isNull())
        return;
    QRect place({}, m_picture.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(whole.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place.size() != m_picture.size());
    painter.drawImage(place, m_picture);
}
