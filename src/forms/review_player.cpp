#include "forms/review_player.h"

#include "forms/command_button.h"
#include "forms/look.h"
#include "session/video_signature.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>

namespace quillora::forms {

namespace {

constexpr QSize kScreenSize{746, 420};
constexpr int kStepMs = 5000;
constexpr int kVolumeStep = 5;

QString timeText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    const auto twoDigits = [](qint64 number) { return QString::number(number).rightJustified(2, u'0'); };
    const QString minutesOn =
        QString::number(seconds / 60 % 60).rightJustified(seconds < 3600 ? 1 : 2, u'0') + u':' +
        twoDigits(seconds % 60);
    return seconds < 3600 ? minutesOn : QString::number(seconds / 3600) + u':' + minutesOn;
}

} // namespace

ReviewPlayer::ReviewPlayer(const std::filesystem::path& program, QWidget* parent) : QWidget(parent)
{
    setObjectName("WindowsMediaPlayer1");
    setAccessibleName(tr("Player"));
    makeScreen();
    m_controls = makeControls();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_screen, 1);
    column->addWidget(m_controls);
    m_video = new VideoProcess(program, m_screen->winId(), this);
    connectVideo();
    becomeIdle();
}

void ReviewPlayer::makeScreen()
{
    m_screen = new QWidget(this);
    m_screen->setObjectName("video_screen");
    m_screen->setAccessibleName(tr("Video"));
    m_screen->setMinimumSize(kScreenSize);
    // A window of its own, which another process can draw into and which stays the same for life.
    m_screen->setAttribute(Qt::WA_DontCreateNativeAncestors);
    m_screen->setAttribute(Qt::WA_NativeWindow);
    m_screen->setFocusPolicy(Qt::StrongFocus);
    QPalette black;
    black.setColor(QPalette::Window, Qt::black);
    m_screen->setPalette(black);
    m_screen->setAutoFillBackground(true);
    m_screen->installEventFilter(this);
}

QWidget* ReviewPlayer::makeControls()
{
    auto* bar = new QWidget(this);
    bar->setObjectName("player_controls");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(6, 6, 6, 6);
    row->setSpacing(10);
    using Face = CommandButton::Face;

    m_playButton = new CommandButton(Face::iconOnly, "play", {}, tr("Play"), bar);
    m_playButton->setObjectName("player_play");
    connect(m_playButton, &QToolButton::clicked, this, &ReviewPlayer::playOrPause);
    row->addWidget(m_playButton);

    m_seek = new QSlider(Qt::Horizontal, bar);
    m_seek->setObjectName("player_seek");
    m_seek->setAccessibleName(tr("Position"));
    m_seek->setSingleStep(kStepMs);
    m_seek->setPageStep(2 * kStepMs);
    connect(m_seek, &QSlider::actionTriggered, this, [this] {
        m_video->seek(m_seek->sliderPosition());
        showTime();
    });
    row->addWidget(m_seek, 1);

    m_time = new QLabel(bar);
    m_time->setObjectName("player_time");
    m_time->setAccessibleName(tr("Time"));
    row->addWidget(m_time);

    auto* loudspeaker = new QLabel(bar);
    loudspeaker->setPixmap(drawnIcon("volume").pixmap(20, 20));
    row->addWidget(loudspeaker);
    m_volume = new QSlider(Qt::Horizontal, bar);
    m_volume->setObjectName("player_volume");
    m_volume->setAccessibleName(tr("Volume"));
    m_volume->setRange(0, 100);
    m_volume->setSingleStep(kVolumeStep);
    m_volume->setValue(100);
    m_volume->setFixedWidth(96);
    connect(m_volume, &QSlider::valueChanged, this, [this](int percent) { m_video->setVolume(percent); });
    row->addWidget(m_volume);

    auto* fullScreen = new CommandButton(Face::iconOnly, "fullscreen", {}, tr("Full screen"), bar);
    fullScreen->setObjectName("player_fullscreen");
    connect(fullScreen, &QToolButton::clicked, this, &ReviewPlayer::fullScreenAsked);
    row->addWidget(fullScreen);
    return bar;
}

void ReviewPlayer::connectVideo()
{
    connect(m_video, &VideoProcess::durationChanged, this, [this](qint64 milliseconds) {
        m_seek->setRange(0, int(std::min<qint64>(milliseconds, std::numeric_limits<int>::max())));
        showTime();
    });
    connect(m_video, &VideoProcess::positionChanged, this, [this](qint64 milliseconds) {
        if (!m_seek->isSliderDown())
            m_seek->setValue(int(std::min<qint64>(milliseconds, std::numeric_limits<int>::max())));
        showTime();
    });
    connect(m_video, &VideoProcess::stateChanged, this, &ReviewPlayer::showState);
    connect(m_video, &VideoProcess::ended, this, &ReviewPlayer::becomeIdle);
}

void ReviewPlayer::setURL(const std::string& path)
{
    // Also where a video follows: a program that hangs on the one before would never hear of it.
    m_video->end();
    becomeIdle();
    if (!session::isWindowsMedia(path))
        return;
    m_loaded = true;
    m_controls->setEnabled(true);
    m_video->open(path);
}

void ReviewPlayer::play()
{
    if (m_loaded)
        m_video->play();
}

void ReviewPlayer::becomeIdle()
{
    m_loaded = false;
    m_seek->setRange(0, 0);
    m_controls->setEnabled(false);
    showState(VideoProcess::State::stopped);
    showTime();
    m_screen->update();
}

void ReviewPlayer::playOrPause()
{
    if (!m_loaded)
        return;
    if (m_state == VideoProcess::State::playing)
        m_video->pause();
    else
        m_video->play();
}

void ReviewPlayer::step(qint64 milliseconds)
{
    if (m_loaded)
        m_video->seek(std::clamp<qint64>(m_seek->value() + milliseconds, 0, m_seek->maximum()));
}

void ReviewPlayer::showState(VideoProcess::State state)
{
    m_state = state;
    const bool playing = state == VideoProcess::State::playing;
    m_playButton->setIcon(drawnIcon(playing ? "pause" : "play"));
    m_playButton->setAccessibleName(playing ? tr("Pause") : tr("Play"));
    m_playButton->setToolTip(m_playButton->accessibleName());
}

void ReviewPlayer::showTime()
{
    m_time->setText(timeText(m_seek->sliderPosition()) + " / " + timeText(m_seek->maximum()));
}

bool ReviewPlayer::eventFilter(QObject* watched, QEvent* event)
{
    const auto isLeftClick = [&] { return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton; };
    if (event->type() == QEvent::Resize) {
        m_video->resize(m_screen->size());
    } else if (event->type() == QEvent::MouseButtonPress && isLeftClick()) {
        m_playedBeforeClick = m_state == VideoProcess::State::playing;
        playOrPause();
    } else if (event->type() == QEvent::MouseButtonDblClick && isLeftClick()) {
        undoClick();
        emit fullScreenAsked();
    }
    return QWidget::eventFilter(watched, event);
}

/// A double click begins with a click, which was none. What came of it may not be known yet.
void ReviewPlayer::undoClick()
{
    if (!m_loaded)
        return;
    if (m_playedBeforeClick)
        m_video->play();
    else
        m_video->pause();
}

void ReviewPlayer::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        return playOrPause();
    case Qt::Key_Left:
        return step(-kStepMs);
    case Qt::Key_Right:
        return step(kStepMs);
    case Qt::Key_Up:
        return m_volume->setValue(m_volume->value() + kVolumeStep);
    case Qt::Key_Down:
        return m_volume->setValue(m_volume->value() - kVolumeStep);
    case Qt::Key_F11:
        emit fullScreenAsked();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace quillora::forms
