#include "capture/frame_pacer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace quillora::capture;
using namespace std::chrono_literals;

namespace {

const CaptureClock::time_point kNoon{CaptureClock::duration(12h)};

double secondsOf(CaptureClock::duration duration) { return std::chrono::duration<double>(duration).count(); }

/// Somebody who sleeps until each frame is due, and comes late by as much as the test says.
struct Sleeper {
    explicit Sleeper(double rate) : pacer(rate) {}

    template <typename Lateness>
    void sleepUntil(CaptureClock::time_point end, Lateness lateness)
    {
        for (;;) {
            const auto due = pacer.nextDue(clock);
            if (due >= end)
                break;
            now = std::max(now, due) + lateness();
            if (now >= end)
                break;
            const auto before = frames;
            frames = pacer.framesDue(clock, now);
            EXPECT_GT(frames, before) << "woken for nothing";
            mostAtOnce = std::max(mostAtOnce, frames - before);
        }
        now = end;
    }

    SegmentClock clock{};
    FramePacer pacer;
    CaptureClock::time_point now = kNoon;
    std::int64_t frames = 0;
    std::int64_t mostAtOnce = 0;
};

} // namespace

TEST(FramePacer, GivesAsManyFramesAsTimeAndRateToOneFrame)
{
    for (const double rate : {12.0, 23.976, 24.0, 25.0, 31.0, 50.0}) {
        Sleeper sleeper(rate);
        sleeper.clock.resume(kNoon);
        sleeper.sleepUntil(kNoon + 4h, [] { return 100us; });
        EXPECT_NEAR(double(sleeper.pacer.framesDue(sleeper.clock, kNoon + 4h)), 4 * 3600 * rate, 1) << rate;
        EXPECT_EQ(sleeper.mostAtOnce, 1) << rate;
    }
}

TEST(FramePacer, TakesTheFirstFrameOfARecordingWithin50Milliseconds)
{
    for (const double rate : {1.0, 12.0, 24.0, 50.0}) {
        SegmentClock clock;
        clock.resume(kNoon);
        FramePacer pacer(rate);
        EXPECT_EQ(pacer.framesDue(clock, kNoon), 0);
        EXPECT_LE(pacer.nextDue(clock), kNoon + 50ms) << rate;
        EXPECT_EQ(pacer.framesDue(clock, pacer.nextDue(clock)), 1) << rate;
    }
}

TEST(FramePacer, LeavesAFrameTimeToBeTakenLate)
{
    SegmentClock clock;
    clock.resume(kNoon);
    // The frames are due at 10 and 30 ms, and at 21 and 63 ms.
    const FramePacer quick(50);
    EXPECT_FALSE(quick.tooLate(0, clock, kNoon + 89ms));
    EXPECT_TRUE(quick.tooLate(0, clock, kNoon + 91ms));
    EXPECT_FALSE(quick.tooLate(1, clock, kNoon + 109ms));
    EXPECT_TRUE(quick.tooLate(1, clock, kNoon + 111ms));
    const FramePacer usual(24);
    EXPECT_FALSE(usual.tooLate(0, clock, kNoon + 100ms));
    EXPECT_TRUE(usual.tooLate(0, clock, kNoon + 102ms));
    EXPECT_FALSE(usual.tooLate(1, clock, kNoon + 142ms));
    EXPECT_TRUE(usual.tooLate(1, clock, kNoon + 144ms));
}

TEST(FramePacer, TakesTheFirstFrameOfEachSegmentWithin50Milliseconds)
{
    for (const double rate : {12.0, 24.0, 50.0}) {
        Sleeper sleeper(rate);
        auto begin = kNoon;
        for (int i = 0; i < 20; ++i) {
            sleeper.clock.resume(begin);
            EXPECT_LE(sleeper.pacer.nextDue(sleeper.clock), begin + 50ms) << rate;
            sleeper.sleepUntil(begin + 1017ms, [] { return 1ms; });
            sleeper.clock.pause(begin + 1017ms);
            sleeper.frames = sleeper.pacer.framesDue(sleeper.clock, begin + 1017ms);
            begin += 5s;
            sleeper.now = begin;
        }
    }
}

TEST(FramePacer, CountsToOneFrameOverFiftyPausesOfAnyLength)
{
    std::mt19937 generator(3);
    for (const double rate : {12.0, 24.0, 50.0}) {
        Sleeper sleeper(rate);
        auto now = kNoon;
        CaptureClock::duration recorded{};
        for (int i = 0; i < 51; ++i) {
            const auto length = std::chrono::microseconds(generator() % 900'000);
            sleeper.clock.resume(now);
            sleeper.now = now;
            sleeper.sleepUntil(now + length, [] { return 200us; });
            now += length;
            sleeper.clock.pause(now);
            sleeper.frames = sleeper.pacer.framesDue(sleeper.clock, now);
            recorded += length;
            now += std::chrono::microseconds(generator() % 3'000'000);
            EXPECT_NEAR(double(sleeper.frames), secondsOf(recorded) * rate, 1.01) << rate << ", pause " << i;
        }
    }
}

TEST(FramePacer, MakesGoodForAnAskerWhoComesLate)
{
    std::mt19937 generator(9);
    Sleeper sleeper(24);
    sleeper.clock.resume(kNoon);
    sleeper.sleepUntil(kNoon + 60s, [&] { return std::chrono::milliseconds(generator() % 300); });
    EXPECT_GT(sleeper.mostAtOnce, 3);
    EXPECT_NEAR(double(sleeper.pacer.framesDue(sleeper.clock, kNoon + 60s)), 60 * 24, 1);
}

TEST(FramePacer, TakesAFrameInTheMiddleOfItsTime)
{
    SegmentClock clock;
    clock.resume(kNoon);
    FramePacer pacer(25);
    EXPECT_NEAR(secondsOf(pacer.nextDue(clock) - kNoon), 0.020, 0.0001);
    pacer.framesDue(clock, pacer.nextDue(clock));
    EXPECT_NEAR(secondsOf(pacer.nextDue(clock) - kNoon), 0.060, 0.0001);
}

TEST(FramePacer, NeverTakesAFrameBack)
{
    SegmentClock clock;
    clock.resume(kNoon);
    FramePacer pacer(24);
    EXPECT_EQ(pacer.framesDue(clock, kNoon + 1s), 24);
    EXPECT_EQ(pacer.framesDue(clock, kNoon + 500ms), 24);
}
