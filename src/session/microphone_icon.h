#pragma once

#include "session/microphone_setting.h"
#include "session/session_fields.h"

namespace quillora::session {

/// The picture `Image3` of the main form, which leads to the Microphone Level dialog - but not while a
/// recording runs, whose picture the dialog would stand in.
class MicrophoneIcon {
  public:
    /// Both must outlive this object.
    MicrophoneIcon(const SessionFields& fields, MicrophoneSetting& mic_frm)
        : m_fields(fields), m_mic_frm(mic_frm)
    {}

    void Image3_Click();

  private:
    const SessionFields& m_fields;
    MicrophoneSetting& m_mic_frm;
};

} // namespace quillora::session
