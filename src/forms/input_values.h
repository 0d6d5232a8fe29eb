#pragma once

#include <Qt>

class QKeyEvent;

namespace quillora::forms {

/// Buttons as events carry them: 1 left, 2 right, 4 middle, and their sum.
int buttonValue(Qt::MouseButtons buttons);
/// Keys that are held: 1 Shift, 2 Ctrl, 4 Alt, and their sum.
int shiftValue(Qt::KeyboardModifiers modifiers);
/// 13 for Enter, wherever on the keyboard it is, and 27 for Esc; 0 for any other key.
int keyValue(const QKeyEvent& event);

} // namespace quillora::forms
