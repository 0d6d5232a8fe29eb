#include "capture/platform/pulse/record_stream.h"

#include <algorithm>
#include <cmath>

namespace quillora::capture {
namespace {

/// How often sound arrives. Without asking, servers send two seconds at a time.
constexpr std::chrono::milliseconds kFragment{25};

/// The first sound of a stream comes with stamps that are far off, since the server has not measured yet.
constexpr std::chrono::milliseconds kSkipped{100};

/// How long a report of the server's counts. A sound card that runs 300 ppm off is a millisecond and a half
/// off its place after that time.
constexpr std::chrono::seconds kAnchorsLast{5};

/// Longer holes are handed on in pieces of this many samples.
constexpr std::size_t kLongestPiece = 4096;

constexpr std::size_t samplesIn(std::chrono::milliseconds duration)
{
    return static_cast<std::size_t>(duration.count()) * kSoundRate / 1000;
}

CaptureClock::duration durationOf(std::size_t samples)
{
    return std::chrono::nanoseconds(static_cast<std::int64_t>(samples) * 1'000'000'000 / kSoundRate);
}

/// A server's count of bytes of the stream as a time.
std::chrono::microseconds positionOf(std::int64_t bytes)
{
    return std::chrono::microseconds(bytes / static_cast<std::int64_t>(sizeof(float)) * 1'000'000 /
                                     kSoundRate);
}

} // namespace

RecordStream::RecordStream(const base::PulseConnection& connection) : m_toSkip(samplesIn(kSkipped))
{
    const pa_sample_spec form{PA_SAMPLE_FLOAT32NE, kSoundRate, 1};
    m_stream.reset(pa_stream_new(connection.context(), "Narration", &form, nullptr));
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<std::uint32_t>(-1);
    buffer.fragsize = static_cast<std::uint32_t>(samplesIn(kFragment) * sizeof(float));
    const auto flags =
        static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE);
    m_opening = m_stream && pa_stream_connect_record(m_stream.get(), nullptr, &buffer, flags) >= 0;
}

bool RecordStream::deliverTo(SoundSink& sink)
{
    if (pa_stream_get_state(m_stream.get()) != PA_STREAM_READY)
        return false;
    updateAnchor();
    bool delivered = false;
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(m_stream.get(), &data, &bytes) >= 0 && bytes > 0) {
        const auto* samples = static_cast<const float*>(data);
        const std::size_t count = bytes / sizeof(float);
        const CaptureClock::time_point firstSample = timeOfNextSample();
        const std::size_t skipped = std::min(m_toSkip, count);
        m_toSkip -= skipped;
        for (std::size_t done = skipped; done < count;) {
            const std::size_t length = std::min(count - done, kLongestPiece);
            // A hole has a length and no data.
            deliverPiece(sink, firstSample + durationOf(done), samples ? samples + done : nullptr, length);
            done += length;
            delivered = true;
        }
        pa_stream_drop(m_stream.get());
    }
    return delivered;
}

void RecordStream::updateAnchor()
{
    const pa_timing_info* timing = pa_stream_get_timing_info(m_stream.get());
    const bool news = timing && (timing->timestamp.tv_sec != m_anchorStamp.tv_sec ||
                                 timing->timestamp.tv_usec != m_anchorStamp.tv_usec);
    if (!news || timing->write_index_corrupt)
        return;
    // The loop has only just been turned, so what the server told arrived at this moment. The stamp that
    // comes with it is the wall clock's, and of use as a mark only.
    m_anchorStamp = timing->timestamp;
    const auto now = CaptureClock::now();
    const auto delay = static_cast<std::int64_t>(timing->source_usec + timing->transport_usec) -
                       static_cast<std::int64_t>(timing->sink_usec);
    m_anchors.push_back({now, now - positionOf(timing->write_index) - std::chrono::microseconds(delay)});
    while (m_anchors.front().told + kAnchorsLast < now)
        m_anchors.pop_front();
}

CaptureClock::time_point RecordStream::timeOfNextSample() const
{
    // What has arrived was at the microphone before now, whatever the server believes: what plays to a
    // loudspeaker is told before it is heard.
    const std::size_t arrived = pa_stream_readable_size(m_stream.get()) / sizeof(float);
    const CaptureClock::time_point latest = CaptureClock::now() - durationOf(arrived);
    const pa_timing_info* timing = pa_stream_get_timing_info(m_stream.get());
    if (!timing || timing->read_index_corrupt || m_anchors.empty())
        return latest;
    const auto beginning = std::ranges::min(m_anchors, {}, &Anchor::beginning).beginning;
    return std::min(latest, beginning + positionOf(timing->read_index));
}

void RecordStream::deliverPiece(SoundSink& sink, CaptureClock::time_point firstSample, const float* samples,
                                std::size_t count)
{
    m_piece.assign(count, 0.0F);
    if (samples)
        std::replace_copy_if(
            samples, samples + count, m_piece.begin(), [](float sample) { return !std::isfinite(sample); },
            0.0F);
    sink.takeSound(firstSample, m_piece);
}

} // namespace quillora::capture
