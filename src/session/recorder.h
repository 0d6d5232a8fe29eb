#pragma once

#include "base/clock.h"
#include "base/timer.h"
#include "capture/capture_engine.h"
#include "capture/random_string.h"
#include "session/capture_engine_field.h"
#include "session/capture_options.h"
#include "session/main_window.h"
#include "session/packaging.h"
#include "session/recording_clock.h"
#include "session/session_fields.h"
#include "session/user_folders.h"

namespace quillora::session {

/// Drives the one capture engine and the running clock: what starting, pausing, resuming and stopping do.
/// Which of them may happen when is not asked here; see RecordingSession.
///
/// No answer of the engine is ever waited for. A recording whose engine failed shows "Recording ..." and a
/// running clock all the same.
class Recorder {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        CaptureEngineField& captureEngine;
        CaptureOptions& options;
        RecordingClock& time;
        capture::RandomNames& names;
        const base::WallClock& clock;
        /// Ticks Timer2_Timer() every 50 ms.
        base::Timer& Timer2;
        UserFolders folders;
        Packaging& packaging;
    };
    /// What the ports refer to must outlive this object.
    explicit Recorder(const Ports& ports) : m_ports(ports) {}

    /// Skips what fails.
    void StartRec();
    /// The first failure ends it by exception.
    void PauseRec();
    /// The first failure ends it by exception. Leaves the window among the others, where PauseRec() put it.
    void ResumeRec();
    /// Stops, then packs and saves: returns when the presenter has given a name. Skips what fails.
    void StopRec();

    /// Shows the time of now. Never throws.
    void Timer2_Timer();

  private:
    capture::CaptureEngine& captureEngine() { return m_ports.captureEngine.get(); }
    void configureEngine();
    void configureRegion();
    void nameTheVideo();
    void StopMoveForm();

    Ports m_ports;
    bool m_moveLocked = false;
};

} // namespace quillora::session
