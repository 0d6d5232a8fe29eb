#include "app/qt_message_queue.h"

#include "base/skip_failures.h"

#include <QMetaObject>

namespace quillora::app {

void QtMessageQueue::post(const messages::WindowMessage& message)
{
    // No exception may pass through the toolkit's event loop.
    QMetaObject::invokeMethod(
        &m_receiver, [this, message] { base::skipFailures([&] { deliver(message); }); },
        Qt::QueuedConnection);
}

} // namespace quillora::app
