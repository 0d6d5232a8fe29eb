#include "forms/qt_common_dialog.h"

#include "forms/dialog_owner.h"
#include "forms/file_filters.h"
#include "forms/verbatim_file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace quillora::forms {

namespace {

QString firstFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

} // namespace

QtCommonDialog::QtCommonDialog(QWidget& owner) : m_owner(owner), m_folder(firstFolder()) {}

void QtCommonDialog::ShowOpen() { show(Kind::open); }

void QtCommonDialog::ShowSave() { show(Kind::save); }

void QtCommonDialog::show(Kind kind)
{
    VerbatimFileDialog dialog(dialogOwner(m_owner));
    dialog.setObjectName("CommonDialog1");
    dialog.setWindowTitle(QString::fromStdString(DialogTitle));
    dialog.setAcceptMode(kind == Kind::save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setDirectory(m_folder);

    const QString proposed = QString::fromStdString(FileName);
    const QString masks = maskFilter(proposed);
    const QStringList pairs = nameFilters(QString::fromStdString(Filter));
    dialog.setNameFilters(masks.isEmpty() ? pairs : QStringList(masks) + pairs);
    if (!masks.isEmpty()) {
        dialog.selectNameFilter(masks);
    } else {
        if (FilterIndex >= 1 && FilterIndex <= pairs.size())
            dialog.selectNameFilter(pairs[FilterIndex - 1]);
        if (!proposed.isEmpty())
            dialog.propose(proposed);
    }

    if (dialog.exec() != QDialog::Accepted)
        return;
    const QFileInfo chosen(dialog.chosenPath());
    m_folder = chosen.absolutePath();
    FileName = chosen.filePath().toStdString();
    FileTitle = chosen.fileName().toStdString();
    if (const qsizetype pair = pairs.indexOf(dialog.selectedNameFilter()); pair >= 0)
        FilterIndex = int(pair) + 1;
}

} // namespace quillora::forms
