#pragma once

#include "messages/hot_key_error.h"
#include "messages/hot_key_ports.h"
#include "messages/message_hook_service.h"

#include <functional>
#include <string>
#include <vector>

namespace quillora::messages {

/// Named key combinations that work on the whole desktop, also while the program isn't in front. They belong
/// to the window that this object is attached to, and are given back when that window or this object ends.
/// A combination that another program holds is not registered, without a word: a second copy of this program
/// runs without its hot key. On the one thread of forms and logic.
class cRegHotKey : public ISubclass {
  public:
    struct Ports {
        MessageHookService& hooks;
        HotKeys& keys;
        Atoms& atoms;
        const SystemErrors& errors;
        WindowDisplay& windows;
        /// Milliseconds since the system came up.
        std::function<std::uint32_t()> GetTickCount;
        std::string executableName;
    };

    /// What the ports refer to must outlive this object.
    explicit cRegHotKey(Ports ports);
    /// Gives back all keys.
    ~cRegHotKey() override;
    cRegHotKey(const cRegHotKey&) = delete;
    cRegHotKey& operator=(const cRegHotKey&) = delete;

    /// Called for each press, with what was registered.
    std::function<void(const std::string& sName, std::uint32_t eModifiers, std::uint32_t eKey)> HotKeyPress{};

    /// Clears, and attaches to @p hwndA unless it is 0.
    void Attach(WindowHandle hwndA);
    /// Unregisters all keys and detaches. Throws std::out_of_range, with the half of the keys gone and still
    /// attached, when there are two or more: it counts the keys once and then numbers them through while the
    /// rest moves up.
    void Clear();
    /// At most 32 characters of name. Throws HotKeyError for the failures that it has numbers for; a
    /// combination that can't be had is none of them.
    void RegisterKey(const std::string& sName, std::uint32_t eKey, std::uint32_t eModifiers);
    /// Throws HotKeyError.
    void UnregisterKey(const std::string& sName);
    /// Brings a window to the front, from wherever it is.
    void RestoreAndActivate(WindowHandle hwnd);

    int count() const { return static_cast<int>(m_entries.size()); }
    WindowHandle attachedWindow() const { return m_window; }

    int MsgResponse() const override { return kDefaultProcessingFollows; }
    void MsgResponse(int) override {}
    void WindowProc(WindowHandle hwnd, int iMsg, Parameter wParam, Parameter lParam, Result& result) override;

  private:
    struct HotKeyEntry {
        std::string name;
        std::string atomName;
        std::int32_t id;
        std::uint32_t key;
        std::uint32_t modifiers;
    };
    using Entries = std::vector<HotKeyEntry>;

    Entries::iterator FindKey(const std::string& name);
    std::string SystemErrorText(std::uint32_t number) const;
    std::string withSystemError(std::string text) const;
    std::string source() const { return m_ports.executableName + ".cRegHotKey"; }
    void detach();
    void raisePress(Parameter wParam, Parameter lParam);

    Ports m_ports;
    Entries m_entries{};
    WindowHandle m_window = 0;
};

} // namespace quillora::messages
