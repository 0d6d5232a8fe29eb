#pragma once

#include "app/message_parts.h"
#include "forms/vantry_frm.h"
#include "messages/local_atoms.h"
#include "messages/message_hook_service.h"
#include "messages/platform/x11/x11_hot_keys.h"
#include "messages/reg_hot_key.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>

namespace quillora::app {

/// The desktop-wide hot key Ctrl+R, which leads back from a recording of the screen to the stage, and the
/// main window as hot keys bring it to the front.
class HotKeyParts : public messages::WindowDisplay {
  public:
    /// Both must outlive this object.
    HotKeyParts(MessageParts& messages, forms::Vantry_frm& window);
    /// Gives the key back.
    ~HotKeyParts() override;

    /// What a press does, in any state of the program.
    std::function<void()> ReturnWindow{};

    /// Makes the hot key anew, in place of the one that there may be. Throws messages::HotKeyError.
    void ActivateHotKey();

    bool IsWindowVisible(messages::WindowHandle hwnd) override;
    bool IsIconic(messages::WindowHandle hwnd) override;
    void ShowWindow(messages::WindowHandle hwnd, int command) override;
    void SendMessage(const messages::WindowMessage& message) override;
    void SetForegroundWindow(messages::WindowHandle hwnd) override;

  private:
    void m_cHotKey_HotKeyPress();
    void takeKeys();

    MessageParts& m_messages;
    forms::Vantry_frm& m_window;
    messages::MessageHookService m_hooks;
    messages::LocalAtoms m_atoms{};
    messages::X11HotKeys m_keys;
    std::optional<QSocketNotifier> m_notifier{};
    /// Stands for the main form among the windows for messages.
    messages::WindowHandle m_mainWindow;
    std::unique_ptr<messages::cRegHotKey> m_cHotKey{};
};

} // namespace quillora::app
