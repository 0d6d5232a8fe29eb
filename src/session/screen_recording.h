#pragma once

#include "base/clock.h"
#include "base/dialogs.h"
#include "base/timer.h"
#include "session/capture_engine_field.h"
#include "session/full_screen_form.h"
#include "session/main_window.h"
#include "session/recording_clock.h"
#include "session/session_fields.h"

#include <functional>

namespace quillora::session {

/// Leaves the stage during a recording and films the whole screen or the region around the mouse, into the
/// same file, until a hot key brings the stage back. `recordState` stays "record" throughout, and nothing but
/// the engine's capture mode tells that the stage is away.
///
/// The time in the dialog is no time of the recording. The short gap of the return is: the clock runs on
/// there. The first failure ends an operation by exception, except where it says otherwise.
class ScreenRecording {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        base::MessageBoxes& boxes;
        CaptureEngineField& captureEngine;
        RecordingClock& time;
        const base::WallClock& clock;
        /// The recording's clock, the same one that the recorder turns on and off.
        base::Timer& Timer2;
        FullScreenForm& FullScreen_frm;
        /// Makes the hot key anew, so that it is this program's when the window goes away.
        std::function<void()> ActivateHotKey;
    };
    /// What the ports refer to must outlive this object.
    explicit ScreenRecording(Ports ports) : m_ports(std::move(ports)) {}

    void toolbar_screen();

    /// Start, in the dialog.
    void Command1_Click();
    /// Cancel, in the dialog.
    void Command2_Click();

    /// Back to the stage, at every press of the hot key, whatever the state: nothing is asked, and no state
    /// changes.
    void ReturnWindow();

  private:
    void Start_full();
    void Start_fulll_rec();
    void CancelFullscreen();
    void resumeClock();

    Ports m_ports;
};

} // namespace quillora::session
