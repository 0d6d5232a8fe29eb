#include "forms/option_button.h"

#include <QKeyEvent>

namespace quillora::forms {

OptionButton::OptionButton(const QString& caption, const QString& spokenName, QWidget* parent)
    : QRadioButton(caption, parent)
{
    setAccessibleName(spokenName);
    setFocusPolicy(Qt::TabFocus);
}

bool OptionButton::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Space:
        case Qt::Key_Left:
        case Qt::Key_Right:
            event->accept();
            return true;
        default:
            break;
        }
    }
    return QRadioButton::event(event);
}

} // namespace quillora::forms
