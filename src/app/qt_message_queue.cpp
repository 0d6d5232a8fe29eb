#include "app/qt_message_queue.h"

#include "base/skip_failures.h"

#include <QMetaObject>

namespace quillora::app {

void QtMessageQueue::post(const messages::WindowMessage& message)
{
    QMetaObject::invokeMethod(
        &m_receiver, [this, message] { base::skipFailures([&] { deliver(message); }); },
        Qt::QueuedConnection);
}

} // namespace quillora::app
