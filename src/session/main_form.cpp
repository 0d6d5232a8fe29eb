#include "session/main_form.h"

#include "base/skip_failures.h"

namespace quillora::session {

void MainForm::Form_Load()
{
    auto& fields = m_ports.fields;
    auto& window = m_ports.window;
    base::skipFailures([&] { m_ports.pane.AddExpBarLess(); }, [&] { m_ports.ActivateHotKey(); },
                       [&] { m_ports.slides.showStartPicture(); }, [&] { m_ports.workspace.makeFolders(); },
                       [&] { m_ports.workspace.deleteAll(); }, [&] { m_ports.slides.ResizeSlide(); },
                       [&] { m_ports.browsers.navigate(); }, [&] { fields.recordState = "stop"; },
                       [&] { m_ports.Timer1.enable(); },
                       [&] { window.setCaption("Quillora Recorder (" + fields.version_lb + ")"); },
                       [&] { fields.myWindowMode = "full"; }, [&] { fields.myMediaType = "slides"; },
                       [&] { window.setStatusPanel(5, fields.myWindowMode); },
                       [&] { window.setStatusPanel(6, fields.myMediaType); });
}

void MainForm::Form_Unload()
{
    // The window closes whatever the stop runs into: a presenter whose disk is full must still get out.
    base::skipFailures([&] { m_ports.session.toolbar_stop(); }, [&] { m_ports.camera.CloseCam(); });
}

void MainForm::Form_Terminate()
{
    base::skipFailures([&] { m_ports.camera.CloseCam(); });
}

} // namespace quillora::session
