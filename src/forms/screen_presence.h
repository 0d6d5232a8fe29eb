#pragma once

class QWidget;

namespace quillora::forms {

class WindowHints;

/// Puts a window on the screen where it stood before, and returns when it has been drawn there, or after a
/// second. Handles what is waiting meanwhile, except what the presenter does.
void bringOntoScreen(QWidget& window, WindowHints& hints);

/// Takes a window off the screen and returns when nobody who films the screen sees it any more: when the
/// window manager has taken its frame away, and what stood below had the time to be drawn again. Handles no
/// events meanwhile. Takes half a second, and two at the most.
void takeOffScreen(QWidget& window, WindowHints& hints);

} // namespace quillora::forms
