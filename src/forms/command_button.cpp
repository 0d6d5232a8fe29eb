#include "forms/command_button.h"

#include "forms/look.h"

#include <QKeyEvent>

namespace quillora::forms {

CommandButton::CommandButton(Face face, const QString& iconName, const QString& caption,
                             const QString& spokenName, QWidget* parent)
    : QToolButton(parent)
{
    setIcon(drawnIcon(iconName));
    setText(caption);
    setAccessibleName(spokenName);
    setToolButtonStyle(face == Face::iconOnly ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    setIconSize({20, 20});
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
}

QSize CommandButton::sizeHint() const
{
    const QSize roomy = QToolButton::sizeHint();
    if (toolButtonStyle() == Qt::ToolButtonIconOnly)
        return roomy;
    // The toolkit leaves a blank on each side of the caption, which a dozen buttons in a row can't afford.
    return {roomy.width() - 2 * fontMetrics().horizontalAdvance(u' '), roomy.height()};
}

bool CommandButton::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QToolButton::event(event);
}

CommandButton* makeToolbarButton(const ToolbarButton& button, QWidget* toolbar)
{
    auto* made = new CommandButton(CommandButton::Face::iconOnly, button.iconName, {},
                                   QObject::tr(button.spokenName), toolbar);
    made->setObjectName(toolbar->objectName() + u'_' + button.key);
    made->setToolTip(QObject::tr(button.toolTip));
    return made;
}

} // namespace quillora::forms
