#include "capture/segment_clock.h"

#include <algorithm>
#include <ranges>

namespace quillora::capture {

void SegmentClock::resume(CaptureClock::time_point now)
{
    if (running())
        return;
    m_segments.push_back({now, m_segments.empty() ? RecordedTime::zero() : m_segments.back().end()});
}

void SegmentClock::pause(CaptureClock::time_point now)
{
    if (running())
        m_segments.back().length =
            std::max(RecordedTime::zero(), RecordedTime(now - m_segments.back().begin));
}

RecordedTime SegmentClock::recordedAt(CaptureClock::time_point moment) const
{
    for (const Segment& segment : m_segments | std::views::reverse)
        if (moment >= segment.begin)
            return segment.start + std::min(RecordedTime(moment - segment.begin), segment.length);
    return RecordedTime::zero();
}

} // namespace quillora::capture
