#pragma once

#include "capture/recording_engine.h"
#include "tests/support/fake_capture_ports.h"
#include "tests/support/timed_segments.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace quillora::tests {

/// Waits, at most for some seconds, until @p condition holds.
template <typename Condition>
bool soon(Condition condition)
{
    for (int i = 0; i < 1000 && !condition(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return condition();
}

/// An engine on a world of fakes, set up as the session does it. Time is real, so tests count and compare,
/// and wait for nothing tightly.
class RecordingEngineTest : public testing::Test {
  protected:
    RecordingEngineTest() : engine(world.ports())
    {
        engine.setFrameRate(24);
        engine.setOutputWidth(32);
        engine.setOutputHeight(20);
        engine.setWidth(40);
        engine.setHeight(30);
        engine.setFileName("video.wmv");
    }

    template <typename Meanwhile>
    void segment(Meanwhile meanwhile)
    {
        segments.record(meanwhile);
    }

    void expectLength(double rate)
    {
        segments.expectLength(double(world.media->frameCount()), world.media->soundSeconds(), rate);
    }

    FakeCaptureWorld world{};
    capture::RecordingEngine engine;
    TimedSegments segments{engine};
};

} // namespace quillora::tests
