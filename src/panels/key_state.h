#pragma once

#include <cstdint>

namespace quillora::panels {

/// The number of Control in GetAsyncKeyState.
inline constexpr int kControlKey = 17;

/// What the keyboard's keys do at this moment, whatever events still wait in the queue.
class KeyState {
  public:
    virtual ~KeyState() = default;
    /// The high bit is set while the key is down; the low bit may tell that it was pressed before.
    virtual std::uint16_t GetAsyncKeyState(int key) = 0;
};

/// Whether Control is down.
inline bool CtrlKey(KeyState& keys) { return (keys.GetAsyncKeyState(kControlKey) & 0x8000U) != 0; }

} // namespace quillora::panels
