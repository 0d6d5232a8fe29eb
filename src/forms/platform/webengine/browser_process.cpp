#include "forms/platform/webengine/browser_process.h"

#include "forms/platform/webengine/input_orders.h"
#include "panels/web_browser.h"

#include <QEvent>
#include <QProcess>
#include <QProcessEnvironment>

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <exception>
#include <utility>

namespace quillora::forms::webengine {

namespace {

/// Reports are a few numbers each.
constexpr quint32 kLongestReport = 1024;
/// A browser that doesn't read what it is told is not told where the pointer moves.
constexpr qint64 kMostUnread = 64 * 1024;

/// The browser's own protection against its pages is not for the administrator, and without it a page is not
/// shown. Tests, which serve their own pages, switch it off.
bool protectionIsMissing()
{
    return ::geteuid() == 0 && qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 0;
}

QProcessEnvironment browsersEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Painted by the processor: the picture has to come back to memory anyway, and no driver is needed.
    environment.insert("QT_QUICK_BACKEND", "software");
    // It reads its page aloud to nobody: the surface in the recorder's window is what assistants see.
    environment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "0");
    environment.remove("QTWEBENGINE_REMOTE_DEBUGGING");
    environment.remove("QTWEBENGINE_CHROMIUM_FLAGS");
    return environment;
}

} // namespace

BrowserProcess::BrowserProcess(std::filesystem::path program)
    : m_program(std::move(program)), m_reports(kLongestReport)
{}

BrowserProcess::~BrowserProcess()
{
    dropProcess();
    for (QProcess* dropped : findChildren<QProcess*>())
        dropped->waitForFinished();
}

void BrowserProcess::start()
{
    dropProcess();
    if (protectionIsMissing()) {
        end(tr("Quillora Recorder was started by the administrator (root). Web pages are shown to ordinary "
               "users only, whom the browser can protect from them."),
            Return::impossible);
        return;
    }
    try {
        launch();
    } catch (const std::exception&) {
        end(tr("The browser could not be started."), Return::possible);
    }
}

void BrowserProcess::launch()
{
    m_shared = std::make_unique<SharedPicture>();
    m_reports = MessageReader(kLongestReport);
    m_process = new QProcess(this);
    m_process->setProcessEnvironment(browsersEnvironment());
    m_process->setProcessChannelMode(QProcess::SeparateChannels);
    m_process->setStandardErrorFile(qEnvironmentVariableIsSet("QUILLORA_BROWSER_OUTPUT")
                                        ? qEnvironmentVariable("QUILLORA_BROWSER_OUTPUT")
                                        : QProcess::nullDevice());
    const int descriptor = m_shared->descriptor();
    m_process->setChildProcessModifier([descriptor] { ::fcntl(descriptor, F_SETFD, 0); });
    connect(m_process, &QProcess::readyReadStandardOutput, this, &BrowserProcess::readReports);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(tr("The browser is not installed, or could not be started."), Return::possible);
    });
    connect(m_process, &QProcess::finished, this,
            [this] { end(tr("The browser has stopped. The recorder is not affected."), Return::possible); });
    m_process->start(QString::fromStdString(m_program.string()), {QString::number(descriptor)});
}

void BrowserProcess::end(const QString& why, Return back)
{
    dropProcess();
    // Whoever called start() is told after it has returned, as with any other end.
    QMetaObject::invokeMethod(
        this, [this, why, back] { emit ended(why, back); }, Qt::QueuedConnection);
}

void BrowserProcess::dropProcess()
{
    if (m_process == nullptr)
        return;
    QProcess* process = std::exchange(m_process, nullptr);
    m_pictureSize = {};
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    // Nothing of it is kept, and this thread has a recording to care for: whatever state the process is in,
    // it is not waited for.
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
}

void BrowserProcess::send(const QByteArray& message)
{
    if (m_process != nullptr)
        m_process->write(message);
}

void BrowserProcess::navigate(const QString& address)
{
    if (address.size() <= panels::kLongestAddress)
        send(message(Order::navigate, address));
}

void BrowserProcess::goBack() { send(message(Order::back)); }

void BrowserProcess::goForward() { send(message(Order::forward)); }

void BrowserProcess::stop() { send(message(Order::stop)); }

void BrowserProcess::reload() { send(message(Order::reload)); }

void BrowserProcess::setSilent(bool silent) { send(message(Order::silent, silent)); }

void BrowserProcess::zoom(quint32 request, const QString& zoom) { send(message(Order::zoom, request, zoom)); }

void BrowserProcess::resize(QSize size) { send(message(Order::resize, size)); }

void BrowserProcess::setShown(bool shown) { send(message(Order::shown, shown)); }

void BrowserProcess::answerNewWindow(quint32 question, bool cancel)
{
    send(message(Order::newWindow, question, cancel));
}

void BrowserProcess::forward(const QEvent& event)
{
    const bool dispensable = event.type() == QEvent::MouseMove || event.type() == QEvent::Wheel;
    if (m_process == nullptr || (dispensable && m_process->bytesToWrite() > kMostUnread))
        return;
    if (const QByteArray order = inputOrder(event); !order.isEmpty())
        send(order);
}

QImage BrowserProcess::takePicture()
{
    if (m_process == nullptr || m_pictureSize.isEmpty())
        return {};
    const QImage shared(m_shared->bytes(), m_pictureSize.width(), m_pictureSize.height(),
                        qsizetype(m_pictureSize.width()) * 4, QImage::Format_RGB32);
    QImage picture = shared.copy();
    m_pictureSize = {};
    send(message(Order::pictureTaken));
    return picture;
}

qint64 BrowserProcess::processId() const { return m_process != nullptr ? m_process->processId() : 0; }

void BrowserProcess::readReports()
{
    m_reports.append(m_process->readAllStandardOutput());
    try {
        while (m_process != nullptr) {
            const auto report = m_reports.next();
            if (!report)
                return;
            handle(*report);
        }
    } catch (const std::exception&) {
        end(tr("The browser has stopped. The recorder is not affected."), Return::possible);
    }
}

void BrowserProcess::handle(const QByteArray& report)
{
    QDataStream in(report);
    quint8 kind = 0;
    in >> kind;
    switch (Report(kind)) {
    case Report::picture: {
        QSize size;
        in >> size;
        if (in.status() != QDataStream::Ok || !fitsThePicture(size))
            return;
        m_pictureSize = size;
        emit pictureReady();
        return;
    }
    case Report::pointer: {
        qint32 shape = 0;
        in >> shape;
        if (shape >= 0 && shape <= Qt::LastCursor)
            emit pointerChanged(Qt::CursorShape(shape));
        return;
    }
    case Report::newWindow: {
        quint32 question = 0;
        in >> question;
        emit newWindowAsked(question);
        return;
    }
    case Report::zoomed: {
        quint32 request = 0;
        bool applied = false;
        in >> request >> applied;
        emit zoomed(request, applied);
        return;
    }
    case Report::focusPassed: {
        bool forwards = true;
        in >> forwards;
        emit focusPassed(forwards);
        return;
    }
    case Report::pageStarted:
        emit pageStarted();
        return;
    case Report::pageStopped:
        emit pageStopped();
        return;
    }
}

} // namespace quillora::forms::webengine
