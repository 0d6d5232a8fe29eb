#pragma once

#include "capture/segment_clock.h"

#include <cstdint>

namespace quillora::capture {

/// Says when the frames of a recording are to be taken, so that their number is the recorded time multiplied
/// by the rate, to one frame, however late the asker comes and however often the recording pauses.
///
/// A frame is taken in the middle of the time in which it will be shown: what happens on the screen is then
/// at most half a frame away from its sound, on either side, unless the asker comes late. Not thread-safe.
class FramePacer {
  public:
    explicit FramePacer(double framesPerSecond) : m_framesPerSecond(framesPerSecond) {}

    /// How many frames, of the whole recording, should have been taken by @p now. Never less than it was
    /// before.
    std::int64_t framesDue(const SegmentClock& clock, CaptureClock::time_point now);
    /// Whether the time has passed in which @p frame, counted from 0, could still be taken. It has a moment
    /// longer than until the next frame is due, so that a thread that the machine woke late makes good what
    /// it missed.
    bool tooLate(std::int64_t frame, const SegmentClock& clock, CaptureClock::time_point now) const;
    /// When the next frame is due. Asked while the clock runs.
    CaptureClock::time_point nextDue(const SegmentClock& clock) const;

  private:
    std::int64_t framesAt(const SegmentClock& clock, CaptureClock::time_point moment) const;

    double m_framesPerSecond;
    std::int64_t m_due = 0;
    std::size_t m_segments = 0;
    std::int64_t m_dueBeforeSegment = 0;
};

} // namespace quillora::capture
