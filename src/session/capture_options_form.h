#pragma once

#include "session/option_controls.h"

namespace quillora::session {

/// What the logic asks of the form `CaptureOptions_frm`. Called on the one thread of forms and logic.
class CaptureOptionsForm {
  public:
    virtual ~CaptureOptionsForm() = default;

    /// Shows the form, owned by the main form, and returns when it is hidden or unloaded. Throws
    /// std::runtime_error where it stands on the screen already.
    virtual void showModal(const OptionControls& controls) = 0;
    /// Shows it and returns at once. Harmless where it stands already.
    virtual void show(const OptionControls& controls) = 0;
    virtual void SetTopMost(bool flag) = 0;
    /// Controls have changed. Where the form isn't on the screen there is nothing to do.
    virtual void update(const OptionControls& controls) = 0;
    virtual void hide() = 0;
};

} // namespace quillora::session
