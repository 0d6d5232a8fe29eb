#include "capture/frame_pacer.h"

#include <algorithm>
#include <cmath>

namespace quillora::capture {

namespace {

/// At low rates the middle of the next frame can be further away than a segment may wait for its first frame.
constexpr std::chrono::milliseconds kLatestFirstFrame{40};
/// A picture that is taken late shows what its sound says only later. Viewers begin to notice that at 125 ms
/// (ITU-R BT.1359); up to here a late picture is better than the last one again.
constexpr std::chrono::milliseconds kLatestFrame{80};

} // namespace

std::int64_t FramePacer::framesDue(const SegmentClock& clock, CaptureClock::time_point now)
{
    if (clock.segments().size() != m_segments) {
        m_segments = clock.segments().size();
        m_dueBeforeSegment = m_due;
    }
    m_due = std::max(m_due, framesAt(clock, now));
    if (clock.running() && m_due == m_dueBeforeSegment &&
        now - clock.segments().back().begin >= kLatestFirstFrame)
        ++m_due;
    return m_due;
}

bool FramePacer::tooLate(std::int64_t frame, const SegmentClock& clock, CaptureClock::time_point now) const
{
    return framesAt(clock, now - kLatestFrame) > frame;
}

std::int64_t FramePacer::framesAt(const SegmentClock& clock, CaptureClock::time_point moment) const
{
    const std::chrono::duration<double> recorded = clock.recordedAt(moment);
    return std::int64_t(std::floor(recorded.count() * m_framesPerSecond + 0.5));
}

CaptureClock::time_point FramePacer::nextDue(const SegmentClock& clock) const
{
    const SegmentClock::Segment& segment = clock.segments().back();
    const std::chrono::duration<double> middle((double(m_due) + 0.5) / m_framesPerSecond);
    // Rounded up, so that who sleeps until then finds the frame due.
    auto due = segment.begin + std::chrono::ceil<CaptureClock::duration>(middle - segment.start) +
               std::chrono::microseconds(1);
    if (clock.segments().size() != m_segments || m_due == m_dueBeforeSegment)
        due = std::min(due, segment.begin + kLatestFirstFrame);
    return due;
}

} // namespace quillora::capture
