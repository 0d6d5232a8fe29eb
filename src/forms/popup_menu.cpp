#include "forms/popup_menu.h"

namespace quillora::forms {

PopupMenu::PopupMenu(QWidget* form) : QMenu(form)
{
    setObjectName("popup");
    auto* record = addItem("record", tr("Record"), QKeySequence(Qt::CTRL | Qt::Key_R));
    connect(record, &QAction::triggered, this, &PopupMenu::record_Click);
    addItem("pause", tr("Pause"), QKeySequence(Qt::CTRL | Qt::Key_P));
    addItem("stop", tr("Stop"), QKeySequence(Qt::CTRL | Qt::Key_S));
    form->addActions(actions());
}

QAction* PopupMenu::addItem(const char* name, const QString& caption, const QKeySequence& shortcut)
{
    QAction* item = addAction(caption);
    item->setObjectName(name);
    item->setShortcut(shortcut);
    item->setAutoRepeat(false);
    return item;
}

} // namespace quillora::forms
