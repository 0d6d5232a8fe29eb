#pragma once

#include "capture/segment_clock.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillora::capture {

/// Turns sound as it arrives into the sound of the recording: samples without a gap from recorded time zero
/// on, each where it belongs beside the pictures.
///
/// Sound arrives late, in chunks whose stamps jitter, at the rate of a sound card that runs up to some
/// hundred parts in a million fast or slow, with holes, and throughout pauses. The chunks are laid end to end
/// on the clock and the whole is stretched, far below what can be heard, so that it follows the stamps; only
/// where the stamps leap, the sound leaps too. Holes become silence. Arithmetic only; used from one thread.
class SoundSynchroniser {
  public:
    /// Takes a chunk that arrived with the stamp @p firstSample, and appends to @p out what follows from it.
    void take(const SegmentClock& clock, CaptureClock::time_point firstSample, std::span<const float> samples,
              std::vector<float>& out);
    /// Appends silence up to @p recorded: sound for that time is not going to come any more.
    void fillUntil(RecordedTime recorded, std::vector<float>& out);

    /// Samples appended so far.
    std::int64_t produced() const { return m_produced; }
    /// How much slower than nominal the sound card is taken to run: 1e-4 for a card that runs 100 ppm slow.
    double stretch() const { return m_stretch; }

  private:
    static constexpr std::size_t kHistory = 3;

    void follow(double stamp, double seconds);
    double momentOf(std::int64_t sample, const SegmentClock& clock);
    float interpolated(double index, std::span<const float> samples) const;
    void keepHistory(std::span<const float> samples);

    std::int64_t m_produced = 0;
    /// The segment in which the next sample lies.
    std::size_t m_segment = 0;

    std::optional<CaptureClock::time_point> m_epoch{};
    /// Seconds from the epoch to the first sample of the next chunk, as the laid-out sound has it.
    double m_inputTime = 0;
    /// How late the stamps are against that, smoothed.
    double m_error = 0;
    double m_drift = 0;
    double m_stretch = 0;
    /// The last samples of the chunk before.
    std::array<float, kHistory> m_history{};
};

} // namespace quillora::capture
