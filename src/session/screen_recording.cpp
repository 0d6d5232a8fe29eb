#include "session/screen_recording.h"

namespace quillora::session {

using capture::CaptureMode;

void ScreenRecording::toolbar_screen() { Start_full(); }

void ScreenRecording::Start_full()
{
    auto& fields = m_ports.fields;
    if (fields.recordState != "record") {
        m_ports.boxes.show({.text = "Please start recording first, before using Screen Recording Mode",
                            .icon = base::BoxIcon::information});
        return;
    }
    fields.Text2 = "P";
    m_ports.time.pause(m_ports.clock.now());
    m_ports.captureEngine.get().Pause();
    m_ports.Timer2.disable();
    m_ports.window.processPendingEvents();
    m_ports.window.setFormVisible(false);
    m_ports.FullScreen_frm.show();
}

void ScreenRecording::Command1_Click()
{
    m_ports.ActivateHotKey();
    m_ports.FullScreen_frm.hide();
    Start_fulll_rec();
}

void ScreenRecording::Start_fulll_rec()
{
    auto& engine = m_ports.captureEngine.get();
    engine.setCaptureMode(m_ports.FullScreen_frm.mouse_opt() ? CaptureMode::aroundMouse
                                                             : CaptureMode::wholeScreen);
    resumeClock();
    engine.Start();
}

void ScreenRecording::Command2_Click()
{
    m_ports.FullScreen_frm.hide();
    CancelFullscreen();
}

void ScreenRecording::CancelFullscreen()
{
    auto& engine = m_ports.captureEngine.get();
    engine.setCaptureMode(CaptureMode::rectangle);
    m_ports.window.setFormVisible(true);
    resumeClock();
    engine.Start();
}

void ScreenRecording::resumeClock()
{
    m_ports.time.resume(m_ports.clock.now());
    m_ports.Timer2.enable();
}

void ScreenRecording::ReturnWindow()
{
    auto& engine = m_ports.captureEngine.get();
    engine.Pause();
    m_ports.window.setFormVisible(true);
    m_ports.window.processPendingEvents();
    const auto stage = m_ports.window.stageRectangle();
    engine.setCaptureMode(CaptureMode::rectangle);
    engine.setTop(stage.top);
    engine.setLeft(stage.left);
    engine.setWidth(stage.width);
    engine.setHeight(stage.height);
    engine.Start();
}

} // namespace quillora::session
