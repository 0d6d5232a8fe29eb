#pragma once

#include "capture/picture_pool.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace quillora::capture {

/// What belongs to a whole file and can't change within it.
struct MediaFormat {
    std::filesystem::path path{};
    int width = 0;
    int height = 0;
    double framesPerSecond = 24;
    /// Of the video. The average over the file stays within it.
    std::int32_t bitsPerSecond = 700'000;
};

/// A video file being written: a sequence of frames at a constant rate, and sound that never stops, both from
/// the file's time zero. Used from one thread, the engine's writer thread.
///
/// Everything but close() throws std::runtime_error when the file can't be continued (disk full). What was
/// written up to then still plays once it is closed.
class MediaWriter {
  public:
    virtual ~MediaWriter() = default;

    /// The next frame. @p changedPixels is how many pixels of luma differ from the frame before, as far as is
    /// known: it tells cheap frames from dear ones before they are encoded, nothing depends on its being
    /// exact.
    virtual void writePicture(SharedPicture picture, std::int64_t changedPixels) = 0;
    /// The next @p frames frames are the same as the one before (black where there is none yet). Costs next
    /// to nothing.
    virtual void repeatPicture(std::int64_t frames) = 0;
    /// The next samples, in the form that sound_source.h names. Any value is taken, infinite ones too.
    virtual void writeSound(std::span<const float> samples) = 0;

    /// Brings all but the last second of what was written onto the disk, so that it outlives the process.
    virtual void flush() = 0;
    /// Finishes the file. Never throws: there is nothing better to do than to keep what there is.
    virtual void close() = 0;
};

} // namespace quillora::capture
