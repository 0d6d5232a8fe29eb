#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

#include <memory>
#include <stdexcept>
#include <string>

namespace quillora::capture {

/// The owners of the library's objects, and its errors as exceptions.

struct FreeCodec {
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
};
struct FreeFrame {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

using CodecHandle = std::unique_ptr<AVCodecContext, FreeCodec>;
using FrameHandle = std::unique_ptr<AVFrame, FreeFrame>;
using PacketHandle = std::unique_ptr<AVPacket, FreePacket>;

/// @p result, unless it is one of the library's errors.
inline int checked(int result, const char* doing)
{
    if (result >= 0)
        return result;
    char reason[AV_ERROR_MAX_STRING_SIZE] = "";
    av_strerror(result, reason, sizeof reason);
    throw std::runtime_error(std::string(doing) + ": " + reason);
}

template <typename Handle>
Handle allocated(typename Handle::pointer object)
{
    if (!object)
        throw std::bad_alloc();
    return Handle(object);
}

/// An encoder that is not opened yet and keeps its warnings to itself.
inline CodecHandle newEncoder(AVCodecID id)
{
    const AVCodec* codec = avcodec_find_encoder(id);
    if (!codec)
        throw std::runtime_error(std::string("no encoder for ") + avcodec_get_name(id));
    auto context = allocated<CodecHandle>(avcodec_alloc_context3(codec));
    // A finely quantised slide makes the library warn about every clipped coefficient.
    context->log_level_offset = AV_LOG_TRACE;
    return context;
}

} // namespace quillora::capture
