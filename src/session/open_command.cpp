#include "session/open_command.h"

namespace quillora::session {

void OpenCommand::toolbar_open()
{
    auto& fields = m_ports.fields;
    if (fields.recordState == "record")
        return;
    m_ports.deck.openSlides();
    fields.myMediaType = "slides";
    m_ports.media.setMediaType();
    // A deck never opens under a camera that fills the stage.
    if (fields.myWindowMode == "fullcam") {
        fields.myWindowMode = "full";
        m_ports.mode.setWindowMode();
    }
    m_ports.window.setStatusPanel(1, "Ready...");
    m_ports.window.setMousePointer({});
    m_ports.window.setStagePointer({});
    setBarStates(m_ports.bars, BarState::expanded, {"powerpoint"});
    setBarStates(m_ports.bars, BarState::collapsed, {"camera", "draw", "text", "youtube", "help"});
    fields.asf_name_lb = "no_video";
}

} // namespace quillora::session
