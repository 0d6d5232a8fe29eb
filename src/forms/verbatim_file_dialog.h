#pragma once

#include <QFileDialog>

namespace quillora::forms {

/// A file dialog that takes a name exactly as it stands in the name field: no extension is added, nothing is
/// asked about a file that is there already or is not there, and quotes and tildes are letters like any
/// other. A name of a folder opens that folder.
class VerbatimFileDialog : public QFileDialog {
    Q_OBJECT

  public:
    explicit VerbatimFileDialog(QWidget* owner);

    /// Puts a path into the name field, and opens its folder.
    void propose(const QString& path);

    /// Full path; empty unless the dialog was accepted.
    const QString& chosenPath() const { return m_chosenPath; }

    void accept() override;

  private:
    QString namedPath() const;

    QString m_chosenPath;
};

} // namespace quillora::forms
