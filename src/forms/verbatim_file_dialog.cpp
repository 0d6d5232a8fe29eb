#include "forms/verbatim_file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>

namespace quillora::forms {

namespace {

/// Wide enough for long names beside their dates.
constexpr QSize kSize{820, 500};
constexpr int kNameColumn = 0;
constexpr int kKindColumn = 2;

} // namespace

VerbatimFileDialog::VerbatimFileDialog(QWidget* owner) : QFileDialog(owner)
{
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setFileMode(QFileDialog::AnyFile);
    resize(kSize);
    if (auto* details = findChild<QTreeView*>(QStringLiteral("treeView"))) {
        details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        details->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
        details->hideColumn(kKindColumn);
    }
}

void VerbatimFileDialog::propose(const QString& path)
{
    const QFileInfo proposed(path);
    if (proposed.isAbsolute())
        setDirectory(proposed.absolutePath());
    selectFile(proposed.fileName());
}

QString VerbatimFileDialog::namedPath() const
{
    const auto* nameField = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (nameField != nullptr && !nameField->text().isEmpty())
        return QDir::cleanPath(directory().absoluteFilePath(nameField->text()));
    // A file can be chosen in the list without its name having reached the field.
    return selectedFiles().value(0);
}

void VerbatimFileDialog::accept()
{
    const QString path = namedPath();
    if (path.isEmpty() || QFileInfo(path).isDir()) {
        QFileDialog::accept();
        return;
    }
    m_chosenPath = path;
    QDialog::accept();
}

} // namespace quillora::forms
