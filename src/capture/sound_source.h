#pragma once

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace quillora::capture {

/// The form of all sound inside the engine: samples a second, one channel (narration is one voice), floating
/// point with full scale at +-1.
inline constexpr int kSoundRate = 44100;

/// The engine's clock for pictures and sound alike: monotonic, unrelated to the wall clock.
using CaptureClock = std::chrono::steady_clock;

/// Takes sound as it arrives. Called from the source's own thread, never concurrently with itself.
class SoundSink {
  public:
    virtual ~SoundSink() = default;
    /// @p firstSample is the moment at which the first of the samples was at the microphone. Stamps carry the
    /// jitter of the sound server, and their rate is the sound card's: both are the sink's to smooth.
    virtual void takeSound(CaptureClock::time_point firstSample, std::span<const float> samples) = 0;
};

/// The default sound input. It never fails towards its user: while there is no input, or no sound server, it
/// delivers nothing, tries again by itself, and goes on delivering when one comes.
class SoundSource {
  public:
    virtual ~SoundSource() = default;
    /// Starts delivering to @p sink and returns at once.
    virtual void start(SoundSink& sink) = 0;
    /// Stops delivering. When it returns the sink is not called any more. Returns within a second, whatever
    /// the sound server does.
    virtual void stop() = 0;

    /// Names of the sound inputs; empty when there is no sound server. Takes at most a second.
    virtual std::vector<std::string> inputNames() = 0;
};

} // namespace quillora::capture
