#include "forms/bar_header.h"

#include "forms/look.h"

#include <QPainter>

namespace quillora::forms {

namespace {

constexpr int kHeight = 32;
constexpr int kMargin = 9;
constexpr int kIconSide = 20;

} // namespace

BarHeader::BarHeader(const QString& iconName, const QString& caption, QWidget* parent)
    : CommandButton(Face::iconAndCaption, iconName, caption, caption, parent)
{
    setCheckable(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize BarHeader::sizeHint() const { return {100, kHeight}; }

void BarHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isDown() || underMouse() || hasFocus()) {
        painter.setPen(hasFocus() ? QPen(colours::kAccent) : QPen(Qt::NoPen));
        painter.setBrush(isDown() ? QColor(0xD5, 0xE2, 0xF5) : QColor(0xEA, 0xF0, 0xF9));
        painter.drawRoundedRect(face, 5, 5);
    }
    icon().paint(&painter, QRect(kMargin, (height() - kIconSide) / 2, kIconSide, kIconSide));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(colours::kText);
    painter.drawText(rect().adjusted(kMargin + kIconSide + 8, 0, -2 * kMargin, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, text());

    const QPointF middle(width() - kMargin - 7, height() / 2.0);
    const double rise = isChecked() ? 2.5 : -2.5;
    painter.setPen(QPen(colours::kMutedText, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{middle + QPointF(-5, rise), middle + QPointF(0, -rise), middle + QPointF(5, rise)});
}

} // namespace quillora::forms
