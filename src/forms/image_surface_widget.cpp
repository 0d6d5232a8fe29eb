#include "forms/image_surface_widget.h"

#include "base/skip_failures.h"
#include "forms/form_colour.h"
#include "forms/input_values.h"
#include "forms/picture_file.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <stdexcept>
#include <utility>

namespace quillora::forms {

ImageSurfaceWidget::ImageSurfaceWidget(Display display, QWidget* parent) : QWidget(parent), m_display(display)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
}

void ImageSurfaceWidget::LoadFile(const std::filesystem::path& picture)
{
    QByteArray file = readPictureFile(picture);
    if (m_display == Display::fitted) {
        decodeLater(std::move(file));
    } else {
        m_picture = m_last.decode(file);
        pictureChanged();
    }
    emit pictureLoaded(picture);
}

void ImageSurfaceWidget::ResizeImage(int width, int height)
{
    const QSize size(width, height);
    if (m_picture.isNull() && !m_undecoded)
        throw std::runtime_error("no picture to resize");
    if (!isPictureSizeAllowed(displayPixels(size)))
        throw std::runtime_error("picture size that is not allowed");
    if (m_undecoded) {
        m_undecoded->stretchedTo = size;
        return;
    }
    stretch(size);
    // What follows a slide change, such as the preview, must not keep the slide from the audience.
    if (m_display == Display::actualSize)
        repaint();
}

void ImageSurfaceWidget::stretch(QSize formPixels)
{
    const QSize size = displayPixels(formPixels);
    if (m_picture.size() != size)
        m_picture = m_last.stretch(m_picture, size);
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    pictureChanged();
}

void ImageSurfaceWidget::decodeLater(QByteArray file)
{
    // Were this one damaged, the one before it would have to be there.
    decodeNow();
    m_undecoded = Undecoded{std::move(file), {}};
    QTimer::singleShot(0, this, &ImageSurfaceWidget::decodeNow);
}

void ImageSurfaceWidget::decodeNow()
{
    const auto undecoded = std::exchange(m_undecoded, std::nullopt);
    if (!undecoded)
        return;
    // Whoever loaded it is not there any more to be told; a damaged picture leaves the last one standing.
    base::skipFailures([&] {
        m_picture = m_last.decode(undecoded->file);
        if (!undecoded->stretchedTo.isEmpty())
            stretch(undecoded->stretchedTo);
        pictureChanged();
    });
}

const QImage& ImageSurfaceWidget::picture()
{
    decodeNow();
    return m_picture;
}

void ImageSurfaceWidget::NewImage(int width, int height)
{
    const QSize size = displayPixels({width, height});
    if (!isPictureSizeAllowed(size))
        throw std::runtime_error("picture size that is not allowed");
    QImage blank(size, QImage::Format_RGB32);
    if (blank.isNull())
        throw std::runtime_error("no memory for a picture");
    blank.fill(Qt::white);
    blank.setDevicePixelRatio(devicePixelRatioF());
    m_undecoded.reset();
    m_picture = blank;
    pictureChanged();
}

void ImageSurfaceWidget::setPenColor(base::Colour colour) { m_pen.setColor(toQColor(colour)); }

void ImageSurfaceWidget::setPenWidth(int pixels)
{
    if (pixels < 1)
        throw std::runtime_error("pen without a width");
    m_pen.setWidth(pixels);
}

void ImageSurfaceWidget::DrawSegment(int x1, int y1, int x2, int y2)
{
    decodeNow();
    if (m_picture.isNull())
        throw std::runtime_error("no picture to draw on");
    const QLineF line(x1, y1, x2, y2);
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_pen);
    // A pen of an even width lies between two rows of pixels, where a level line is sharp.
    const double centre = m_pen.width() % 2 == 1 ? 0.5 : 0;
    painter.drawLine(line.translated(centre, centre));
    painter.end();

    if (m_display == Display::fitted) {
        pictureChanged();
        return;
    }
    const double margin = m_pen.widthF() + 2;
    const QRectF touched =
        QRectF(line.p1(), line.p2()).normalized().adjusted(-margin, -margin, margin, margin);
    // Ink that trails behind the pointer is seen by the presenter, and is in the recording for good.
    repaint(touched.intersected(QRectF(rect())).toAlignedRect());
}

QSize ImageSurfaceWidget::displayPixels(QSize formPixels) const
{
    return (QSizeF(formPixels) * devicePixelRatioF()).toSize();
}

void ImageSurfaceWidget::pictureChanged()
{
    m_shown = QImage();
    update();
}

void ImageSurfaceWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_picture.isNull()) {
        painter.fillRect(rect(), palette().window());
        return;
    }
    if (m_display == Display::fitted) {
        if (m_shown.isNull()) {
            m_shown =
                m_picture.scaled(displayPixels(size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            m_shown.setDevicePixelRatio(devicePixelRatioF());
        }
        painter.drawImage(0, 0, m_shown);
        return;
    }
    if (!QRectF(QPointF(), m_picture.deviceIndependentSize()).contains(QRectF(rect())))
        painter.fillRect(rect(), Qt::white);
    painter.drawImage(0, 0, m_picture);
}

void ImageSurfaceWidget::resizeEvent(QResizeEvent*) { m_shown = QImage(); }

void ImageSurfaceWidget::mousePressEvent(QMouseEvent* event)
{
    emit MouseDown(buttonValue(event->button()), shiftValue(event->modifiers()), float(event->position().x()),
                   float(event->position().y()));
}

void ImageSurfaceWidget::mouseMoveEvent(QMouseEvent* event)
{
    emit MouseMove(buttonValue(event->buttons()), shiftValue(event->modifiers()),
                   float(event->position().x()), float(event->position().y()));
}

void ImageSurfaceWidget::mouseReleaseEvent(QMouseEvent* event)
{
    emit MouseUp(buttonValue(event->button()), shiftValue(event->modifiers()), float(event->position().x()),
                 float(event->position().y()));
}

} // namespace quillora::forms
