#include "session/platform/pulse/tone.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace quillora::session {
namespace {

constexpr double kLoudness = 0.5;
constexpr double kRampSeconds = 0.005;

} // namespace

std::vector<float> tone(int frequencyHz, std::chrono::milliseconds duration, int samplesPerSecond)
{
    if (frequencyHz <= 0 || duration <= std::chrono::milliseconds::zero())
        return {};
    const auto count = static_cast<std::size_t>(duration.count() * samplesPerSecond / 1000);
    const double ramp = kRampSeconds * samplesPerSecond;
    std::vector<float> samples(count);
    for (std::size_t index = 0; index < count; ++index) {
        const auto fromStart = static_cast<double>(index);
        const auto fromEnd = static_cast<double>(count - 1 - index);
        const double envelope = std::min({fromStart / ramp, fromEnd / ramp, 1.0});
        const double phase = 2 * std::numbers::pi * frequencyHz * fromStart / samplesPerSecond;
        samples[index] = static_cast<float>(kLoudness * envelope * std::sin(phase));
    }
    return samples;
}

} // namespace quillora::session
