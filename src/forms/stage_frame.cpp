#include "forms/stage_frame.h"

#include "forms/look.h"

#include <QFocusEvent>
#include <QPainter>

namespace quillora::forms {

StageFrame::StageFrame(QWidget& stage, QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setObjectName("stage_frame");
    setAccessibleName(tr("Stage frame"));
    setGeometry(stage.geometry().adjusted(-kMargin, -kMargin, kMargin, kMargin));
    stackUnder(&stage);
    stage.installEventFilter(this);
}

bool StageFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        const bool byKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
        m_mark = event->type() == QEvent::FocusIn && byKeyboard ? Mark::focus : Mark::none;
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void StageFrame::setBackStyle(BackStyle style)
{
    m_backStyle = style;
    update();
}

void StageFrame::paintEvent(QPaintEvent*)
{
    const int width = m_mark == Mark::focus ? 2 : 1;
    const QColor line = m_mark == Mark::focus ? colours::kAccent : colours::kLine;
    const int inset = kMargin - width;
    const QRect outline = rect().adjusted(inset, inset, -inset, -inset);
    QPainter painter(this);
    if (m_backStyle == BackStyle::opaque)
        painter.fillRect(outline, line);
    const QRegion hairline = QRegion(outline) - outline.adjusted(width, width, -width, -width);
    for (const QRect& side : hairline)
        painter.fillRect(side, line);
}

} // namespace quillora::forms
