#pragma once

#include "base/dialogs.h"

#include <QString>

class QWidget;

namespace quillora::forms {

/// `CommonDialog1`: one dialog for files, owned by the main form. It opens in the folder where it was last
/// used. A name is taken as it was typed, also one of a file that is not there: what becomes of it is for the
/// operation that asked. DefaultExt is not used.
///
/// A proposed name that is a list of masks, such as "*.ppt; *.pptx", is not put into the name field, where it
/// would be in the way; files of all its masks are shown first, and FilterIndex stays what it was unless the
/// presenter chooses one of the filter's own pairs.
class QtCommonDialog : public base::CommonDialog {
  public:
    /// @p owner outlives the dialog.
    explicit QtCommonDialog(QWidget& owner);

    void ShowOpen() override;
    void ShowSave() override;

  private:
    enum class Kind { open, save };
    void show(Kind kind);

    QWidget& m_owner;
    QString m_folder;
};

} // namespace quillora::forms
