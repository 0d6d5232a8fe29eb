#include "messages/message_hook_service.h"

#include <algorithm>

namespace quillora::messages {

MessageHookService::MessageHookService(const HookEngine::Ports& ports)
    : m_engine(ports, std::make_shared<HookOwner>(
                          HookOwner{"MessageHookService", {[this](HookedMessage& m) { onMessage(m); }}}))
{}

void MessageHookService::attach(ISubclass& sink, WindowHandle window, int message)
{
    if (!m_attachments.contains(window)) {
        if (!m_engine.sc_Subclass(window))
            return;
        m_attachments[window];
    }
    Attachments& attachments = m_attachments[window];
    const Attachment wanted{&sink, message};
    if (std::ranges::find(attachments, wanted) != attachments.end())
        return;
    if (!watches(attachments, message))
        m_engine.sc_WatchMsg(window, message, MSG_BEFORE);
    attachments.push_back(wanted);
}

void MessageHookService::detach(ISubclass& sink, WindowHandle window, int message)
{
    const auto found = m_attachments.find(window);
    if (found == m_attachments.end() || std::erase(found->second, Attachment{&sink, message}) == 0)
        return;
    if (!watches(found->second, message))
        m_engine.sc_UnwatchMsg(window, message, MSG_BEFORE);
}

void MessageHookService::onMessage(HookedMessage& message)
{
    // A sink that is called may detach itself and others.
    const Attachments called = m_attachments[message.hwnd];
    for (const Attachment& each : called) {
        if (each.message != message.iMsg ||
            std::ranges::find(m_attachments[message.hwnd], each) == m_attachments[message.hwnd].end())
            continue;
        if (each.sink->MsgResponse() != kDefaultProcessingFollows)
            message.bHandled = true;
        each.sink->WindowProc(message.hwnd, message.iMsg, message.wParam, message.lParam, message.lReturn);
    }
}

bool MessageHookService::watches(const Attachments& attachments, int message)
{
    return std::ranges::find(attachments, message, &Attachment::message) != attachments.end();
}

} // namespace quillora::messages
