#pragma once

#include <cstdint>

namespace quillora::messages {

/// Names a window for messages; 0 is none.
using WindowHandle = std::uint32_t;
using Parameter = std::intptr_t;
using Result = std::intptr_t;

/// One message of a window. What the parameters mean is between sender and receiver; an address in one of
/// them is only worth what the receiver can find out about it.
struct WindowMessage {
    WindowHandle hwnd = 0;
    int iMsg = 0;
    Parameter wParam = 0;
    Parameter lParam = 0;

    bool operator==(const WindowMessage&) const = default;
};

/// Sent to a window before it goes.
inline constexpr int kDestroyMessage = 2;
inline constexpr int kSystemCommandMessage = 274;
/// Posted for a hot key: its id in wParam; modifiers and key in the low and the high half of lParam.
inline constexpr int kHotKeyMessage = 786;
/// Posted by a wave input for a buffer that is full: the address of its header in lParam.
inline constexpr int kWaveInputDataMessage = 960;

} // namespace quillora::messages
