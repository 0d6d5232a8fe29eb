#pragma once

#include "base/dialogs.h"
#include "capture/capture_engine.h"
#include "session/countdown.h"
#include "session/main_window.h"
#include "session/microphone_setting.h"
#include "session/recorder.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/slide_time_index.h"
#include "session/workspace.h"

#include <filesystem>
#include <memory>

namespace quillora::session {

/// The commands of a recording and the gate `recordState` that each of them asks: a command that does not fit
/// the state does nothing. A recording goes from "stop" through a countdown (still "stop") to "record", to
/// "pause" and back, and from "record" to "stop".
class RecordingSession {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        base::MessageBoxes& boxes;
        MicrophoneSetting& mic_frm;
        capture::CaptureEngineFactory& engines;
        SlideShow& slides;
        SlideTimeIndex& index;
        Workspace& workspace;
        Recorder& recorder;
        Countdown& countdown;
        /// Folder of the picture "5s.gif".
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit RecordingSession(const Ports& ports) : m_ports(ports) {}

    void toolbar_record();
    /// A failure of the recorder ends it by exception, before the state changes.
    void toolbar_pause();
    /// A failure of the recorder ends it by exception, before the state changes.
    void toolbar_resume();
    /// Index, version, stop, pack and save. Throws when index or version file can't be written: the recording
    /// then goes on.
    void toolbar_stop();

  private:
    void GoRecord();
    bool readyToRecord();
    void prepare();

    Ports m_ports;
    /// Made anew at each press of Record and driven by nobody: the recorder has the one that records.
    std::unique_ptr<capture::CaptureEngine> m_spareEngine{};
};

} // namespace quillora::session
