#include "forms/video_process.h"

#include <QUrl>

#include <algorithm>
#include <optional>

namespace quillora::forms {

namespace {

constexpr int kEndPatienceMs = 300;
constexpr qint64 kLongestLine = 1000;

std::optional<VideoProcess::State> stateNamed(const QByteArray& name)
{
    if (name == "playing")
        return VideoProcess::State::playing;
    if (name == "paused")
        return VideoProcess::State::paused;
    if (name == "stopped")
        return VideoProcess::State::stopped;
    return std::nullopt;
}

} // namespace

VideoProcess::VideoProcess(const std::filesystem::path& program, WId host, QObject* parent)
    : QObject(parent), m_program(QString::fromStdString(program.string())), m_host(host)
{
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &VideoProcess::readAnswers);
    connect(&m_process, &QProcess::finished, this, &VideoProcess::ended);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            emit ended();
    });
}

VideoProcess::~VideoProcess()
{
    disconnect(&m_process, nullptr, this, nullptr);
    end();
}

void VideoProcess::start()
{
    m_process.start(m_program, {QString::number(m_host)});
    resize(m_size);
    setVolume(m_volume);
}

void VideoProcess::open(const std::filesystem::path& path)
{
    if (m_process.state() == QProcess::NotRunning)
        start();
    // As a URL a path has neither blanks nor line ends.
    order("open " + QUrl::fromLocalFile(QString::fromStdString(path.string())).toEncoded());
}

void VideoProcess::end()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(kEndPatienceMs)) {
        m_process.kill();
        m_process.waitForFinished(kEndPatienceMs);
    }
}

void VideoProcess::setVolume(int percent)
{
    m_volume = percent;
    order("volume " + QByteArray::number(percent));
}

void VideoProcess::resize(QSize size)
{
    m_size = size;
    order("size " + QByteArray::number(size.width()) + " " + QByteArray::number(size.height()));
}

void VideoProcess::order(const QByteArray& line)
{
    if (m_process.state() != QProcess::NotRunning)
        m_process.write(line + "\n");
}

void VideoProcess::readAnswers()
{
    while (m_process.canReadLine())
        takeAnswer(m_process.readLine(kLongestLine).trimmed());
    // A program that has lost its mind must not fill the memory with a line that never ends.
    if (m_process.bytesAvailable() > kLongestLine)
        m_process.readAllStandardOutput();
}

void VideoProcess::takeAnswer(const QByteArray& line)
{
    const auto blank = line.indexOf(' ');
    if (blank < 0)
        return;
    const QByteArray what = line.left(blank);
    const QByteArray value = line.mid(blank + 1);
    bool isNumber = false;
    const qint64 milliseconds = std::max<qint64>(0, value.toLongLong(&isNumber));
    if (what == "duration" && isNumber)
        emit durationChanged(milliseconds);
    else if (what == "position" && isNumber)
        emit positionChanged(milliseconds);
    else if (what == "state" && value == "nothing")
        emit ended();
    else if (const auto state = stateNamed(value); what == "state" && state)
        emit stateChanged(*state);
}

} // namespace quillora::forms
