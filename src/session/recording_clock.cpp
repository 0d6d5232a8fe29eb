#include "session/recording_clock.h"

#include <array>
#include <cstdio>

namespace quillora::session {

void RecordingClock::resume(Reading now)
{
    m_resumeAt = now;
    m_pausedTotal = (m_resumeAt + m_pausedTotal) - m_pauseStart;
}

std::string RecordingClock::plain(Reading now) const { return timeOfDayText(now - m_recordStart); }

std::string RecordingClock::corrected(Reading now) const
{
    return timeOfDayText((now - m_recordStart) - m_pausedTotal);
}

std::string timeOfDayText(std::chrono::seconds difference)
{
    const std::chrono::hh_mm_ss time(std::chrono::abs(difference) % std::chrono::days(1));
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return text.data();
}

} // namespace quillora::session
