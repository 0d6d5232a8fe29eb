#pragma once

#include "forms/window_hints.h"

namespace quillora::forms {

/// Asks by messages and properties on the application's own connection, never by the toolkit's window flags,
/// which would take the window off the screen and put it back. Silent on a display that is not X11.
class X11WindowHints : public WindowHints {
  public:
    void setStacking(QWindow& window, Stacking stacking) override;
    void setFunctions(QWindow& window, MinimizeBox minimizeBox, Move move) override;
    std::optional<QPoint> originOnScreen(QWindow& window) override;
    std::uint32_t frameOf(QWindow& window) override;
    bool isViewable(std::uint32_t frame) override;
};

} // namespace quillora::forms
