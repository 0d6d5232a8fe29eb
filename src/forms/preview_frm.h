#pragma once

#include <QDialog>

#include <filesystem>

namespace quillora::forms {

class ReviewPlayer;

/// The dialog in which a lecture is reviewed: a player, and buttons to choose another container and to close.
/// It sends what the presenter does and doesn't close itself.
class preview_frm : public QDialog {
    Q_OBJECT

  public:
    /// @p playerProgram is where `quillora-review-player` lies.
    preview_frm(const std::filesystem::path& playerProgram, QWidget* owner);

    ReviewPlayer& WindowsMediaPlayer1() { return *m_player; }
    /// What the close box means, and the key Escape once the whole screen is not filled.
    void reject() override;

  signals:
    /// Close.
    void Command1_Click();
    /// Review; its button is never shown.
    void Command2_Click();
    /// Browse.
    void Command3_Click();

  private:
    QWidget* makeButtons();
    void turnFullScreen();

    ReviewPlayer* m_player;
    QWidget* m_buttons;
};

} // namespace quillora::forms
