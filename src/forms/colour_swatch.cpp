#include "forms/colour_swatch.h"

#include "forms/form_colour.h"
#include "forms/look.h"

#include <QKeyEvent>
#include <QPainter>

namespace quillora::forms {

ColourSwatch::ColourSwatch(base::Colour colour, const QString& spokenName, QWidget* parent)
    : QAbstractButton(parent), m_colour(colour)
{
    setAccessibleName(spokenName);
    setToolTip(spokenName);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

bool ColourSwatch::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QAbstractButton::event(event);
}

void ColourSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isMarked = hasFocus() || underMouse();
    painter.fillRect(rect(), isMarked ? colours::kAccent : colours::kLine);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), colours::kSurface);
    painter.fillRect(rect().adjusted(2, 2, -2, -2), toQColor(m_colour));
}

} // namespace quillora::forms
