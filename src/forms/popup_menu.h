#pragma once

#include <QMenu>

namespace quillora::forms {

/// The menu `popup` of the main form. Nothing opens it; its shortcuts work while the form has the focus. That
/// of `record` is also the desktop-wide hot key, which comes first wherever it could be had.
class PopupMenu : public QMenu {
    Q_OBJECT

  public:
    explicit PopupMenu(QWidget* form);

  signals:
    void record_Click();

  private:
    QAction* addItem(const char* name, const QString& caption, const QKeySequence& shortcut);
};

} // namespace quillora::forms
