#pragma once

#include "messages/window_message.h"

namespace quillora::messages {

/// Takes messages to the one thread of forms and logic.
class MessageQueue {
  public:
    virtual ~MessageQueue() = default;
    /// Hands the message on between two events of that thread, in the order of the calls. Never waits; may be
    /// called from any thread.
    virtual void post(const WindowMessage& message) = 0;
};

} // namespace quillora::messages
