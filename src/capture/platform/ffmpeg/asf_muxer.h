#pragma once

#include "capture/platform/ffmpeg/libav.h"
#include "capture/platform/ffmpeg/output_file.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace quillora::capture {

/// One video and one sound stream in an ASF file. Packets of the two may come in any order between the
/// streams, but neither stream may stay behind for long: packets wait in memory for the other stream's.
class AsfMuxer {
  public:
    AsfMuxer(const std::filesystem::path& path, const AVCodecContext& video, const AVCodecContext& sound);
    ~AsfMuxer();
    AsfMuxer(const AsfMuxer&) = delete;
    AsfMuxer& operator=(const AsfMuxer&) = delete;

    /// @p number in units of the stream's codec's time base. Throws std::runtime_error when the disk is full,
    /// or packets of one stream come out of order. @{
    void writeVideo(std::span<const std::uint8_t> bytes, std::int64_t number, bool key);
    void writeSound(std::span<const std::uint8_t> bytes, std::int64_t number);
    /// @}

    void flush();
    /// Finishes the file, from which on nothing may be written.
    void close();

  private:
    struct FreeFormat {
        void operator()(AVFormatContext* format) const { avformat_free_context(format); }
    };
    struct FreeStream {
        void operator()(AVIOContext* stream) const;
    };
    struct Track {
        AVStream* stream = nullptr;
        AVRational timeBase{};
        std::int64_t lastTime = -1;
    };

    Track addTrack(const AVCodecContext& codec);
    void write(Track& track, std::span<const std::uint8_t> bytes, std::int64_t number, bool key);

    OutputFile m_file;
    std::unique_ptr<AVIOContext, FreeStream> m_stream;
    std::unique_ptr<AVFormatContext, FreeFormat> m_format;
    PacketHandle m_packet;
    Track m_video{};
    Track m_sound{};
    bool m_open = false;
};

} // namespace quillora::capture
