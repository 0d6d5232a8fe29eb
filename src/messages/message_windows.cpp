#include "messages/message_windows.h"

#include <cerrno>
#include <utility>

namespace quillora::messages {
namespace {

class DefaultProcedure : public WindowProcedure {
  public:
    Result process(const WindowMessage&) override { return 0; }
};

} // namespace

WindowHandle MessageWindows::create(std::string className, std::string title)
{
    m_windows[++m_last] = {std::move(className), std::move(title), std::make_shared<DefaultProcedure>()};
    return m_last;
}

bool MessageWindows::destroy(WindowHandle window)
{
    const auto found = m_windows.find(window);
    // A procedure may take its destroy message for a reason to end its window.
    if (found == m_windows.end() || std::exchange(found->second.ending, true))
        return false;
    struct LetGo {
        MessageWindows& windows;
        WindowHandle window;
        ~LetGo() { windows.m_windows.erase(window); }
    } const letGo{*this, window};
    send({.hwnd = window, .iMsg = kDestroyMessage});
    return true;
}

Result MessageWindows::send(const WindowMessage& message)
{
    const auto found = m_windows.find(message.hwnd);
    if (found == m_windows.end())
        return 0;
    // What a procedure does may put another one in its place, or end the window.
    const std::shared_ptr<WindowProcedure> procedure = found->second.procedure;
    return procedure->process(message);
}

std::string MessageWindows::titleOf(WindowHandle window) const
{
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? std::string() : found->second.title;
}

std::string MessageWindows::classNameOf(WindowHandle window) const
{
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? std::string() : found->second.className;
}

std::shared_ptr<WindowProcedure> MessageWindows::exchangeProcedure(WindowHandle window,
                                                                   std::shared_ptr<WindowProcedure> procedure)
{
    const auto found = m_windows.find(window);
    if (found == m_windows.end() || !procedure) {
        errno = EINVAL;
        return nullptr;
    }
    return std::exchange(found->second.procedure, std::move(procedure));
}

} // namespace quillora::messages
