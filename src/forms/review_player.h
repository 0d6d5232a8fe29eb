#pragma once

#include "forms/video_process.h"
#include "session/preview_form.h"

#include <QWidget>

#include <filesystem>

class QLabel;
class QSlider;

namespace quillora::forms {

class CommandButton;

/// The player `WindowsMediaPlayer1`: the video's screen, and below it what a presenter plays it by. The keys
/// Space, Left, Right, Up, Down and F11 do the same where no control has them for itself. A file that isn't a
/// video by what is in it never reaches the program that plays; the player is idle then.
class ReviewPlayer : public QWidget, public session::VideoPlayer {
    Q_OBJECT

  public:
    /// @p program is where `quillora-review-player` lies.
    ReviewPlayer(const std::filesystem::path& program, QWidget* parent);

    void setURL(const std::string& path) override;
    void play() override;

  signals:
    void fullScreenAsked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void makeScreen();
    QWidget* makeControls();
    void connectVideo();
    void becomeIdle();
    void playOrPause();
    void undoClick();
    void step(qint64 milliseconds);
    void showState(VideoProcess::State state);
    void showTime();

    QWidget* m_screen = nullptr;
    CommandButton* m_playButton = nullptr;
    QSlider* m_seek = nullptr;
    QLabel* m_time = nullptr;
    QSlider* m_volume = nullptr;
    QWidget* m_controls = nullptr;
    VideoProcess* m_video = nullptr;
    VideoProcess::State m_state = VideoProcess::State::stopped;
    bool m_loaded = false;
    bool m_playedBeforeClick = false;
};

} // namespace quillora::forms
