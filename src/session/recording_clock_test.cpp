#include "session/recording_clock.h"

#include <gtest/gtest.h>

using namespace quillora::session;
using namespace std::chrono_literals;

namespace {

constexpr RecordingClock::Reading kNine{std::chrono::sys_days{std::chrono::year{2031} / 3 / 14} + 9h};

} // namespace

TEST(TimeOfDayText, HasTwoDigitsEach)
{
    EXPECT_EQ(timeOfDayText(0s), "00:00:00");
    EXPECT_EQ(timeOfDayText(3661s), "01:01:01");
    EXPECT_EQ(timeOfDayText(24h - 1s), "23:59:59");
}

TEST(TimeOfDayText, BeginsAgainAfterADay)
{
    EXPECT_EQ(timeOfDayText(24h), "00:00:00");
    EXPECT_EQ(timeOfDayText(49h + 2s), "01:00:02");
}

TEST(TimeOfDayText, OfAClockSetBack_CountsTheFractionOfTheDayWithoutItsSign)
{
    EXPECT_EQ(timeOfDayText(-5s), "00:00:05");
    EXPECT_EQ(timeOfDayText(-25h), "01:00:00");
}

TEST(RecordingClock, ShowsOneTimeInBothClocksUntilAPause)
{
    RecordingClock clock;
    clock.start(kNine);
    EXPECT_EQ(clock.plain(kNine + 12s), "00:00:12");
    EXPECT_EQ(clock.corrected(kNine + 12s), "00:00:12");
}

TEST(RecordingClock, TakesEveryPauseOffTheCorrectedTime)
{
    RecordingClock clock;
    clock.start(kNine);
    clock.pause(kNine + 10s);
    clock.resume(kNine + 30s);
    clock.pause(kNine + 40s);
    clock.resume(kNine + 45s);
    EXPECT_EQ(clock.corrected(kNine + 50s), "00:00:25");
    EXPECT_EQ(clock.plain(kNine + 50s), "00:00:50");
}

TEST(RecordingClock, KeepsThePausesOfEarlierRecordings)
{
    RecordingClock clock;
    clock.start(kNine);
    clock.pause(kNine + 10s);
    clock.resume(kNine + 30s);
    clock.start(kNine + 100s);
    EXPECT_EQ(clock.plain(kNine + 160s), "00:01:00");
    EXPECT_EQ(clock.corrected(kNine + 160s), "00:00:40");
}

TEST(RecordingClock, ResumedTwiceAfterOnePause_CountsTheTimeSinceThatPauseTwice)
{
    RecordingClock clock;
    clock.start(kNine);
    clock.pause(kNine + 10s);
    clock.resume(kNine + 20s);
    clock.resume(kNine + 30s);
    EXPECT_EQ(clock.corrected(kNine + 60s), "00:00:30");
}
