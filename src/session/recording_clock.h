#pragma once

#include <chrono>
#include <string>

namespace quillora::session {

/// The time of a recording, by subtraction of clock readings and never by counting ticks: a late or lost tick
/// costs nothing, and a clock that is set shows.
class RecordingClock {
  public:
    using Reading = std::chrono::sys_seconds;

    void start(Reading now) { m_recordStart = now; }
    void pause(Reading now) { m_pauseStart = now; }
    /// Adds the time since the last pause to `pausedTotal`, which no recording resets: the paused time of
    /// earlier recordings is part of it.
    void resume(Reading now);

    /// Time since the start, pauses included.
    std::string plain(Reading now) const;
    /// Time since the start less `pausedTotal`.
    std::string corrected(Reading now) const;

  private:
    Reading m_recordStart{};
    Reading m_pauseStart{};
    Reading m_resumeAt{};
    std::chrono::seconds m_pausedTotal{};
};

/// "hh:mm:ss" of a difference of two clock readings, as the time of day of a date-time value: whole days drop
/// out, and the fraction of the day counts without its sign, so that 5 s before is "00:00:05" too.
std::string timeOfDayText(std::chrono::seconds difference);

} // namespace quillora::session
