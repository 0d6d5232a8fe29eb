#include "tests/support/recording_engine_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

using namespace quillora::capture;
using namespace std::chrono_literals;
using quillora::tests::RecordingEngineTest;
using quillora::tests::soon;

TEST_F(RecordingEngineTest, RecordsAsManyFramesAsTimeAndRateGive)
{
    for (const float rate : {12.0F, 24.0F, 50.0F}) {
        segments.forget();
        engine.setFrameRate(rate);
        engine.setFileName("video.wmv");
        segment([] { std::this_thread::sleep_for(700ms); });
        engine.Stop();
        expectLength(rate);
    }
}

TEST_F(RecordingEngineTest, LosesAndGainsNothingOverFiftyPauses)
{
    for (int i = 0; i < 51; ++i) {
        segment([] { std::this_thread::sleep_for(31ms); });
        std::this_thread::sleep_for(5ms);
    }
    engine.Stop();
    expectLength(24);
}

TEST_F(RecordingEngineTest, LeavesOutWhatIsShownAndHeardDuringAPause)
{
    world.screen.grey = 50;
    segment([] { std::this_thread::sleep_for(300ms); });
    std::this_thread::sleep_for(50ms);
    world.screen.grey = 250;
    world.microphone.value = -0.5F;
    std::this_thread::sleep_for(300ms);
    world.screen.grey = 100;
    world.microphone.value = 0.5F;
    std::this_thread::sleep_for(50ms);
    segment([] { std::this_thread::sleep_for(300ms); });
    engine.Stop();

    const auto lumaOf = [](int grey) { return int(16 + std::lround(grey * 219 / 255.0)); };
    EXPECT_EQ(std::set(world.media->frames.begin(), world.media->frames.end()),
              (std::set{lumaOf(50), lumaOf(100)}));
    ASSERT_FALSE(world.media->sound.empty());
    for (const float sample : world.media->sound)
        EXPECT_GT(sample, -0.1F);
}

TEST_F(RecordingEngineTest, TakesTheFirstFrameAtOnce)
{
    const auto begin = CaptureClock::now();
    engine.Start();
    ASSERT_TRUE(soon([&] { return world.screen.grabs > 0; }));
    engine.Stop();
    EXPECT_LT(world.screen.firstGrab - begin, 1s);
}

TEST_F(RecordingEngineTest, SurvivesEveryOperationInEveryState)
{
    engine.Stop();
    engine.Pause();
    engine.setFileName("video.wmv");
    engine.Start();
    engine.Start();
    engine.Pause();
    engine.Pause();
    engine.Start();
    engine.Pause();
    engine.Stop();
    engine.Stop();
    engine.Pause();
    EXPECT_EQ(world.media->opened, 1);
    EXPECT_EQ(world.media->closed, 1);
}

TEST_F(RecordingEngineTest, BeginsANewFileAfterStop)
{
    engine.Start();
    engine.Stop();
    engine.setFileName("second.wmv");
    engine.Start();
    engine.Stop();
    EXPECT_EQ(world.media->opened, 2);
    EXPECT_EQ(world.media->closed, 2);
    EXPECT_EQ(world.media->format.path, "second.wmv");
}

/// The hot key that brings the stage back pauses and starts at any time. The lecture that was just stopped,
/// and the one that comes next, must outlive that.
TEST_F(RecordingEngineTest, BeginsNothingUnderANameThatWasRecordedUnderBefore)
{
    engine.Start();
    engine.Stop();
    engine.Pause();
    engine.Start();
    EXPECT_EQ(world.media->opened, 1);
    engine.setFileName("second.wmv");
    engine.Start();
    engine.Stop();
    EXPECT_EQ(world.media->opened, 2);
    EXPECT_EQ(world.media->format.path, "second.wmv");
}

TEST_F(RecordingEngineTest, BeginsNothingWithoutAName)
{
    RecordingEngine other(world.ports());
    other.Pause();
    other.Start();
    EXPECT_EQ(world.media->opened, 0);
}

TEST_F(RecordingEngineTest, TouchesNothingUntilItIsStarted)
{
    {
        const RecordingEngine unused(world.ports());
    }
    EXPECT_EQ(world.screen.opened, 0);
    EXPECT_EQ(world.microphone.started, 0);
    EXPECT_EQ(world.media->opened, 0);
}

TEST_F(RecordingEngineTest, StopsWhenItIsDestroyed)
{
    {
        RecordingEngine other(world.ports());
        other.setOutputWidth(32);
        other.setOutputHeight(20);
        other.setFileName("video.wmv");
        other.Start();
    }
    EXPECT_EQ(world.media->closed, 1);
    EXPECT_EQ(world.microphone.running, 0);
}

TEST_F(RecordingEngineTest, ChangesModeRectangleAndPointerBetweenSegments)
{
    engine.setLeft(7);
    engine.setTop(5);
    engine.Start();
    ASSERT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{7, 5, 40, 30}; }));

    // Setting alone changes nothing.
    engine.setCaptureMode(CaptureMode::wholeScreen);
    engine.setHighlightCursor(true);
    const int grabs = world.screen.grabs;
    ASSERT_TRUE(soon([&] { return world.screen.grabs > grabs + 1; }));
    EXPECT_EQ(world.screen.regionSeen(), (PixelRectangle{7, 5, 40, 30}));

    engine.Pause();
    engine.Start();
    EXPECT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{0, 0, 100, 80}; }));
    EXPECT_TRUE(world.screen.pointerSeen().highlight);
    EXPECT_FALSE(world.screen.pointerSeen().cursor);

    engine.Pause();
    engine.setCaptureMode(CaptureMode::aroundMouse);
    engine.Start();
    EXPECT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{34, 30, 32, 20}; }));
    world.screen.pointerX = 99;
    world.screen.pointerY = 0;
    EXPECT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{68, 0, 32, 20}; }));
    engine.Stop();
    EXPECT_EQ(world.media->format.width, 32);
    EXPECT_EQ(world.media->opened, 1);
}

/// The hot key starts the engine at the open dialog of the screen recording. What the dialog is told after
/// that has to be filmed all the same.
TEST_F(RecordingEngineTest, TakesUpTheModeAndThePointerOfNowWhenItIsStartedWhileItRuns)
{
    segment([&] {
        ASSERT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{0, 0, 40, 30}; }));
        std::this_thread::sleep_for(300ms);
        engine.setCaptureMode(CaptureMode::wholeScreen);
        engine.setHighlightCursor(true);
        engine.Start();
        EXPECT_TRUE(soon([&] { return world.screen.regionSeen() == PixelRectangle{0, 0, 100, 80}; }));
        std::this_thread::sleep_for(300ms);
    });
    engine.Stop();
    EXPECT_TRUE(world.screen.pointerSeen().highlight);
    expectLength(24);
    EXPECT_EQ(world.media->opened, 1);
}

TEST_F(RecordingEngineTest, TakesTheNearestPossibleNumbers)
{
    const auto formatFor = [&](float rate, std::int32_t bitrate) {
        engine.setFrameRate(rate);
        engine.setBitrate(bitrate);
        engine.setFileName("video.wmv");
        engine.Start();
        engine.Stop();
        return world.media->format;
    };
    EXPECT_EQ(formatFor(0, 0).framesPerSecond, RecordingEngine::kLowestFrameRate);
    EXPECT_EQ(formatFor(0, 0).bitsPerSecond, RecordingEngine::kLowestBitrate);
    EXPECT_EQ(formatFor(std::numeric_limits<float>::quiet_NaN(), -5).framesPerSecond,
              RecordingEngine::kLowestFrameRate);
    EXPECT_EQ(formatFor(1e9F, 1'500'000).framesPerSecond, RecordingEngine::kHighestFrameRate);
    EXPECT_EQ(formatFor(30, 1'500'000).bitsPerSecond, 1'500'000);
}

TEST_F(RecordingEngineTest, RecordsARectangleOfAnySize)
{
    for (const int edge : {0, -5, 1, 3, 101, std::numeric_limits<int>::min()}) {
        engine.setWidth(edge);
        engine.setHeight(edge);
        engine.setFileName("video.wmv");
        const int grabs = world.screen.grabs;
        engine.Start();
        EXPECT_TRUE(soon([&] { return world.screen.grabs > grabs + 1; })) << edge;
        engine.Stop();
        EXPECT_FALSE(world.media->frames.empty()) << edge;
    }
}

TEST_F(RecordingEngineTest, NamesItsCodecAndTheSoundInputs)
{
    ASSERT_EQ(engine.VideoCodecCount(), 1);
    EXPECT_EQ(engine.VideoCodecName(0), "Windows Media Video 8");
    ASSERT_EQ(engine.AudioDeviceCount(), 2);
    EXPECT_EQ(engine.AudioDeviceName(0), "Microphone");
    EXPECT_EQ(engine.AudioDeviceName(1), "Line in");
    ASSERT_EQ(engine.AudioLineCount(), 1);
    EXPECT_EQ(engine.AudioLineName(0), "Default input");
    EXPECT_THROW(engine.VideoCodecName(1), std::exception);
    EXPECT_THROW(engine.AudioDeviceName(2), std::exception);
    EXPECT_THROW(engine.AudioLineName(-1), std::exception);
}
