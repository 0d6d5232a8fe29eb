#include "messages/hook_block.h"

#include <utility>

namespace quillora::messages {
namespace {

/// What a host's probe answers; anything else means that it stands at a breakpoint.
constexpr int kHostStopped = 0;
constexpr int kHostRuns = 1;

} // namespace

bool HookBlock::install(std::weak_ptr<const HookCallback> callback)
{
    m_previous = m_windows.exchangeProcedure(m_window, shared_from_this());
    m_callback = std::move(callback);
    return m_previous != nullptr;
}

Result HookBlock::process(const WindowMessage& message)
{
    // Leaving the window may drop the last reference to this object in the middle of the call.
    const auto self = shared_from_this();
    if (m_probe) {
        const int answer = m_probe();
        if (answer == kHostStopped) {
            removeItself();
            return 0;
        }
        if (answer != kHostRuns)
            return callPrevious(message);
    }

    Outcome outcome;
    callBack(Phase::before, message, outcome);
    if (outcome.handled)
        return outcome.result;
    outcome.result = callPreviousCounted(message);
    if (m_nesting == 0 && m_shutDown) {
        removeItself();
        return outcome.result;
    }
    callBack(Phase::after, message, outcome);
    return outcome.result;
}

void HookBlock::callBack(Phase phase, const WindowMessage& message, Outcome& outcome)
{
    const MessageTable& table = phase == Phase::before ? m_before : m_after;
    const auto callback = m_callback.lock();
    if (!callback || !table.applies(message.iMsg))
        return;
    HookedMessage hooked{.bBefore = phase == Phase::before,
                         .bHandled = outcome.handled,
                         .lReturn = outcome.result,
                         .hwnd = message.hwnd,
                         .iMsg = message.iMsg,
                         .wParam = message.wParam,
                         .lParam = message.lParam,
                         .userParam = m_userParam};
    (*callback)(hooked);
}

Result HookBlock::callPreviousCounted(const WindowMessage& message)
{
    struct Counted {
        int& nesting;
        explicit Counted(int& count) : nesting(count) { ++nesting; }
        ~Counted() { --nesting; }
    } const counted(m_nesting);
    return callPrevious(message);
}

/// A hook that was set in front of this one goes with it: the window only knows one procedure.
void HookBlock::removeItself() { m_windows.exchangeProcedure(m_window, m_previous); }

} // namespace quillora::messages
