#pragma once

#include "panels/links.h"

#include <QDialog>

#include <string>

namespace quillora::forms {

/// The dialog that tells what the program is. OK and Escape hide it and keep it; its close box unloads it,
/// which is what Form_Unload tells.
class frmAbout : public QDialog, public panels::AboutForm {
    Q_OBJECT

  public:
    /// @p owner is the main form, @p version the text of `version_lb`.
    frmAbout(QWidget* owner, const std::string& version);

    void showModal() override;
    /// Escape: the button is both the default and the cancel button.
    void reject() override { hide(); }

  signals:
    void Label1_Click();
    void Form_Unload();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void makeLogo();
    void makeText();
    void makeFoot(const std::string& version);
};

} // namespace quillora::forms
