#pragma once

#include <QPoint>

#include <optional>

class QWindow;

namespace quillora::forms {

/// What the window manager is asked for about a window on the screen. It is asked by messages and properties,
/// never by the toolkit's window flags, which would take the window off the screen and put it back. Where
/// there is no X11 or no window manager, nothing happens.
namespace x11 {

enum class MinimizeBox { absent, present };
enum class Move { locked, allowed };

/// Size, place, focus and mapping stay.
void setAbove(QWindow& window, bool above);

/// What the presenter may do to the window by the window manager's means.
void setFunctions(QWindow& window, MinimizeBox minimizeBox, Move move);

/// Where the inside of the window begins, in physical pixels of the screen; nothing where there is no X11.
std::optional<QPoint> originOnScreen(QWindow& window);

} // namespace x11

} // namespace quillora::forms
