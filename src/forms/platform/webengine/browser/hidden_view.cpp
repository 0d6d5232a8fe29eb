#include "forms/platform/webengine/browser/hidden_view.h"

#include "forms/platform/webengine/browser_messages.h"

#include <QApplication>
#include <QEvent>
#include <QImage>

#include <chrono>

namespace quillora::forms::webengine {

namespace {

/// A lecture is recorded with about as many pictures a second.
constexpr std::chrono::milliseconds kLeastBetweenPictures{30};

} // namespace

HiddenView::HiddenView(unsigned char* picture) : m_picture(picture)
{
    setAttribute(Qt::WA_DontShowOnScreen);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    m_pace.setSingleShot(true);
    connect(&m_pace, &QTimer::timeout, this, &HiddenView::paintPicture);
    qApp->installEventFilter(this);
}

QWidget& HiddenView::pageWidget() { return focusProxy() != nullptr ? *focusProxy() : *this; }

void HiddenView::pictureTaken()
{
    m_taken = true;
    paintPicture();
}

bool HiddenView::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || m_painting || (widget != this && !isAncestorOf(widget)))
        return false;
    if (event->type() == QEvent::Paint) {
        m_dirty = true;
        // The page's widget is painted after this, not before.
        QMetaObject::invokeMethod(this, &HiddenView::paintPicture, Qt::QueuedConnection);
    } else if (event->type() == QEvent::CursorChange) {
        const Qt::CursorShape shape = pageWidget().cursor().shape();
        if (shape != m_pointer)
            emit pointerChanged(m_pointer = shape);
    }
    return false;
}

void HiddenView::paintPicture()
{
    const QSize physical = size() * devicePixelRatioF();
    if (!m_dirty || !m_taken || m_pace.isActive() || !isVisible() || !fitsThePicture(physical))
        return;
    m_dirty = false;
    m_taken = false;
    m_pace.start(kLeastBetweenPictures);
    QImage picture(m_picture, physical.width(), physical.height(), qsizetype(physical.width()) * 4,
                   QImage::Format_RGB32);
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_painting = true;
    render(&picture);
    m_painting = false;
    emit painted(physical);
}

bool HiddenView::focusNextPrevChild(bool next)
{
    emit focusPassed(next);
    return true;
}

} // namespace quillora::forms::webengine
