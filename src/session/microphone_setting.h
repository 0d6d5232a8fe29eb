#pragma once

#include <string>

namespace quillora::session {

/// The dialog `mic_frm` as the session asks for it.
class MicrophoneSetting {
  public:
    virtual ~MicrophoneSetting() = default;
    /// Text of its label `lblVolPer`, such as "100%".
    virtual std::string lblVolPer() = 0;
    /// Shows the dialog, owned by the main form, until it is closed.
    virtual void showModal() = 0;
};

} // namespace quillora::session
