#include "forms/input_values.h"

#include <QKeyEvent>

namespace quillora::forms {

int buttonValue(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) + (buttons.testFlag(Qt::RightButton) ? 2 : 0) +
           (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
}

int shiftValue(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) + (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int keyValue(const QKeyEvent& event)
{
    constexpr int kEnter = 13;
    constexpr int kEscape = 27;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return kEnter;
    case Qt::Key_Escape:
        return kEscape;
    default:
        return 0;
    }
}

} // namespace quillora::forms
