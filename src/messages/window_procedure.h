#pragma once

#include "messages/window_message.h"

namespace quillora::messages {

/// What a window does with its messages. Procedures stand in a chain: one that is put in front of another
/// decides when, and whether, the other one sees a message.
class WindowProcedure {
  public:
    virtual ~WindowProcedure() = default;
    virtual Result process(const WindowMessage& message) = 0;
};

} // namespace quillora::messages
