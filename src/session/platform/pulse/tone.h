#pragma once

#include <chrono>
#include <vector>

namespace quillora::session {

/// Samples of a sine, one channel, rising and falling over a few milliseconds so that it neither starts nor
/// ends with a click. Empty for a frequency or a duration of zero or less.
std::vector<float> tone(int frequencyHz, std::chrono::milliseconds duration, int samplesPerSecond);

} // namespace quillora::session
