#pragma once

#include "panels/key_state.h"

#include <QGuiApplication>

namespace quillora::forms {

/// Asks the display itself, so that a key counts which went to another window. It knows Control alone.
class QtKeyState : public panels::KeyState {
  public:
    std::uint16_t GetAsyncKeyState(int key) override
    {
        const bool down = key == panels::kControlKey &&
                          QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
        return down ? 0x8000 : 0;
    }
};

} // namespace quillora::forms
