#include "capture/segment_clock.h"

#include <gtest/gtest.h>

using namespace quillora::capture;
using namespace std::chrono_literals;

namespace {

const CaptureClock::time_point kNoon{CaptureClock::duration(12h)};

} // namespace

TEST(SegmentClock, StandsAtZeroUntilItRuns)
{
    const SegmentClock clock;
    EXPECT_FALSE(clock.running());
    EXPECT_EQ(clock.recordedAt(kNoon), 0s);
}

TEST(SegmentClock, StandsStillInPauses)
{
    SegmentClock clock;
    clock.resume(kNoon);
    EXPECT_EQ(clock.recordedAt(kNoon + 7s), 7s);
    clock.pause(kNoon + 10s);
    EXPECT_EQ(clock.recordedAt(kNoon + 100s), 10s);
    clock.resume(kNoon + 100s);
    EXPECT_EQ(clock.recordedAt(kNoon + 103s), 13s);
}

TEST(SegmentClock, StillKnowsMomentsOfEarlierSegments)
{
    SegmentClock clock;
    clock.resume(kNoon);
    clock.pause(kNoon + 10s);
    clock.resume(kNoon + 100s);
    clock.pause(kNoon + 110s);
    EXPECT_EQ(clock.recordedAt(kNoon - 1s), 0s);
    EXPECT_EQ(clock.recordedAt(kNoon + 4s), 4s);
    EXPECT_EQ(clock.recordedAt(kNoon + 50s), 10s);
    EXPECT_EQ(clock.recordedAt(kNoon + 105s), 15s);
}

TEST(SegmentClock, TakesNoNoticeOfASecondResumeOrPause)
{
    SegmentClock clock;
    clock.pause(kNoon);
    EXPECT_EQ(clock.segments().size(), 0U);
    clock.resume(kNoon);
    clock.resume(kNoon + 1s);
    clock.pause(kNoon + 2s);
    clock.pause(kNoon + 3s);
    EXPECT_EQ(clock.segments().size(), 1U);
    EXPECT_EQ(clock.recordedAt(kNoon + 5s), 2s);
}

TEST(SegmentClock, AddsUpManyPausesExactly)
{
    SegmentClock clock;
    auto now = kNoon;
    for (int i = 0; i < 10'000; ++i) {
        clock.resume(now);
        now += 1'000'000'007ns;
        clock.pause(now);
        now += 333ms;
    }
    EXPECT_EQ(clock.recordedAt(now), 10'000 * 1'000'000'007ns);
}
