#include "capture/sound_synchroniser.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillora::capture {

namespace {

/// A proportional-integral controller of the stretch, critically damped (integral = proportional² / 4): it
/// settles within some 20 s and then follows a card's drift with no lasting error.
constexpr double kProportional = 0.2;
constexpr double kIntegral = 0.01;
/// The jitter of single stamps is smoothed over this time.
constexpr double kSmoothingSeconds = 0.5;
/// Half a percent is a twelfth of a semitone.
constexpr double kMostStretch = 0.005;
/// Stamps that leap by so much mean a hole or another source, and stamps that stay off by so much a leap that
/// stretching would take too long to make good.
constexpr double kLeapSeconds = 0.25;
constexpr double kLastingLeapSeconds = 0.06;

double seconds(CaptureClock::duration duration) { return std::chrono::duration<double>(duration).count(); }

} // namespace

void SoundSynchroniser::take(const SegmentClock& clock, CaptureClock::time_point firstSample,
                             std::span<const float> samples, std::vector<float>& out)
{
    if (samples.empty())
        return;
    if (!m_epoch) {
        m_epoch = firstSample;
        m_inputTime = 0;
    }
    follow(seconds(firstSample - *m_epoch), double(samples.size()) / kSoundRate);
    const double step = (1 + m_stretch) / kSoundRate;

    for (;; ++m_produced) {
        const double index = (momentOf(m_produced, clock) - m_inputTime) / step;
        // The interpolation looks two samples ahead; those come with the next chunk.
        if (!(index < double(samples.size()) - 2))
            break;
        out.push_back(interpolated(index, samples));
    }
    m_inputTime += step * double(samples.size());
    keepHistory(samples);
}

void SoundSynchroniser::follow(double stamp, double chunkSeconds)
{
    const double error = stamp - m_inputTime;
    m_error += (error - m_error) * std::min(1.0, chunkSeconds / kSmoothingSeconds);
    if (std::abs(error) > kLeapSeconds || std::abs(m_error) > kLastingLeapSeconds) {
        m_inputTime = stamp;
        m_error = 0;
        m_stretch = m_drift;
        m_history = {};
        return;
    }
    m_drift = std::clamp(m_drift + kIntegral * m_error * chunkSeconds, -kMostStretch, kMostStretch);
    m_stretch = std::clamp(m_drift + kProportional * m_error, -kMostStretch, kMostStretch);
}

double SoundSynchroniser::momentOf(std::int64_t sample, const SegmentClock& clock)
{
    const auto& segments = clock.segments();
    const std::chrono::duration<double> recorded(double(sample) / kSoundRate);
    while (m_segment < segments.size() && segments[m_segment].length != RecordedTime::max() &&
           recorded >= std::chrono::duration<double>(segments[m_segment].end()))
        ++m_segment;
    if (m_segment == segments.size())
        return std::numeric_limits<double>::infinity();
    const auto& segment = segments[m_segment];
    return seconds(segment.begin - *m_epoch) +
           (recorded - std::chrono::duration<double>(segment.start)).count();
}

/// Through four neighbours by the cubic of Catmull and Rom: a straight line would dull the treble, and at a
/// slowly moving fraction that can be heard as a flutter.
float SoundSynchroniser::interpolated(double index, std::span<const float> samples) const
{
    const double whole = std::floor(index);
    const auto at = [&](std::ptrdiff_t i) {
        if (i >= 0)
            return i < std::ptrdiff_t(samples.size()) ? samples[std::size_t(i)] : 0.0F;
        return i >= -std::ptrdiff_t(kHistory) ? m_history[std::size_t(i + std::ptrdiff_t(kHistory))] : 0.0F;
    };
    if (whole < -double(kHistory))
        return 0;
    const auto i = std::ptrdiff_t(whole);
    const auto t = float(index - whole);
    const float before = at(i - 1);
    const float left = at(i);
    const float right = at(i + 1);
    const float after = at(i + 2);
    return left +
           0.5F * t *
               (right - before +
                t * (2 * before - 5 * left + 4 * right - after + t * (3 * (left - right) + after - before)));
}

void SoundSynchroniser::keepHistory(std::span<const float> samples)
{
    for (const float sample : samples.last(std::min(samples.size(), kHistory))) {
        std::shift_left(m_history.begin(), m_history.end(), 1);
        m_history.back() = sample;
    }
}

void SoundSynchroniser::fillUntil(RecordedTime recorded, std::vector<float>& out)
{
    const auto until = std::int64_t(std::chrono::duration<double>(recorded).count() * kSoundRate);
    if (until <= m_produced)
        return;
    out.resize(out.size() + std::size_t(until - m_produced));
    m_produced = until;
}

} // namespace quillora::capture
