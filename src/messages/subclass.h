#pragma once

#include "messages/window_message.h"

namespace quillora::messages {

/// The answer of a sink that wants to see a message and leaves it to default processing then.
inline constexpr int kDefaultProcessingFollows = 2;

/// A sink for messages of windows that are not its own; see MessageHookService.
class ISubclass {
  public:
    virtual ~ISubclass() = default;

    virtual int MsgResponse() const = 0;
    virtual void MsgResponse(int value) = 0;
    /// @p result carries the result of the message; default processing that follows has the last word on it.
    virtual void WindowProc(WindowHandle hwnd, int iMsg, Parameter wParam, Parameter lParam,
                            Result& result) = 0;
};

} // namespace quillora::messages
