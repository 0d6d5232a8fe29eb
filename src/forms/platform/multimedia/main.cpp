// quillora-review-player HOST: plays one video after the other in the X window HOST of another process, as
// that process orders on the standard input, and tells on the standard output how far it is. See
// src/forms/video_process.h.

#include "orders.h"
#include "video_window.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QFile>
#include <QGuiApplication>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>
#include <QVideoSink>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/prctl.h>

namespace {

void tell(const char* what, const QByteArray& value)
{
    std::printf("%s %s\n", what, value.constData());
    std::fflush(stdout);
}

const char* nameOf(QMediaPlayer::PlaybackState state)
{
    switch (state) {
    case QMediaPlayer::PlayingState:
        return "playing";
    case QMediaPlayer::PausedState:
        return "paused";
    case QMediaPlayer::StoppedState:
        return "stopped";
    }
    return "stopped";
}

/// Carries out the orders.
class Player {
  public:
    explicit Player(VideoWindow& window) : m_window(window)
    {
        m_player.setVideoSink(&m_sink);
        // The back end ends the process where sound has nowhere to go.
        if (!QMediaDevices::defaultAudioOutput().isNull()) {
            m_sound = std::make_unique<QAudioOutput>();
            m_player.setAudioOutput(m_sound.get());
        }
        QObject::connect(&m_sink, &QVideoSink::videoFrameChanged, &m_window, &VideoWindow::showFrame);
        QObject::connect(&m_player, &QMediaPlayer::durationChanged, &m_player,
                         [](qint64 duration) { tell("duration", QByteArray::number(duration)); });
        QObject::connect(&m_player, &QMediaPlayer::positionChanged, &m_player,
                         [](qint64 position) { tell("position", QByteArray::number(position)); });
        QObject::connect(&m_player, &QMediaPlayer::mediaStatusChanged, &m_player,
                         [](QMediaPlayer::MediaStatus status) {
                             if (status == QMediaPlayer::InvalidMedia)
                                 tell("state", "nothing");
                         });
        QObject::connect(&m_player, &QMediaPlayer::playbackStateChanged, &m_player,
                         [](QMediaPlayer::PlaybackState state) { tell("state", nameOf(state)); });
    }

    void obey(const QByteArray& order, const QByteArray& value)
    {
        if (order == "open")
            open(QUrl::fromEncoded(value));
        else if (order == "play")
            m_player.play();
        else if (order == "pause")
            m_player.pause();
        else if (order == "seek")
            seek(value.toLongLong());
        else if (order == "volume" && m_sound)
            m_sound->setVolume(std::clamp(value.toFloat() / 100, 0.0F, 1.0F));
        else if (order == "size")
            resize(value.split(' '));
    }

  private:
    /// Hands the player an open file rather than a name: it makes mistakes with names that have blanks, and
    /// there are names that it would take for something else than a file.
    void open(const QUrl& video)
    {
        m_window.clear();
        m_player.setSource({});
        m_file = std::make_unique<QFile>(video.toLocalFile());
        if (m_file->open(QIODevice::ReadOnly))
            m_player.setSourceDevice(m_file.get());
        else
            tell("state", "nothing");
    }

    void seek(qint64 position)
    {
        // A video that has ended shows nothing of a place that it is sent to.
        if (m_player.playbackState() == QMediaPlayer::StoppedState)
            m_player.pause();
        m_player.setPosition(position);
    }

    void resize(const QList<QByteArray>& lengths)
    {
        if (lengths.size() == 2)
            m_window.setGeometry(0, 0, std::max(1, lengths[0].toInt()), std::max(1, lengths[1].toInt()));
    }

    VideoWindow& m_window;
    QVideoSink m_sink{};
    std::unique_ptr<QAudioOutput> m_sound{};
    std::unique_ptr<QFile> m_file{};
    QMediaPlayer m_player{};
};

} // namespace

int main(int argc, char** argv)
{
    // Without its recorder nobody could end it.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setenv("QT_MEDIA_BACKEND", "ffmpeg", 1);
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: quillora-review-player WINDOW\n", stderr);
        return EXIT_FAILURE;
    }
    VideoWindow window(arguments[1].toULongLong());
    Player player(window);
    Orders orders;
    QObject::connect(&orders, &Orders::given, &window,
                     [&](const QByteArray& order, const QByteArray& value) { player.obey(order, value); });
    window.show();
    return QGuiApplication::exec();
}
