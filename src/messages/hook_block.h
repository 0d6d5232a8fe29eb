#pragma once

#include "messages/message_table.h"
#include "messages/windows.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillora::messages {

/// A message as a hook's callback gets it: what it may read, and what it may write.
struct HookedMessage {
    /// Before the window's old procedure, or after it.
    bool bBefore;
    /// Set on the before call, it keeps the message from the old procedure and from the after call.
    bool& bHandled;
    Result& lReturn;
    WindowHandle hwnd;
    int iMsg;
    Parameter wParam;
    Parameter lParam;
    Parameter& userParam;
};
using HookCallback = std::function<void(HookedMessage&)>;

/// An object that hooks windows: the name of its class, for reports, and the methods that can be called back,
/// which hooks choose by counting from the last one. Hooks call a method only while this object lives.
struct HookOwner {
    std::string className;
    std::vector<HookCallback> methods;
};

/// What a debugging host says of its program before each message. A program by itself has no such host.
using HostProbe = std::function<int()>;

/// The procedure that a hook puts in the place of a window's own. It sorts out, by two tables, the messages
/// that its owner wants to see before or after that procedure. Told to shut down, it leaves the window at the
/// first moment at which no call of the old procedure is under way, for such a call comes back through it.
class HookBlock : public WindowProcedure, public std::enable_shared_from_this<HookBlock> {
  public:
    HookBlock(Windows& windows, WindowHandle window, Parameter userParam, HostProbe probe)
        : m_windows(windows), m_window(window), m_userParam(userParam), m_probe(std::move(probe))
    {}

    /// Takes its place at the window. False, with the system's last error set, when that can't be done.
    bool install(std::weak_ptr<const HookCallback> callback);

    WindowHandle window() const { return m_window; }
    MessageTable& before() { return m_before; }
    MessageTable& after() { return m_after; }
    Parameter userParam() const { return m_userParam; }
    void setUserParam(Parameter value) { m_userParam = value; }
    void shutDown() { m_shutDown = true; }

    Result process(const WindowMessage& message) override;
    Result callPrevious(const WindowMessage& message) { return m_previous->process(message); }

  private:
    enum class Phase { before, after };
    struct Outcome {
        bool handled = false;
        Result result = 0;
    };

    void callBack(Phase phase, const WindowMessage& message, Outcome& outcome);
    Result callPreviousCounted(const WindowMessage& message);
    void removeItself();

    Windows& m_windows;
    WindowHandle m_window;
    Parameter m_userParam;
    HostProbe m_probe;
    std::weak_ptr<const HookCallback> m_callback{};
    std::shared_ptr<WindowProcedure> m_previous{};
    MessageTable m_before{};
    MessageTable m_after{};
    /// Calls of the old procedure that have not returned.
    int m_nesting = 0;
    bool m_shutDown = false;
};

} // namespace quillora::messages
