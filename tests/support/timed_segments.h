#pragma once

#include "capture/recording_engine.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace quillora::tests {

/// Records segments with an engine, and knows how long they may have been: on a busy machine time passes
/// between any two statements, so a length lies between what was surely and what was possibly recorded.
class TimedSegments {
  public:
    explicit TimedSegments(capture::RecordingEngine& engine) : m_engine(engine) {}

    /// Starts, or resumes; does @p meanwhile; pauses.
    template <typename Meanwhile>
    void record(Meanwhile meanwhile)
    {
        const auto outer = capture::CaptureClock::now();
        m_engine.Start();
        const auto inner = capture::CaptureClock::now();
        meanwhile();
        const auto innerEnd = capture::CaptureClock::now();
        m_engine.Pause();
        m_shortest += seconds(innerEnd - inner);
        m_longest += seconds(capture::CaptureClock::now() - outer);
    }

    /// Looks whether that many frames, and so much sound beside them, can be the recording.
    void expectLength(double frames, double soundSeconds, double rate) const
    {
        EXPECT_GE(frames, std::floor(m_shortest * rate) - 1);
        EXPECT_LE(frames, std::ceil(m_longest * rate) + 1);
        EXPECT_NEAR(soundSeconds, frames / rate, 0.1);
    }

    /// For another recording.
    void forget() { m_shortest = m_longest = 0; }

  private:
    static double seconds(capture::CaptureClock::duration duration)
    {
        return std::chrono::duration<double>(duration).count();
    }

    capture::RecordingEngine& m_engine;
    double m_shortest = 0;
    double m_longest = 0;
};

} // namespace quillora::tests
