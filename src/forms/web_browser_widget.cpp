#include "forms/web_browser_widget.h"

#include "forms/look.h"
#include "forms/page_host.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QTimer>

#include <utility>

namespace quillora::forms {

namespace {

using panels::ZoomOutcome;

/// A page that runs its own script for so long is one that the presenter has given up on.
constexpr int kZoomPatienceMs = 3000;

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Leave:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        return true;
    default:
        return false;
    }
}

/// Events that would go on to the stage, or move the focus, if the page didn't have them.
bool isThePagesAlone(QEvent::Type type)
{
    return type != QEvent::Leave && type != QEvent::FocusIn && type != QEvent::FocusOut;
}

} // namespace

WebBrowserWidget::WebBrowserWidget(const char* controlName, const QString& spokenName, QWidget* parent)
    : QWidget(parent), m_notice(new BrowserNotice(this))
{
    setObjectName(controlName);
    setAccessibleName(spokenName);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Tells the presenter's keys that typing goes on here.
    setAttribute(Qt::WA_InputMethodEnabled);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    connect(m_notice, &BrowserNotice::reloadClicked, this, &WebBrowserWidget::reload);
}

WebBrowserWidget::~WebBrowserWidget() = default;

void WebBrowserWidget::setPageHost(PageHost& host)
{
    m_host = &host;
    connectHost();
    if (isVisible())
        QTimer::singleShot(0, this, &WebBrowserWidget::begin);
}

void WebBrowserWidget::connectHost()
{
    PageHost* host = m_host;
    connect(host, &PageHost::pictureReady, this, [this] {
        m_pictureWaits = true;
        // What lies behind another surface is played, but not painted.
        if (!visibleRegion().isEmpty())
            takePicture();
    });
    connect(host, &PageHost::pointerChanged, this, [this](Qt::CursorShape shape) { setCursor(shape); });
    connect(host, &PageHost::newWindowAsked, this, &WebBrowserWidget::askForNewWindow);
    connect(host, &PageHost::zoomed, this, [this](quint32 request, bool applied) {
        finishZoom(request, applied ? ZoomOutcome::applied : ZoomOutcome::failed);
    });
    connect(host, &PageHost::focusPassed, this, [this](bool forwards) { focusNextPrevChild(forwards); });
    // Not at the command: where there is nothing to go back to, the notice is still true.
    connect(host, &PageHost::pageStarted, m_notice, &QWidget::hide);
    connect(host, &PageHost::pageStopped, this, &WebBrowserWidget::pageStopped);
    connect(host, &PageHost::ended, this, [this](const QString& why, PageHost::Return back) {
        hostEnded(why, back == PageHost::Return::possible ? BrowserNotice::Offer::reload
                                                          : BrowserNotice::Offer::nothing);
    });
    connect(host, &QObject::destroyed, this, [this] { m_life = Life::ended; });
}

void WebBrowserWidget::Navigate(const std::string& address)
{
    const bool first = m_address.isNull();
    m_address = QString::fromStdString(address);
    if (m_address.isNull())
        m_address = QStringLiteral("");
    if (m_life == Life::running) {
        m_notice->hide();
        m_host->navigate(m_address);
    } else if (!first || isVisible()) {
        begin();
    }
}

void WebBrowserWidget::begin()
{
    if (m_host == nullptr || m_life == Life::running)
        return;
    m_life = Life::running;
    m_notice->hide();
    m_host->start();
    m_host->setSilent(m_silent);
    m_host->resize(size());
    m_host->setShown(isVisible());
    if (!m_address.isNull())
        m_host->navigate(m_address);
}

void WebBrowserWidget::reload()
{
    m_notice->hide();
    if (m_life == Life::running)
        m_host->reload();
    else
        begin();
    setFocus();
}

void WebBrowserWidget::GoBack()
{
    if (m_life == Life::running)
        m_host->goBack();
}

void WebBrowserWidget::GoForward()
{
    if (m_life == Life::running)
        m_host->goForward();
}

void WebBrowserWidget::Stop()
{
    if (m_life == Life::running)
        m_host->stop();
}

void WebBrowserWidget::setDocumentZoom(const std::string& zoom, std::function<void(ZoomOutcome)> done)
{
    if (m_life != Life::running) {
        done(ZoomOutcome::failed);
        return;
    }
    const quint32 request = ++m_lastZoom;
    m_zooms.emplace(request, std::move(done));
    m_host->zoom(request, QString::fromStdString(zoom));
    QTimer::singleShot(kZoomPatienceMs, this, [this, request] { finishZoom(request, ZoomOutcome::failed); });
}

void WebBrowserWidget::finishZoom(quint32 request, ZoomOutcome outcome)
{
    auto found = m_zooms.extract(request);
    if (found)
        found.mapped()(outcome);
}

void WebBrowserWidget::failZooms()
{
    // Each answer may ask for the next step.
    const auto waiting = std::exchange(m_zooms, {});
    for (const auto& [request, done] : waiting)
        done(ZoomOutcome::failed);
}

void WebBrowserWidget::setSilent(bool silent)
{
    m_silent = silent;
    if (m_life == Life::running)
        m_host->setSilent(silent);
}

void WebBrowserWidget::setNewWindow2(NewWindow2 handler) { m_newWindow2 = std::move(handler); }

void WebBrowserWidget::askForNewWindow(quint32 question)
{
    bool Cancel = false;
    if (m_newWindow2)
        m_newWindow2(Cancel);
    m_host->answerNewWindow(question, Cancel);
}

void WebBrowserWidget::pageStopped()
{
    failZooms();
    unsetCursor();
    m_notice->tell(tr("This page has stopped"),
                   tr("The recorder is not affected. The page can be loaded again."),
                   BrowserNotice::Offer::reload);
}

void WebBrowserWidget::hostEnded(const QString& why, BrowserNotice::Offer offer)
{
    m_life = Life::ended;
    m_pictureWaits = false;
    m_picture = {};
    failZooms();
    unsetCursor();
    m_notice->tell(tr("There is no browser here"), why, offer);
}

void WebBrowserWidget::takePicture()
{
    m_pictureWaits = false;
    m_picture = m_host->takePicture();
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    update();
}

bool WebBrowserWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && m_life == Life::running) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::FocusIn && passesFocusOn(*static_cast<QFocusEvent*>(event)))
        return true;
    const bool forwarded = m_life == Life::running && isInput(event->type());
    if (forwarded)
        m_host->forward(*event);
    if (forwarded && isThePagesAlone(event->type())) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool WebBrowserWidget::passesFocusOn(const QFocusEvent& event)
{
    // A video plays on behind the other media, but Tab must not lead to what can't be seen.
    const bool byTab = event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason;
    return byTab && visibleRegion().isEmpty() && focusNextPrevChild(event.reason() == Qt::TabFocusReason);
}

QVariant WebBrowserWidget::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return query == Qt::ImEnabled ? QVariant(true) : QWidget::inputMethodQuery(query);
}

void WebBrowserWidget::paintEvent(QPaintEvent*)
{
    // Uncovered again: what was played behind the other surface comes to light.
    if (m_pictureWaits)
        takePicture();
    QPainter painter(this);
    painter.fillRect(rect(), colours::kSurface);
    if (!m_picture.isNull())
        painter.drawImage(QPoint(), m_picture);
}

void WebBrowserWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_notice->setGeometry(rect());
    if (m_life == Life::running)
        m_host->resize(size());
}

void WebBrowserWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_life == Life::running)
        m_host->setShown(true);
    else if (m_life == Life::notStarted)
        // The surface stands on the stage before the browser begins to come up.
        QTimer::singleShot(0, this, &WebBrowserWidget::begin);
}

void WebBrowserWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (m_life == Life::running)
        m_host->setShown(false);
}

} // namespace quillora::forms
