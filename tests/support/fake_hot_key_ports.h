#pragma once

#include "messages/hot_key_ports.h"
#include "tests/support/call_log.h"

#include <string>

namespace quillora::tests {

class FakeHotKeys : public messages::HotKeys {
  public:
    explicit FakeHotKeys(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    bool taken = false;

    bool RegisterHotKey(messages::WindowHandle window, std::int32_t id, std::uint32_t eModifiers,
                        std::uint32_t eKey) override
    {
        log.add("keys.RegisterHotKey " + std::to_string(window) + " " + std::to_string(id) + " " +
                std::to_string(eModifiers) + " " + std::to_string(eKey));
        return !taken;
    }
    bool UnregisterHotKey(messages::WindowHandle window, std::int32_t id) override
    {
        log.add("keys.UnregisterHotKey " + std::to_string(window) + " " + std::to_string(id));
        return true;
    }
};

/// Counts up from 0xC001.
class FakeAtoms : public messages::Atoms {
  public:
    explicit FakeAtoms(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    bool full = false;

    std::uint16_t GlobalAddAtom(const std::string& text) override
    {
        log.add("atoms.GlobalAddAtom " + text);
        return full ? std::uint16_t{0} : ++m_last;
    }
    void GlobalDeleteAtom(std::uint16_t atom) override
    {
        log.add("atoms.GlobalDeleteAtom " + std::to_string(atom));
    }

  private:
    std::uint16_t m_last = 0xC000;
};

class FakeWindowDisplay : public messages::WindowDisplay {
  public:
    explicit FakeWindowDisplay(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    bool visible = true;
    bool iconic = false;

    bool IsWindowVisible(messages::WindowHandle) override { return visible; }
    bool IsIconic(messages::WindowHandle) override { return iconic; }
    void ShowWindow(messages::WindowHandle hwnd, int command) override
    {
        log.add("windows.ShowWindow " + std::to_string(hwnd) + " " + std::to_string(command));
    }
    void SendMessage(const messages::WindowMessage& message) override
    {
        log.add("windows.SendMessage " + std::to_string(message.hwnd) + " " + std::to_string(message.iMsg) +
                " " + std::to_string(message.wParam) + " " + std::to_string(message.lParam));
    }
    void SetForegroundWindow(messages::WindowHandle hwnd) override
    {
        log.add("windows.SetForegroundWindow " + std::to_string(hwnd));
    }
};

} // namespace quillora::tests
