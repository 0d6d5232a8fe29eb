#pragma once

#include <QApplication>
#include <QWidget>

namespace quillora::forms {

/// Whom a dialog belongs to that is asked for now: the dialog that waits for the presenter at the moment, or
/// the main form. One that belonged to the main form could come to lie behind the dialog that it was called
/// from.
inline QWidget* dialogOwner(QWidget& mainForm)
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog != nullptr ? dialog : &mainForm;
}

} // namespace quillora::forms
