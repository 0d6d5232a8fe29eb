#pragma once

#include "app/qt_message_queue.h"
#include "base/dialogs.h"
#include "messages/hook_engine.h"
#include "messages/message_windows.h"
#include "messages/platform/posix/syslog_event_log.h"

namespace quillora::app {

/// The program's windows for messages, and what hooks on them report to.
class MessageParts {
  public:
    /// @p boxes must outlive this object.
    explicit MessageParts(base::MessageBoxes& boxes) : m_boxes(boxes)
    {
        m_queue.deliver = [this](const messages::WindowMessage& message) { m_windows.dispatch(message); };
    }
    MessageParts(const MessageParts&) = delete;
    MessageParts& operator=(const MessageParts&) = delete;

    messages::MessageQueue& queue() { return m_queue; }
    messages::MessageWindows& windows() { return m_windows; }
    const messages::SystemErrors& errors() const { return m_errors; }
    messages::HookEngine::Ports hooks()
    {
        return {.windows = m_windows, .log = m_log, .boxes = m_boxes, .errors = m_errors};
    }

  private:
    base::MessageBoxes& m_boxes;
    messages::SyslogEventLog m_log{};
    messages::ErrnoErrors m_errors{};
    QtMessageQueue m_queue{};
    messages::MessageWindows m_windows{m_queue};
};

} // namespace quillora::app
