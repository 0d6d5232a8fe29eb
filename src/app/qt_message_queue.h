#pragma once

#include "messages/message_queue.h"

#include <QObject>

#include <functional>

namespace quillora::app {

/// Hands posted messages on between two events of the thread that it was made on. A message that nobody takes
/// well ends there.
class QtMessageQueue : public messages::MessageQueue {
  public:
    /// To be set before the first message is posted.
    std::function<void(const messages::WindowMessage&)> deliver{};

    void post(const messages::WindowMessage& message) override;

  private:
    /// Lives on the thread that messages go to, and takes those with it that are under way when it goes.
    QObject m_receiver{};
};

} // namespace quillora::app
