#pragma once

#include "base/clock.h"
#include "base/timer.h"
#include "session/beeper.h"
#include "session/main_window.h"
#include "session/recorder.h"
#include "session/recording_announcement.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace quillora::session {

/// The five seconds between the press of Record and the first frame: pictures 5 to 1 a second apart, then the
/// beep and the start.
class Countdown {
  public:
    struct Ports {
        MainWindow& window;
        const base::WallClock& clock;
        /// Ticks countDown_tmr2_Timer() every 1000 ms.
        base::Timer& countDown_tmr2;
        Beeper& beeper;
        Recorder& recorder;
        RecordingAnnouncement& announcement;
        /// Folder of the pictures "5s.gif" to "1s.gif" and "records.gif".
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit Countdown(const Ports& ports) : m_ports(ports) {}

    /// Counts from 5, also when it was counting already.
    void countDown();
    /// Never throws: a missing picture or beep must not keep a recording from starting.
    void countDown_tmr2_Timer();

  private:
    Ports m_ports;
    int m_countDownLeft = 0;
    std::string m_countDownFrame{};
    std::chrono::sys_seconds m_countDownEnd{};
};

} // namespace quillora::session
