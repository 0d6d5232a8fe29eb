#include "session/window_style.h"

namespace quillora::session {

void SetMinimizeBox(MainWindow& window, bool flag)
{
    window.setHasMinimizeBox(flag || !window.hasMinimizeBox());
}

} // namespace quillora::session
