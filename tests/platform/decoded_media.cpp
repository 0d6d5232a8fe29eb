#include "tests/platform/decoded_media.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <cmath>
#include <memory>
#include <stdexcept>

namespace quillora::tests {

namespace {

struct Close {
    void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

using Decoder = std::unique_ptr<AVCodecContext, Close>;

Decoder openDecoder(const AVStream& stream)
{
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    Decoder decoder(avcodec_alloc_context3(codec));
    avcodec_parameters_to_context(decoder.get(), stream.codecpar);
    // Damage must be seen, not painted over.
    decoder->err_recognition = AV_EF_EXPLODE;
    decoder->log_level_offset = AV_LOG_TRACE;
    if (!codec || avcodec_open2(decoder.get(), codec, nullptr) < 0)
        throw std::runtime_error("no decoder for a stream");
    return decoder;
}

void takePicture(const AVFrame& frame, double seconds, DecodedMedia& media)
{
    DecodedMedia::Frame picture{frame.width, frame.height, seconds, frame.key_frame != 0};
    for (int row = 0; row < frame.height; ++row) {
        const std::uint8_t* line = frame.data[0] + std::ptrdiff_t(row) * frame.linesize[0];
        picture.luma.insert(picture.luma.end(), line, line + frame.width);
    }
    media.frames.push_back(std::move(picture));
    if (frame.decode_error_flags)
        ++media.errors;
}

void takeSound(const AVFrame& frame, double seconds, DecodedMedia& media)
{
    if (media.sound.empty()) {
        media.soundStart = seconds;
        media.soundRate = frame.sample_rate;
    }
    const auto* samples = reinterpret_cast<const float*>(frame.data[0]);
    media.sound.insert(media.sound.end(), samples, samples + frame.nb_samples);
}

void decode(AVCodecContext& decoder, const AVStream& stream, const AVPacket* packet, DecodedMedia& media)
{
    if (avcodec_send_packet(&decoder, packet) < 0)
        ++media.errors;
    const std::unique_ptr<AVFrame, Close> frame(av_frame_alloc());
    while (avcodec_receive_frame(&decoder, frame.get()) >= 0) {
        const double seconds = double(frame->best_effort_timestamp) * av_q2d(stream.time_base);
        if (decoder.codec_type == AVMEDIA_TYPE_VIDEO)
            takePicture(*frame, seconds, media);
        else
            takeSound(*frame, seconds, media);
    }
}

} // namespace

DecodedMedia decodeMedia(const std::filesystem::path& path)
{
    AVFormatContext* opened = nullptr;
    if (avformat_open_input(&opened, path.c_str(), nullptr, nullptr) < 0)
        throw std::runtime_error("cannot open " + path.string());
    const std::unique_ptr<AVFormatContext, Close> format(opened);
    if (avformat_find_stream_info(format.get(), nullptr) < 0)
        throw std::runtime_error("no streams in " + path.string());

    DecodedMedia media;
    media.declaredSeconds = format->duration == AV_NOPTS_VALUE ? 0 : double(format->duration) / AV_TIME_BASE;
    std::vector<Decoder> decoders;
    for (unsigned i = 0; i < format->nb_streams; ++i)
        decoders.push_back(openDecoder(*format->streams[i]));

    const std::unique_ptr<AVPacket, Close> packet(av_packet_alloc());
    while (av_read_frame(format.get(), packet.get()) >= 0) {
        const auto stream = std::size_t(packet->stream_index);
        decode(*decoders[stream], *format->streams[stream], packet.get(), media);
        av_packet_unref(packet.get());
    }
    for (std::size_t i = 0; i < decoders.size(); ++i)
        decode(*decoders[i], *format->streams[i], nullptr, media);
    return media;
}

double psnr(const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other)
{
    if (one.size() != other.size())
        throw std::runtime_error("planes of different size");
    double sum = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        sum += (one[i] - other[i]) * (one[i] - other[i]);
    return sum == 0 ? 100 : 10 * std::log10(255.0 * 255.0 * double(one.size()) / sum);
}

} // namespace quillora::tests
