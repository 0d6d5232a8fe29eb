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

void VerbatimFileDialog::accept()
{
    const auto* nameField = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString name = nameField != nullptr ? nameField->text() : QString();
    const QString path = QDir::cleanPath(directory().absoluteFilePath(name));
    if (name.isEmpty() || QFileInfo(path).isDir()) {
        QFileDialog::accept();
        return;
    }
    m_chosenPath = path;
    QDialog::accept();
}

} // namespace quillora::forms
