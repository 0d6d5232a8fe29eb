#include "session/microphone_icon.h"

namespace quillora::session {

void MicrophoneIcon::Image3_Click()
{
    if (m_fields.recordState != "record")
        m_mic_frm.showModal();
}

} // namespace quillora::session
