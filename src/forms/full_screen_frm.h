#pragma once

#include <QDialog>

class QRadioButton;

namespace quillora::forms {

/// The dialog that chooses what of the screen is recorded. It stands alone, since the main form is away while
/// it is shown, and keeps its choice while it is hidden. It sends what the presenter does and doesn't close
/// itself.
class FullScreen_frm : public QDialog {
    Q_OBJECT

  public:
    FullScreen_frm();

    bool mouse_opt() const;
    /// What the close box and the key Escape mean: without it the main form would not come back.
    void reject() override { emit Command2_Click(); }

  signals:
    /// Start.
    void Command1_Click();
    /// Cancel.
    void Command2_Click();

  private:
    QWidget* makePicture();
    QWidget* makeHint();
    QRadioButton* makeOption(const char* name, const QString& caption);
    QWidget* makeButtons();

    QRadioButton* m_mouse_opt = nullptr;
};

} // namespace quillora::forms
