#include "forms/verbatim_file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>

namespace quillora::forms {

VerbatimFileDialog::VerbatimFileDialog(QWidget* owner) : QFileDialog(owner)
{
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setFileMode(QFileDialog::AnyFile);
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
