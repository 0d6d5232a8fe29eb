#include "capture/platform/ffmpeg/wmv_encoder.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace quillora::capture {

namespace {

void copyPlane(const std::vector<std::uint8_t>& from, int width, int height, std::uint8_t* to, int stride)
{
    for (int row = 0; row < height; ++row)
        std::copy_n(from.data() + std::size_t(row) * std::size_t(width), width,
                    to + std::ptrdiff_t(row) * stride);
}

} // namespace

WmvEncoder::WmvEncoder(const MediaFormat& format)
    : m_context(open(format)),
      m_frame(allocated<FrameHandle>(av_frame_alloc())),
      m_packet(allocated<PacketHandle>(av_packet_alloc()))
{
    m_frame->width = format.width;
    m_frame->height = format.height;
    m_frame->format = m_context->pix_fmt;
    checked(av_frame_get_buffer(m_frame.get(), 0), "cannot allocate a video frame");

    // The repeating frame is what an encoder of the same kind gives for an unchanged picture at the coarsest
    // quantiser, where nothing is worth correcting.
    const CodecHandle sample = open(format);
    show(VideoPicture(format.width, format.height));
    encodeWith(*sample, kCoarsest, Kind::key);
    const EncodedFrame frame = encodeWith(*sample, kCoarsest, Kind::any);
    m_repeat.assign(frame.bytes.begin(), frame.bytes.end());
}

CodecHandle WmvEncoder::open(const MediaFormat& format)
{
    CodecHandle context = newEncoder(AV_CODEC_ID_WMV2);
    context->width = format.width;
    context->height = format.height;
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->framerate = av_d2q(format.framesPerSecond, 100'000);
    context->time_base = av_inv_q(context->framerate);
    context->bit_rate = format.bitsPerSecond;
    context->flags |= AV_CODEC_FLAG_QSCALE;
    context->qmin = kFinest;
    context->qmax = kCoarsest;
    context->max_b_frames = 0;
    // What moves on a screen moves by whole pixels: looking for halves costs a fifth of the time and finds
    // little.
    context->me_subpel_quality = 1;
    // Key frames come when the caller wants one, and where the encoder finds a new scene.
    context->gop_size = INT_MAX / 2;
    checked(avcodec_open2(context.get(), context->codec, nullptr), "cannot open the video encoder");
    return context;
}

void WmvEncoder::show(const VideoPicture& picture)
{
    checked(av_frame_make_writable(m_frame.get()), "cannot write to the video frame");
    copyPlane(picture.luma, picture.width, picture.height, m_frame->data[0], m_frame->linesize[0]);
    copyPlane(picture.blueChroma, picture.chromaWidth(), picture.chromaHeight(), m_frame->data[1],
              m_frame->linesize[1]);
    copyPlane(picture.redChroma, picture.chromaWidth(), picture.chromaHeight(), m_frame->data[2],
              m_frame->linesize[2]);
}

EncodedFrame WmvEncoder::encodeWith(AVCodecContext& context, int quantiser, Kind kind)
{
    m_frame->pts = m_encoded++;
    m_frame->quality = FF_QP2LAMBDA * std::clamp(quantiser, kFinest, kCoarsest);
    m_frame->pict_type = kind == Kind::key ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;

    checked(avcodec_send_frame(&context, m_frame.get()), "cannot encode a picture");
    checked(avcodec_receive_packet(&context, m_packet.get()), "cannot encode a picture");
    return {{m_packet->data, std::size_t(m_packet->size)}, (m_packet->flags & AV_PKT_FLAG_KEY) != 0};
}

} // namespace quillora::capture
