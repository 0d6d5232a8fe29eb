#pragma once

#include "session/main_window.h"

namespace quillora::session {

/// True gives the window its minimise box. False inverts it rather than taking it away: asked twice, the box
/// is back. A Record that is pressed again during the countdown relies on nothing else.
void SetMinimizeBox(MainWindow& window, bool flag);

} // namespace quillora::session
