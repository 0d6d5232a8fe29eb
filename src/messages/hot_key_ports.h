#pragma once

#include "messages/window_message.h"

#include <cstdint>
#include <string>

namespace quillora::messages {

/// How a hot key's modifiers are told; they can be put together.
inline constexpr std::uint32_t kModifierAlt = 1;
inline constexpr std::uint32_t kModifierControl = 2;
inline constexpr std::uint32_t kModifierShift = 4;

/// Key combinations that are this program's on the whole desktop. Failures set the system's last error.
class HotKeys {
  public:
    virtual ~HotKeys() = default;
    /// From now on each press of the combination is posted to @p window as kHotKeyMessage; a key that is held
    /// counts as one press. @p eKey is a virtual key code: letters and digits are their own capital ASCII.
    /// False when another program holds the combination, and where there is no such thing.
    virtual bool RegisterHotKey(WindowHandle window, std::int32_t id, std::uint32_t eModifiers,
                                std::uint32_t eKey) = 0;
    virtual bool UnregisterHotKey(WindowHandle window, std::int32_t id) = 0;
};

/// Numbers that stand for texts.
class Atoms {
  public:
    virtual ~Atoms() = default;
    /// One number for one text, however often it is added. 0, with the system's last error set, on failure.
    virtual std::uint16_t GlobalAddAtom(const std::string& text) = 0;
    /// Takes one adding back.
    virtual void GlobalDeleteAtom(std::uint16_t atom) = 0;
};

/// A window on the screen, as bringing it to the front asks for it.
class WindowDisplay {
  public:
    virtual ~WindowDisplay() = default;
    virtual bool IsWindowVisible(WindowHandle hwnd) = 0;
    virtual bool IsIconic(WindowHandle hwnd) = 0;
    virtual void ShowWindow(WindowHandle hwnd, int command) = 0;
    virtual void SendMessage(const WindowMessage& message) = 0;
    virtual void SetForegroundWindow(WindowHandle hwnd) = 0;
};

} // namespace quillora::messages
