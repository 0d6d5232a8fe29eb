#include "forms/platform/webengine/input_orders.h"

#include "forms/platform/webengine/browser_messages.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointF>
#include <QWheelEvent>
#include <QWidget>

namespace quillora::forms::webengine {

namespace {

QByteArray mouseOrder(const QMouseEvent& event)
{
    return message(Order::mouse, qint32(event.type()), event.position(), event.globalPosition(),
                   qint32(event.button()), qint32(event.buttons().toInt()),
                   qint32(event.modifiers().toInt()));
}

QByteArray wheelOrder(const QWheelEvent& event)
{
    return message(Order::wheel, event.position(), event.globalPosition(), event.pixelDelta(),
                   event.angleDelta(), qint32(event.buttons().toInt()), qint32(event.modifiers().toInt()),
                   qint32(event.phase()));
}

QByteArray keyOrder(const QKeyEvent& event)
{
    return message(Order::key, qint32(event.type()), qint32(event.key()), qint32(event.modifiers().toInt()),
                   event.text(), event.isAutoRepeat(), quint32(event.nativeScanCode()),
                   quint32(event.nativeVirtualKey()));
}

void replayMouse(QDataStream& in, QWidget& view, QWidget& page)
{
    qint32 type = 0, button = 0, buttons = 0, modifiers = 0;
    QPointF position, onScreen;
    in >> type >> position >> onScreen >> button >> buttons >> modifiers;
    if (in.status() != QDataStream::Ok)
        return;
    const QPoint corner = (onScreen - position).toPoint();
    if (view.pos() != corner)
        view.move(corner);
    QMouseEvent event(QEvent::Type(type), position, onScreen, Qt::MouseButton(button),
                      Qt::MouseButtons::fromInt(buttons), Qt::KeyboardModifiers::fromInt(modifiers));
    QCoreApplication::sendEvent(&page, &event);
}

void replayWheel(QDataStream& in, QWidget& page)
{
    QPointF position, onScreen;
    QPoint pixelDelta, angleDelta;
    qint32 buttons = 0, modifiers = 0, phase = 0;
    in >> position >> onScreen >> pixelDelta >> angleDelta >> buttons >> modifiers >> phase;
    if (in.status() != QDataStream::Ok)
        return;
    QWheelEvent event(position, onScreen, pixelDelta, angleDelta, Qt::MouseButtons::fromInt(buttons),
                      Qt::KeyboardModifiers::fromInt(modifiers), Qt::ScrollPhase(phase), false);
    QCoreApplication::sendEvent(&page, &event);
}

void replayKey(QDataStream& in, QWidget& page)
{
    qint32 type = 0, key = 0, modifiers = 0;
    QString text;
    bool repeated = false;
    quint32 scanCode = 0, virtualKey = 0;
    in >> type >> key >> modifiers >> text >> repeated >> scanCode >> virtualKey;
    if (in.status() != QDataStream::Ok)
        return;
    QKeyEvent event(QEvent::Type(type), key, Qt::KeyboardModifiers::fromInt(modifiers), scanCode, virtualKey,
                    0, text, repeated);
    QCoreApplication::sendEvent(&page, &event);
}

void replayInputMethod(QDataStream& in, QWidget& page)
{
    QString preedit, committed;
    in >> preedit >> committed;
    QInputMethodEvent event(preedit, {});
    event.setCommitString(committed);
    if (in.status() == QDataStream::Ok)
        QCoreApplication::sendEvent(&page, &event);
}

void replayFocus(QDataStream& in, QWidget& page)
{
    bool gained = false;
    qint32 reason = 0;
    in >> gained >> reason;
    QFocusEvent event(gained ? QEvent::FocusIn : QEvent::FocusOut, Qt::FocusReason(reason));
    if (in.status() == QDataStream::Ok)
        QCoreApplication::sendEvent(&page, &event);
}

} // namespace

QByteArray inputOrder(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return mouseOrder(static_cast<const QMouseEvent&>(event));
    case QEvent::Wheel:
        return wheelOrder(static_cast<const QWheelEvent&>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return keyOrder(static_cast<const QKeyEvent&>(event));
    case QEvent::InputMethod: {
        const auto& input = static_cast<const QInputMethodEvent&>(event);
        return message(Order::inputMethod, input.preeditString(), input.commitString());
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        return message(Order::focus, event.type() == QEvent::FocusIn,
                       qint32(static_cast<const QFocusEvent&>(event).reason()));
    case QEvent::Leave:
        return message(Order::leave);
    default:
        return {};
    }
}

void replayInput(Order order, QDataStream& in, QWidget& view, QWidget& page)
{
    switch (order) {
    case Order::mouse:
        replayMouse(in, view, page);
        return;
    case Order::wheel:
        replayWheel(in, page);
        return;
    case Order::key:
        replayKey(in, page);
        return;
    case Order::inputMethod:
        replayInputMethod(in, page);
        return;
    case Order::focus:
        replayFocus(in, page);
        return;
    case Order::leave: {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&page, &event);
        return;
    }
    default:
        return;
    }
}

} // namespace quillora::forms::webengine
