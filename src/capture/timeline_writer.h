#pragma once

#include "capture/media_writer.h"
#include "capture/segment_clock.h"
#include "capture/sound_synchroniser.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace quillora::capture {

/// A picture, and the number of the frame that it is first seen in.
struct NumberedPicture {
    std::int64_t frame = 0;
    SharedPicture picture{};
    std::int64_t changedPixels = 0;
};

/// Sound as it arrived; `firstSample` is when its first sample was heard.
struct SoundChunk {
    CaptureClock::time_point firstSample{};
    std::vector<float> samples{};
};

/// What goes into the file in one go.
struct Delivery {
    /// In the order of their frames.
    std::deque<NumberedPicture> pictures{};
    std::vector<SoundChunk> sound{};
    SegmentClock clock{};
    /// Frames of the recording so far; those without a picture of their own repeat the one before.
    std::int64_t frames = 0;
    /// The recording has ended. Only sound may still come.
    bool last = false;
};

/// Lays a recording out in its file: a frame for each tick of the rate, sound without a gap from time zero
/// on. What didn't come becomes repeats and silence. Not thread-safe; all operations throw when the file
/// can't be continued.
class TimelineWriter {
  public:
    explicit TimelineWriter(std::unique_ptr<MediaWriter> file) : m_file(std::move(file)) {}

    /// @p now is the moment of the delivery: of sound that hasn't come for a second no more is expected.
    void write(const Delivery& delivery, CaptureClock::time_point now);
    /// Whether the sound of all time up to @p recorded is in the file.
    bool hasSoundUntil(RecordedTime recorded) const;
    /// Ends the wait for sound before @p recorded: what is missing is silence.
    void fillSound(RecordedTime recorded);

    /// Hands what was written to the disk, at most some times a second.
    void flush(CaptureClock::time_point now);
    void close() { m_file->close(); }

  private:
    void repeatUntil(std::int64_t frame);

    std::unique_ptr<MediaWriter> m_file;
    SoundSynchroniser m_synchroniser{};
    std::vector<float> m_samples{};
    std::int64_t m_frames = 0;
    CaptureClock::time_point m_flushed{};
};

} // namespace quillora::capture
