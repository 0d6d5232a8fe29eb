#include "forms/screen_presence.h"

#include "forms/window_hints.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QWidget>
#include <QWindow>

namespace quillora::forms {

namespace {

constexpr int kAppearPatienceMs = 1000;
constexpr int kFramePatienceMs = 1500;
constexpr int kPollMs = 5;
/// Desktops let a window fade or shrink for up to a quarter of a second after it is gone, and the windows
/// below draw what it covered in their own time. Nobody can be asked when that is over.
constexpr int kFadingMs = 400;

/// The toolkit learns late of both, and the server alone doesn't know whether there is anything to be drawn
/// yet.
bool stands(const QWidget& window, WindowHints& hints)
{
    QWindow* handle = window.windowHandle();
    return handle != nullptr && handle->isExposed() && hints.isViewable(std::uint32_t(handle->winId()));
}

} // namespace

void bringOntoScreen(QWidget& window, WindowHints& hints)
{
    if (window.isVisible() && stands(window, hints))
        return;
    // Window managers count their frame in, or don't, when a window comes back. The toolkit's position does.
    const QPoint place = window.pos();
    const bool stoodBefore = window.testAttribute(Qt::WA_WState_ExplicitShowHide);
    if (window.isMinimized())
        window.showNormal();
    else
        window.show();
    QDeadlineTimer patience(kAppearPatienceMs);
    const auto turn = [] {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(kPollMs);
    };
    while (!stands(window, hints) && !patience.hasExpired())
        turn();
    if (stoodBefore && window.pos() != place)
        window.move(place);
    window.repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // The answer comes when the server has done what was asked before it.
    if (window.windowHandle() != nullptr)
        hints.originOnScreen(*window.windowHandle());
}

void takeOffScreen(QWidget& window, WindowHints& hints)
{
    if (!window.isVisible())
        return;
    const auto frame = window.windowHandle() != nullptr ? hints.frameOf(*window.windowHandle()) : 0;
    window.hide();
    QDeadlineTimer patience(kFramePatienceMs);
    while (hints.isViewable(frame) && !patience.hasExpired())
        QThread::msleep(kPollMs);
    QThread::msleep(kFadingMs);
}

} // namespace quillora::forms
