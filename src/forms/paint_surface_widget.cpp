#include "forms/paint_surface_widget.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace quillora::forms {

namespace {

QRgb screenColour(drawing::Colour colour)
{
    constexpr drawing::Colour kRed = 0xFF;
    constexpr drawing::Colour kGreen = 0xFF00;
    constexpr drawing::Colour kOpaque = 0xFF000000;
    return kOpaque | (colour & kRed) << 16 | (colour & kGreen) | (colour >> 16 & kRed);
}

QRect rectangle(const base::PixelRectangle& area) { return {area.left, area.top, area.width, area.height}; }

} // namespace

PaintSurfaceWidget::PaintSurfaceWidget(QWidget* parent) : PointerArea(drawing::ScaleUnit::pixels, parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
}

void PaintSurfaceWidget::setSurface(drawing::Surface* surface)
{
    m_surface = surface;
    update();
}

void PaintSurfaceWidget::finishEvent()
{
    m_screen.refresh();
    if (m_surface != nullptr)
        update(rectangle(m_surface->takeUnshown()));
}

void PaintSurfaceWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect pixels =
        m_surface != nullptr ? rectangle(m_surface->Image().bounds()) & event->rect() : QRect();
    if (pixels != event->rect())
        painter.fillRect(event->rect(), palette().window());
    if (pixels.isEmpty())
        return;
    copyPixels(pixels);
    painter.drawImage(pixels, m_pixels, pixels);
}

void PaintSurfaceWidget::copyPixels(const QRect& part)
{
    const auto& image = m_surface->Image();
    if (m_pixels.size() != QSize(image.width(), image.height()))
        m_pixels = QImage(image.width(), image.height(), QImage::Format_RGB32);
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto row = image.row(y).subspan(std::size_t(part.left()), std::size_t(part.width()));
        auto* shown = reinterpret_cast<QRgb*>(m_pixels.scanLine(y)) + part.left();
        std::transform(row.begin(), row.end(), shown, screenColour);
    }
}

} // namespace quillora::forms
