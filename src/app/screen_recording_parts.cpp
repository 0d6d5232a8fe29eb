#include "app/screen_recording_parts.h"

#include "base/skip_failures.h"
#include "forms/screen_presence.h"

namespace quillora::app {

using base::skipFailures;
using forms::FullScreen_frm;

ScreenRecordingParts::ScreenRecordingParts(const Ports& ports)
    : m_hints(ports.hints),
      m_logic({.fields = ports.fields,
               .window = ports.window,
               .boxes = ports.boxes,
               .captureEngine = ports.captureEngine,
               .time = ports.time,
               .clock = ports.clock,
               .Timer2 = ports.Timer2,
               .FullScreen_frm = *this,
               .ActivateHotKey = ports.ActivateHotKey})
{}

ScreenRecordingParts::~ScreenRecordingParts() = default;

void ScreenRecordingParts::ReturnWindow()
{
    skipFailures([&] { m_logic.ReturnWindow(); });
}

void ScreenRecordingParts::show()
{
    if (!m_form) {
        m_form = std::make_unique<FullScreen_frm>();
        const auto forward = [this](auto signal, auto operation) {
            QObject::connect(m_form.get(), signal, m_form.get(),
                             [this, operation] { skipFailures([&] { (m_logic.*operation)(); }); });
        };
        forward(&FullScreen_frm::Command1_Click, &session::ScreenRecording::Command1_Click);
        forward(&FullScreen_frm::Command2_Click, &session::ScreenRecording::Command2_Click);
    }
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void ScreenRecordingParts::hide()
{
    if (m_form)
        forms::takeOffScreen(*m_form, m_hints);
}

bool ScreenRecordingParts::mouse_opt() const { return m_form && m_form->mouse_opt(); }

} // namespace quillora::app
