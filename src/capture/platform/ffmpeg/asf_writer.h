#pragma once

#include "capture/media_writer.h"

#include <memory>

namespace quillora::capture {

/// Windows Media Video 8 and Windows Media Audio 2 in an ASF file, by FFmpeg's libraries. A process that is
/// killed leaves a file of which all but the last second or so can be read; a disk that fills up ends it
/// early, but whole.
class AsfWriter : public MediaWriter {
  public:
    /// Creates the file, or empties it. Throws std::runtime_error for a file that can't be written, and for a
    /// size that the format can't hold: the width must be even.
    explicit AsfWriter(const MediaFormat& format);
    ~AsfWriter() override;

    void writePicture(SharedPicture picture, std::int64_t changedPixels) override;
    void repeatPicture(std::int64_t frames) override;
    void writeSound(std::span<const float> samples) override;
    void flush() override;
    void close() override;

  private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillora::capture
