#pragma once

#include "capture/sound_source.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <mutex>
#include <numbers>
#include <thread>
#include <vector>

namespace quillora::tests {

/// Keeps all sound that it is given, and judges it.
class HeardSound final : public capture::SoundSink {
  public:
    struct Piece {
        capture::CaptureClock::time_point firstSample{};
        std::size_t length = 0;
        capture::CaptureClock::time_point arrival{};
    };

    void takeSound(capture::CaptureClock::time_point firstSample, std::span<const float> samples) override
    {
        const std::lock_guard lock(m_mutex);
        m_pieces.push_back({firstSample, samples.size(), capture::CaptureClock::now()});
        m_samples.insert(m_samples.end(), samples.begin(), samples.end());
    }

    std::vector<float> samples() const
    {
        const std::lock_guard lock(m_mutex);
        return m_samples;
    }
    std::vector<Piece> pieces() const
    {
        const std::lock_guard lock(m_mutex);
        return m_pieces;
    }
    /// The moment of a sample, by the stamp of its piece.
    capture::CaptureClock::time_point timeOf(std::size_t sample) const
    {
        for (const Piece& piece : pieces()) {
            if (sample < piece.length)
                return piece.firstSample +
                       std::chrono::microseconds(sample * 1'000'000 / std::size_t{capture::kSoundRate});
            sample -= piece.length;
        }
        return capture::CaptureClock::time_point::max();
    }
    void forget()
    {
        const std::lock_guard lock(m_mutex);
        m_samples.clear();
        m_pieces.clear();
    }

    /// Waits until this much sound has come; false when it doesn't within @p limit.
    bool has(double seconds, std::chrono::milliseconds limit = std::chrono::seconds(20)) const
    {
        const auto deadline = std::chrono::steady_clock::now() + limit;
        while (static_cast<double>(samples().size()) < seconds * capture::kSoundRate) {
            if (std::chrono::steady_clock::now() >= deadline)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return true;
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<float> m_samples{};
    std::vector<Piece> m_pieces{};
};

/// How much of a sine of @p frequency is in the samples: its amplitude.
inline double amplitudeAt(double frequency, std::span<const float> samples)
{
    double sine = 0;
    double cosine = 0;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const double phase =
            2 * std::numbers::pi * frequency * static_cast<double>(index) / capture::kSoundRate;
        sine += samples[index] * std::sin(phase);
        cosine += samples[index] * std::cos(phase);
    }
    return 2 * std::hypot(sine, cosine) / static_cast<double>(std::max<std::size_t>(samples.size(), 1));
}

inline double peakOf(std::span<const float> samples)
{
    double peak = 0;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(static_cast<double>(sample)));
    return peak;
}

} // namespace quillora::tests
