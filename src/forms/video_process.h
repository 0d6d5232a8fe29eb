#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QWindow>

#include <filesystem>

namespace quillora::forms {

/// The program `quillora-review-player`, which shows a video inside a window of this process. It reads
/// strangers' files with libraries that have crashed on some; on its own it can take nothing with it, least
/// of all a recording that is paused meanwhile. It also keeps what these libraries need in memory away from
/// the recorder.
///
/// It is started with a video where it doesn't run, and ends with this object at the latest. Orders are given
/// in lines of text, and answers come back so; what is no answer is dropped.
class VideoProcess : public QObject {
    Q_OBJECT

  public:
    enum class State { stopped, paused, playing };

    /// The video is shown in the window @p host.
    VideoProcess(const std::filesystem::path& program, WId host, QObject* parent);
    ~VideoProcess() override;

    /// Loads a video, in place of the one before.
    void open(const std::filesystem::path& path);
    /// Ends the program, so that nothing is loaded any more.
    void end();

    void play() { order("play"); }
    void pause() { order("pause"); }
    void seek(qint64 milliseconds) { order("seek " + QByteArray::number(milliseconds)); }
    /// From 0 to 100.
    void setVolume(int percent);
    /// Size of the host window.
    void resize(QSize size);

  signals:
    /// Milliseconds; 0 where none is known.
    void durationChanged(qint64 milliseconds);
    void positionChanged(qint64 milliseconds);
    void stateChanged(quillora::forms::VideoProcess::State state);
    /// Nothing is loaded any more, for whatever reason.
    void ended();

  private:
    void start();
    void order(const QByteArray& line);
    void readAnswers();
    void takeAnswer(const QByteArray& line);

    QString m_program;
    WId m_host;
    QProcess m_process{};
    QSize m_size{};
    int m_volume = 100;
};

} // namespace quillora::forms
