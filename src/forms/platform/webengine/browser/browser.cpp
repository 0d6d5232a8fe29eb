#include "forms/platform/webengine/browser/browser.h"

#include "forms/platform/webengine/browser/guarded_page.h"
#include "forms/platform/webengine/browser/page_window.h"
#include "forms/platform/webengine/browser/typed_address.h"
#include "forms/platform/webengine/input_orders.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <utility>

namespace quillora::forms::webengine {

namespace {

/// More at a time no presenter has opened.
constexpr std::size_t kMostWindows = 8;
/// A page that is told to go, and doesn't answer for so long, hangs.
constexpr std::chrono::milliseconds kPatience{2000};

/// @p text as a literal of the script language.
QString quoted(const QString& text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

} // namespace

Browser::Browser(RecorderLink& recorder, SharedPicture& picture)
    : m_recorder(recorder), m_view(picture.bytes())
{
    restrict(m_profile);
    m_page = new GuardedPage(
        m_profile, {.isSilent = [this] { return m_silent; }, .openWindow = [this] { return openWindow(); }},
        &m_view);
    m_view.setPage(m_page);
    connectView();
    connect(&m_recorder, &RecorderLink::ordered, this, &Browser::handle);
}

Browser::~Browser() = default;

void Browser::connectView()
{
    connect(&m_view, &HiddenView::painted, this,
            [this](QSize size) { m_recorder.report(message(Report::picture, size)); });
    connect(&m_view, &HiddenView::focusPassed, this,
            [this](bool forwards) { m_recorder.report(message(Report::focusPassed, forwards)); });
    connect(&m_view, &HiddenView::pointerChanged, this,
            [this](Qt::CursorShape shape) { m_recorder.report(message(Report::pointer, qint32(shape))); });
    m_leavingPatience.setSingleShot(true);
    connect(&m_leavingPatience, &QTimer::timeout, this, &Browser::killHangingPage);
    connect(m_page, &QWebEnginePage::urlChanged, &m_leavingPatience, &QTimer::stop);
    connect(m_page, &QWebEnginePage::loadStarted, this,
            [this] { m_recorder.report(message(Report::pageStarted)); });
    connect(m_page, &QWebEnginePage::renderProcessTerminated, this, &Browser::pageEnded);
}

void Browser::handle(const QByteArray& bytes)
{
    QDataStream in(bytes);
    quint8 kind = 0;
    in >> kind;
    switch (Order(kind)) {
    case Order::navigate: {
        QString text;
        in >> text;
        navigate(text);
        return;
    }
    case Order::back:
        leave([this] { m_page->triggerAction(QWebEnginePage::Back); });
        return;
    case Order::forward:
        leave([this] { m_page->triggerAction(QWebEnginePage::Forward); });
        return;
    case Order::stop:
        m_page->triggerAction(QWebEnginePage::Stop);
        return;
    case Order::reload:
        leave([this] { m_page->triggerAction(QWebEnginePage::Reload); });
        return;
    case Order::silent:
        in >> m_silent;
        return;
    case Order::zoom: {
        quint32 request = 0;
        QString text;
        in >> request >> text;
        zoom(request, text);
        return;
    }
    case Order::resize: {
        QSize size;
        in >> size;
        m_view.resize(size);
        return;
    }
    case Order::shown: {
        bool shown = false;
        in >> shown;
        m_view.setVisible(shown);
        return;
    }
    case Order::pictureTaken:
        m_view.pictureTaken();
        return;
    case Order::newWindow:
        // The answer to a question that is no longer waited for.
        return;
    default:
        replayInput(Order(kind), in, m_view, m_view.pageWidget());
        return;
    }
}

void Browser::navigate(const QString& text)
{
    if (const auto address = typedAddress(text))
        leave([this, address] { m_page->load(*address); });
}

void Browser::leave(std::function<void()> leave)
{
    // One that has crashed holds nobody up, and would never answer.
    if (m_page->renderProcessPid() == 0) {
        leave();
        return;
    }
    // A page of the same site is loaded by the same process, which a script without end never lets go.
    m_leaving = std::move(leave);
    m_leavingPatience.start(kPatience);
    m_page->runJavaScript(QStringLiteral("0"), [this](const QVariant&) { m_leavingPatience.stop(); });
    m_leaving();
}

void Browser::killHangingPage()
{
    const qint64 process = m_page->renderProcessPid();
    m_killed = process > 0 && ::kill(pid_t(process), SIGKILL) == 0;
}

void Browser::pageEnded()
{
    m_leavingPatience.stop();
    // Killed for not letting go: what it didn't let go to comes now.
    if (std::exchange(m_killed, false))
        m_leaving();
    else
        m_recorder.report(message(Report::pageStopped));
}

void Browser::zoom(quint32 request, const QString& zoom)
{
    const QString script = QStringLiteral("(() => { if (!document.body) return false;"
                                          " document.body.style.zoom = %1; return true; })()");
    m_page->runJavaScript(script.arg(quoted(zoom)), [this, request](const QVariant& result) {
        m_recorder.report(message(Report::zoomed, request, result.toBool()));
    });
}

QWebEnginePage* Browser::openWindow()
{
    std::erase_if(m_windows, [](const QPointer<PageWindow>& window) { return window.isNull(); });
    if (m_windows.size() >= kMostWindows || m_recorder.newWindowIsRefused())
        return nullptr;
    auto* window = new PageWindow(
        m_profile, {.isSilent = [this] { return m_silent; }, .openWindow = [this] { return openWindow(); }});
    m_windows.emplace_back(window);
    window->show();
    return window->page();
}

} // namespace quillora::forms::webengine
