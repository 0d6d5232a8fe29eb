#include "capture/platform/ffmpeg/asf_muxer.h"

#include "base/skip_failures.h"

#include <algorithm>
#include <cstring>

namespace quillora::capture {

namespace {

constexpr int kStreamBufferBytes = 32 << 10;

int writeToFile(void* file, std::uint8_t* bytes, int count)
{
    static_cast<OutputFile*>(file)->write({bytes, std::size_t(count)});
    return count;
}

std::int64_t seekInFile(void* opaque, std::int64_t offset, int whence)
{
    auto& file = *static_cast<OutputFile*>(opaque);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return file.size();
    case SEEK_SET:
        file.seek(offset);
        return file.position();
    case SEEK_CUR:
        file.seek(file.position() + offset);
        return file.position();
    case SEEK_END:
        file.seek(file.size() + offset);
        return file.position();
    default:
        return AVERROR(EINVAL);
    }
}

} // namespace

void AsfMuxer::FreeStream::operator()(AVIOContext* stream) const
{
    av_freep(&stream->buffer);
    avio_context_free(&stream);
}

AsfMuxer::AsfMuxer(const std::filesystem::path& path, const AVCodecContext& video,
                   const AVCodecContext& sound)
    : m_file(path), m_packet(allocated<PacketHandle>(av_packet_alloc()))
{
    auto* buffer = static_cast<unsigned char*>(av_malloc(kStreamBufferBytes));
    m_stream.reset(
        avio_alloc_context(buffer, kStreamBufferBytes, 1, &m_file, nullptr, &writeToFile, &seekInFile));
    AVFormatContext* format = nullptr;
    checked(avformat_alloc_output_context2(&format, nullptr, "asf", nullptr), "cannot make an ASF file");
    m_format.reset(format);
    if (!m_stream)
        throw std::bad_alloc();
    m_format->pb = m_stream.get();
    // A packet whose turn has not come waits for the other stream's, however long: written out of order it
    // would make the muxer abort the process.
    m_format->max_interleave_delta = 0;

    m_video = addTrack(video);
    m_sound = addTrack(sound);
    m_video.stream->avg_frame_rate = video.framerate;
    checked(avformat_write_header(m_format.get(), nullptr), "cannot begin an ASF file");
    m_open = true;
    flush();
}

AsfMuxer::~AsfMuxer()
{
    // Whoever wants to know whether the end of the file was written calls close().
    base::skipFailures([this] { close(); });
}

AsfMuxer::Track AsfMuxer::addTrack(const AVCodecContext& codec)
{
    AVStream* stream = avformat_new_stream(m_format.get(), nullptr);
    if (!stream)
        throw std::bad_alloc();
    checked(avcodec_parameters_from_context(stream->codecpar, &codec), "cannot describe a stream");
    stream->time_base = codec.time_base;
    return {stream, codec.time_base};
}

void AsfMuxer::writeVideo(std::span<const std::uint8_t> bytes, std::int64_t number, bool key)
{
    write(m_video, bytes, number, key);
}

void AsfMuxer::writeSound(std::span<const std::uint8_t> bytes, std::int64_t number)
{
    write(m_sound, bytes, number, true);
}

void AsfMuxer::write(Track& track, std::span<const std::uint8_t> bytes, std::int64_t number, bool key)
{
    if (!m_open || !m_file.hasRoom())
        throw std::runtime_error("the file cannot be continued");
    const std::int64_t time = av_rescale_q(number, track.timeBase, track.stream->time_base);
    if (time < track.lastTime)
        throw std::runtime_error("packets out of order");
    track.lastTime = time;

    checked(av_new_packet(m_packet.get(), int(bytes.size())), "cannot allocate a packet");
    std::ranges::copy(bytes, m_packet->data);
    m_packet->stream_index = track.stream->index;
    m_packet->pts = m_packet->dts = time;
    m_packet->duration = 0;
    m_packet->flags = key ? AV_PKT_FLAG_KEY : 0;
    checked(av_interleaved_write_frame(m_format.get(), m_packet.get()), "cannot write a packet");
}

void AsfMuxer::flush() { avio_flush(m_stream.get()); }

void AsfMuxer::close()
{
    if (!m_open)
        return;
    m_open = false;
    const int result = av_write_trailer(m_format.get());
    avio_flush(m_stream.get());
    checked(result, "cannot finish an ASF file");
}

} // namespace quillora::capture
