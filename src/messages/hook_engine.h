#pragma once

#include "base/dialogs.h"
#include "messages/event_log.h"
#include "messages/hook_block.h"
#include "messages/system_errors.h"

#include <memory_resource>
#include <optional>
#include <string>
#include <vector>

namespace quillora::messages {

/// In which of a hook's tables a message stands.
enum MessageWhen : unsigned { MSG_BEFORE = 1, MSG_AFTER = 2, MSG_BEFORE_AND_AFTER = 3 };

/// The hooks of one owner: lets an object see the messages of windows before and after the windows' own
/// procedure, keep them from it, and answer them. Whatever goes wrong is reported to the presenter and in the
/// system's log; nothing is thrown for it. A window that is gone needs no clean-up: what is asked of its hook
/// is then ignored. On the one thread of forms and logic.
class HookEngine {
  public:
    struct Ports {
        Windows& windows;
        EventLog& log;
        base::MessageBoxes& boxes;
        const SystemErrors& errors;
        /// Asked at each message of a hook that is set with HostSafety::on. Empty without such a host.
        HostProbe hostProbe{};
        /// Where hooks lie.
        std::pmr::memory_resource& memory = *std::pmr::get_default_resource();
    };
    enum class HostSafety { off, on };

    /// What the ports refer to, but for the owner, must outlive the windows that are hooked.
    HookEngine(const Ports& ports, std::shared_ptr<const HookOwner> owner);

    /// Hooks @p window; the hook sees no message yet. @p callbackOrdinal counts the methods of
    /// @p callbackObject, or of the owner where that is none, from 1 for the last one. False when it failed.
    bool sc_Subclass(WindowHandle window, Parameter userParam = 0, int callbackOrdinal = 1,
                     std::shared_ptr<const HookOwner> callbackObject = nullptr,
                     HostSafety hostSafety = HostSafety::off);
    /// May be called from inside a callback. The hook sees no message from now on, and leaves the window with
    /// the next one that finds no call in progress.
    void sc_UnSubclass(WindowHandle window);
    /// The newest first.
    void sc_RemoveAll();

    /// @p message may be ALL_MESSAGES.
    void sc_WatchMsg(WindowHandle window, int message, MessageWhen when);
    void sc_UnwatchMsg(WindowHandle window, int message, MessageWhen when);

    /// 0 where there is no hook.
    Result sc_CallPrevious(WindowHandle window, int message, Parameter wParam, Parameter lParam);
    /// 0 where there is no hook.
    Parameter sc_UserParam(WindowHandle window);
    void sc_UserParam(WindowHandle window, Parameter value);

    /// Says in the system's log, and then to the presenter, that @p routine failed.
    void zReport(const std::string& routine, const std::string& message);

  private:
    struct Hook {
        /// "h" and the window's handle in decimal.
        std::string key;
        /// The window owns it: empty once window or hook are gone.
        std::weak_ptr<HookBlock> block;
    };
    using Table = MessageTable& (HookBlock::*)();

    std::shared_ptr<HookBlock> zMap_hWnd(WindowHandle window);
    std::shared_ptr<HookBlock> makeBlock(WindowHandle window, Parameter userParam, HostSafety hostSafety);
    static std::shared_ptr<const HookCallback> zFindCallback(const std::shared_ptr<const HookOwner>& object,
                                                             int ordinal);
    bool isSubclassed(WindowHandle window) const;
    bool refuse(const std::string& message);
    void zAddMsg(HookBlock& block, int message, Table table);
    void zDelMsg(HookBlock& block, int message, Table table);

    Ports m_ports;
    std::shared_ptr<const HookOwner> m_owner;
    /// None before the first hook and after sc_RemoveAll(), which is another thing than no hooks.
    std::optional<std::vector<Hook>> m_hooks{};
};

} // namespace quillora::messages
