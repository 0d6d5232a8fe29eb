#include "capture/platform/ffmpeg/wmv_encoder.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <utility>

namespace quillora::capture {

namespace {

/// The library's name for a plane that @p picture holds; it keeps the picture alive.
AVBufferRef* lend(const SharedPicture& picture, const std::vector<std::uint8_t>& plane)
{
    auto owner = std::make_unique<SharedPicture>(picture);
    // The library has one type for what is read and what is written; the flag says which it is.
    AVBufferRef* buffer = av_buffer_create(
        const_cast<std::uint8_t*>(plane.data()), plane.size(),
        [](void* held, std::uint8_t*) { delete static_cast<SharedPicture*>(held); }, owner.get(),
        AV_BUFFER_FLAG_READONLY);
    if (!buffer)
        throw std::bad_alloc();
    owner.release();
    return buffer;
}

} // namespace

WmvEncoder::WmvEncoder(const MediaFormat& format)
    : m_context(open(format)),
      m_frame(allocated<FrameHandle>(av_frame_alloc())),
      m_packet(allocated<PacketHandle>(av_packet_alloc()))
{
    // The repeating frame is what an encoder of the same kind gives for an unchanged picture at the coarsest
    // quantiser, where nothing is worth correcting.
    const CodecHandle sample = open(format);
    show(std::make_shared<VideoPicture>(format.width, format.height));
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
    // Key frames come when the caller wants one, and where the encoder finds a new scene.
    context->gop_size = INT_MAX / 2;
    checked(avcodec_open2(context.get(), context->codec, nullptr), "cannot open the video encoder");
    return context;
}

void WmvEncoder::show(const SharedPicture& picture)
{
    av_frame_unref(m_frame.get());
    m_frame->width = picture->width;
    m_frame->height = picture->height;
    m_frame->format = m_context->pix_fmt;
    const std::pair<const std::vector<std::uint8_t>*, int> planes[] = {
        {&picture->luma, picture->width},
        {&picture->blueChroma, picture->chromaWidth()},
        {&picture->redChroma, picture->chromaWidth()}};
    for (int i = 0; i < 3; ++i) {
        m_frame->buf[i] = lend(picture, *planes[i].first);
        m_frame->data[i] = m_frame->buf[i]->data;
        m_frame->linesize[i] = planes[i].second;
    }
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
