#include "session/command_surface.h"

#include "base/skip_failures.h"

namespace quillora::session {

void CommandSurface::main_TB_ButtonClick(std::string_view key)
{
    base::skipFailures([&] {
        if (key == "open")
            m_open.toolbar_open();
        else if (key == "record")
            m_session.toolbar_record();
        else if (key == "pause")
            m_session.toolbar_pause();
        else if (key == "resume")
            m_session.toolbar_resume();
        else if (key == "stop")
            m_session.toolbar_stop();
    });
}

} // namespace quillora::session
