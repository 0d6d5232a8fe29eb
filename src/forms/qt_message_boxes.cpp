#include "forms/qt_message_boxes.h"

#include "forms/dialog_owner.h"

#include <QMessageBox>

namespace quillora::forms {

namespace {

QMessageBox::Icon iconOf(base::BoxIcon icon)
{
    switch (icon) {
    case base::BoxIcon::none:
        return QMessageBox::NoIcon;
    case base::BoxIcon::information:
        return QMessageBox::Information;
    case base::BoxIcon::warning:
        return QMessageBox::Warning;
    case base::BoxIcon::critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QString withLineEnds(const std::string& text)
{
    return QString::fromStdString(text)
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(u'\r', u'\n');
}

void addButtons(QMessageBox& shown, base::BoxButtons buttons)
{
    if (buttons == base::BoxButtons::ok) {
        shown.setStandardButtons(QMessageBox::Ok);
        return;
    }
    shown.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    shown.setDefaultButton(buttons == base::BoxButtons::yesNoDefaultNo ? QMessageBox::No : QMessageBox::Yes);
    shown.setEscapeButton(QMessageBox::No);
}

} // namespace

base::BoxAnswer QtMessageBoxes::show(const base::MessageBox& box)
{
    QMessageBox shown(dialogOwner(m_owner));
    shown.setObjectName("MessageBox");
    shown.setWindowTitle(QString::fromStdString(box.title));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(withLineEnds(box.text));
    shown.setIcon(iconOf(box.icon));
    addButtons(shown, box.buttons);
    shown.exec();
    if (box.buttons == base::BoxButtons::ok)
        return base::BoxAnswer::ok;
    return shown.result() == QMessageBox::Yes ? base::BoxAnswer::yes : base::BoxAnswer::no;
}

} // namespace quillora::forms
