#include "forms/input_block.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace quillora::forms {

namespace {

bool comesFromThePresenter(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
        return true;
    default:
        return false;
    }
}

} // namespace

InputBlock::InputBlock(QWidget& window) : m_window(window)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != &m_window || !comesFromThePresenter(event->type()))
        return false;
    // Otherwise the toolkit looks for a shortcut, which is no widget.
    event->accept();
    return true;
}

} // namespace quillora::forms
