#pragma once

#include "capture/sound_source.h"

#include <chrono>
#include <cstddef>
#include <vector>

namespace quillora::capture {

/// Time that has been recorded, or a moment of the recording: what the file's times are made of. It stands
/// still in pauses.
using RecordedTime = std::chrono::nanoseconds;

/// Translates between moments and recorded time, over any number of pauses. Pictures and sound are both
/// placed by it, so that a pause cuts both at the same moment, and nothing adds up over many pauses. Not
/// thread-safe.
class SegmentClock {
  public:
    struct Segment {
        CaptureClock::time_point begin{};
        /// Where the segment begins in recorded time.
        RecordedTime start{};
        /// Its length; nothing ends an open segment.
        RecordedTime length = RecordedTime::max();

        RecordedTime end() const { return length == RecordedTime::max() ? length : start + length; }
    };

    /// Harmless when it runs, or stands, already.
    void resume(CaptureClock::time_point now);
    void pause(CaptureClock::time_point now);

    bool running() const { return !m_segments.empty() && m_segments.back().length == RecordedTime::max(); }
    /// Recorded time at @p moment, of any segment or pause.
    RecordedTime recordedAt(CaptureClock::time_point moment) const;
    const std::vector<Segment>& segments() const { return m_segments; }

  private:
    std::vector<Segment> m_segments{};
};

} // namespace quillora::capture
