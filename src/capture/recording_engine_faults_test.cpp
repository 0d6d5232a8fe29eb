#include "tests/support/recording_engine_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace quillora::capture;
using namespace std::chrono_literals;
using quillora::tests::soon;

namespace {

/// Displays, sound servers and disks that are slow, hang, go away or were never there.
using RecordingEngineFaultsTest = quillora::tests::RecordingEngineTest;

} // namespace

TEST_F(RecordingEngineFaultsTest, KeepsTheLengthWithoutASoundInput)
{
    world.microphone.silent = true;
    segment([] { std::this_thread::sleep_for(700ms); });
    engine.Stop();
    expectLength(24);
}

TEST_F(RecordingEngineFaultsTest, FillsAHoleInTheSoundWithSilenceOfItsLength)
{
    segment([&] {
        std::this_thread::sleep_for(300ms);
        world.microphone.silent = true;
        std::this_thread::sleep_for(700ms);
        world.microphone.silent = false;
        std::this_thread::sleep_for(300ms);
    });
    engine.Stop();
    expectLength(24);
    const auto silent = std::ranges::count_if(world.media->sound, [](float sample) { return sample == 0; });
    EXPECT_GT(double(silent) / kSoundRate, 0.6);
    EXPECT_GT(world.media->sound.back(), 0.4F);
}

TEST_F(RecordingEngineFaultsTest, GoesOnWithTheLastPictureWhileTheDisplayIsGone)
{
    world.screen.grey = 200;
    segment([&] {
        ASSERT_TRUE(soon([&] { return world.screen.grabs > 2; }));
        world.screen.gone = true;
        std::this_thread::sleep_for(400ms);
    });
    engine.Stop();
    expectLength(24);
    EXPECT_EQ(world.media->frames.back(), 16 + std::lround(200 * 219 / 255.0));
}

TEST_F(RecordingEngineFaultsTest, RecordsOnceADisplayComes)
{
    world.screen.gone = true;
    engine.Start();
    ASSERT_TRUE(soon([&] { return world.screen.opened > 0; }));
    world.screen.gone = false;
    EXPECT_TRUE(soon([&] { return world.screen.grabs > 0; }));
    engine.Stop();
}

TEST_F(RecordingEngineFaultsTest, KeepsTheLengthWhereGrabsAreSlow)
{
    world.screen.grabMilliseconds = 150;
    segment([] { std::this_thread::sleep_for(1s); });
    engine.Stop();
    expectLength(24);
    EXPECT_GT(engine.counts().dropped, 0);
}

TEST_F(RecordingEngineFaultsTest, KeepsTheLengthWhereTheDisplayHangs)
{
    segment([&] {
        ASSERT_TRUE(soon([&] { return world.screen.grabs > 1; }));
        world.screen.grabMilliseconds = 1500;
        std::this_thread::sleep_for(1s);
    });
    const auto begin = CaptureClock::now();
    engine.Stop();
    EXPECT_LT(CaptureClock::now() - begin, 10s);
    expectLength(24);
}

TEST_F(RecordingEngineFaultsTest, CatchesUpAfterTheDiskHungForAWhile)
{
    segment([&] {
        ASSERT_TRUE(soon([&] { return world.media->frameCount() > 2; }));
        {
            const std::lock_guard lock(world.media->mutex);
            world.media->hangs = true;
        }
        for (int i = 0; i < 40; ++i) {
            world.screen.grey = 5 * i;
            std::this_thread::sleep_for(25ms);
        }
        world.media->letGo();
        std::this_thread::sleep_for(100ms);
    });
    engine.Stop();
    expectLength(24);
    EXPECT_EQ(world.media->frames.back(), 16 + std::lround(195 * 219 / 255.0));
}

TEST_F(RecordingEngineFaultsTest, StopReturnsThoughTheDiskHangsForGood)
{
    engine.Start();
    ASSERT_TRUE(soon([&] { return world.media->frameCount() > 2; }));
    {
        const std::lock_guard lock(world.media->mutex);
        world.media->hangs = true;
    }
    world.screen.grey = 9;
    std::this_thread::sleep_for(100ms);
    const auto begin = CaptureClock::now();
    engine.Stop();
    EXPECT_LT(CaptureClock::now() - begin, 20s);
    // The thread that was left behind ends, before the world that it works in does.
    world.media->letGo();
    EXPECT_TRUE(soon([&] {
        const std::lock_guard lock(world.media->mutex);
        return world.media->closed == 1;
    }));
    std::this_thread::sleep_for(50ms);
}

TEST_F(RecordingEngineFaultsTest, ClosesTheFileWhenTheDiskIsFullAndGoesOn)
{
    world.media->diskFullAfterFrames = 5;
    engine.Start();
    EXPECT_TRUE(soon([&] {
        const std::lock_guard lock(world.media->mutex);
        return world.media->closed == 1;
    }));
    engine.Pause();
    engine.Start();
    engine.Stop();
    EXPECT_EQ(world.media->closed, 1);
    EXPECT_EQ(world.media->opened, 1);
}

TEST_F(RecordingEngineFaultsTest, SaysThatTheFileCannotBeWrittenAndStaysIdle)
{
    world.media->refusesToOpen = true;
    EXPECT_THROW(engine.Start(), std::runtime_error);
    engine.Pause();
    engine.Stop();
    world.media->refusesToOpen = false;
    engine.Start();
    EXPECT_EQ(world.media->opened, 0) << "nobody asked for another recording under this name";
    engine.setFileName("second.wmv");
    engine.Start();
    engine.Stop();
    EXPECT_EQ(world.media->opened, 1);
}
