#pragma once

#include "messages/hook_engine.h"
#include "messages/subclass.h"

#include <map>
#include <vector>

namespace quillora::messages {

/// Lets any number of sinks see messages of any windows, through one hook a window. The hook stays for as
/// long as its window does: one that left while the next sink came would take that sink's hook with it. Sinks
/// may attach and detach at any time, also while they are called. On the one thread of forms and logic.
class MessageHookService {
  public:
    explicit MessageHookService(const HookEngine::Ports& ports);
    MessageHookService(const MessageHookService&) = delete;
    MessageHookService& operator=(const MessageHookService&) = delete;

    /// @p sink is called before default processing, which follows when its MsgResponse() says so. A second
    /// time for the same three changes nothing. A window that can't be hooked is reported to the presenter.
    void attach(ISubclass& sink, WindowHandle window, int message);
    /// Nothing for what isn't attached.
    void detach(ISubclass& sink, WindowHandle window, int message);

  private:
    struct Attachment {
        ISubclass* sink;
        int message;

        bool operator==(const Attachment&) const = default;
    };
    using Attachments = std::vector<Attachment>;

    void onMessage(HookedMessage& message);
    static bool watches(const Attachments& attachments, int message);

    std::map<WindowHandle, Attachments> m_attachments{};
    HookEngine m_engine;
};

} // namespace quillora::messages
