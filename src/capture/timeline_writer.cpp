#include "capture/timeline_writer.h"

namespace quillora::capture {

namespace {

using namespace std::chrono_literals;

/// Sound that hasn't come by then is taken to be none. Until then pictures wait for it in memory, and would
/// be lost if the process were killed.
constexpr auto kSoundPatience = 1s;
constexpr auto kFlushInterval = 250ms;
/// Samples that the synchroniser holds back at the end of a chunk, for its interpolation, and one for
/// rounding.
constexpr double kSamplesHeldBack = 3;

} // namespace

void TimelineWriter::write(const Delivery& delivery, CaptureClock::time_point now)
{
    for (const NumberedPicture& next : delivery.pictures) {
        repeatUntil(next.frame);
        m_file->writePicture(next.picture, next.changedPixels);
        ++m_frames;
    }
    repeatUntil(delivery.frames);

    for (const SoundChunk& chunk : delivery.sound)
        m_synchroniser.take(delivery.clock, chunk.firstSample, chunk.samples, m_samples);
    fillSound(delivery.clock.recordedAt(now - kSoundPatience));
}

bool TimelineWriter::hasSoundUntil(RecordedTime recorded) const
{
    const double samples = std::chrono::duration<double>(recorded).count() * kSoundRate;
    return double(m_synchroniser.produced()) >= samples - kSamplesHeldBack;
}

void TimelineWriter::fillSound(RecordedTime recorded)
{
    m_synchroniser.fillUntil(recorded, m_samples);
    m_file->writeSound(m_samples);
    m_samples.clear();
}

void TimelineWriter::flush(CaptureClock::time_point now)
{
    if (now - m_flushed < kFlushInterval)
        return;
    m_flushed = now;
    m_file->flush();
}

void TimelineWriter::repeatUntil(std::int64_t frame)
{
    if (frame <= m_frames)
        return;
    m_file->repeatPicture(frame - m_frames);
    m_frames = frame;
}

} // namespace quillora::capture
