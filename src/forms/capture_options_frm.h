#pragma once

#include "session/option_controls.h"

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QRadioButton;

namespace quillora::forms {

/// The dialog "Recording Options". It shows controls and sends what the presenter does as signals that carry
/// the names of the events; it neither closes itself nor changes a value by itself. The controls that nothing
/// reads are there and never shown.
class CaptureOptions_frm : public QDialog {
    Q_OBJECT

  public:
    explicit CaptureOptions_frm(QWidget* owner);

    void showControls(const session::OptionControls& controls);
    /// What the close box and the key Escape mean.
    void reject() override { emit Command2_Click(); }

  signals:
    /// OK.
    void Command1_Click();
    /// Cancel.
    void Command2_Click();
    void UpDown1_UpClick();
    void UpDown1_DownClick();
    void UpDown2_UpClick();
    void UpDown2_DownClick();
    void txtfps_Change(const std::string& text);
    void bitrate_txt_Change(const std::string& text);
    void capturecursor_chk_Click(bool checked);
    void highlightCursor_chk_Click(bool checked);
    void sizeClick(session::ShowSize size);
    void Picture6_Click();
    void Picture1_Click();
    void Picture4_Click();
    void Picture2_Click();

  private:
    QWidget* makeVideoOptions();
    void addNumber(QGridLayout& grid, int row, const char* label, QLineEdit*& box, const QString& spokenName);
    QWidget* makeHelp(const char* name, const QString& spokenName, void (CaptureOptions_frm::*clicked)());
    QWidget* makeButtons();
    void makeUnreachable();
    void makeUnreachablePlaces(QWidget* parent);
    void showCaptions(session::Language language);
    void showUnreachable(const session::OptionControls& controls);

    /// Puts a caption into its control, by the language.
    struct Captioned {
        std::string control{};
        std::function<void(const QString&)> setText{};
    };
    template <typename Control>
    Control* captioned(Control* control, const char* name);

    std::vector<Captioned> m_captioned{};
    QLineEdit* m_txtfps = nullptr;
    QLineEdit* m_bitrate_txt = nullptr;
    QCheckBox* m_capturecursor_chk = nullptr;
    QCheckBox* m_highlightCursor_chk = nullptr;
    QComboBox* m_VideoCodecs_cmb = nullptr;
};

} // namespace quillora::forms
