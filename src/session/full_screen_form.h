#pragma once

namespace quillora::session {

/// What the logic asks of the dialog `FullScreen_frm`. It keeps its choice while it is hidden. Called on the
/// one thread of forms and logic.
class FullScreenForm {
  public:
    virtual ~FullScreenForm() = default;

    /// Shows it and returns at once.
    virtual void show() = 0;
    /// Returns when the dialog has left the screen, or when that takes too long: what is recorded next must
    /// not show it.
    virtual void hide() = 0;
    /// "Around the mouse" is chosen, rather than "Fullscreen".
    virtual bool mouse_opt() const = 0;
};

} // namespace quillora::session
