#include "capture/platform/ffmpeg/wma_encoder.h"

#include "capture/sound_source.h"

#include <algorithm>
#include <cmath>

namespace quillora::capture {

namespace {

constexpr std::int64_t kBitsPerSecond = 96'000;
/// Packets without sound of their own, and their distance in samples: packets must not have the same time,
/// and the file counts in milliseconds.
constexpr std::int64_t kLeadPackets = 2;
constexpr std::int64_t kLeadDistance = kSoundRate / 1000 + 1;

float mended(float sample) { return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F; }

} // namespace

WmaEncoder::WmaEncoder(TakePacket takePacket)
    : m_takePacket(std::move(takePacket)),
      m_context(newEncoder(AV_CODEC_ID_WMAV2)),
      m_frame(allocated<FrameHandle>(av_frame_alloc())),
      m_packet(allocated<PacketHandle>(av_packet_alloc()))
{
    m_context->bit_rate = kBitsPerSecond;
    m_context->sample_rate = kSoundRate;
    m_context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_context->time_base = {1, kSoundRate};
    av_channel_layout_default(&m_context->ch_layout, 1);
    checked(avcodec_open2(m_context.get(), m_context->codec, nullptr), "cannot open the sound encoder");

    m_frame->nb_samples = m_context->frame_size;
    m_frame->format = m_context->sample_fmt;
    checked(av_channel_layout_copy(&m_frame->ch_layout, &m_context->ch_layout), "cannot describe the sound");
    checked(av_frame_get_buffer(m_frame.get(), 0), "cannot allocate a block of sound");
    m_waiting.resize(std::size_t(m_context->frame_size));
}

void WmaEncoder::write(std::span<const float> samples)
{
    const auto block = std::size_t(m_context->frame_size);
    m_waiting.reserve(m_waiting.size() + samples.size());
    std::ranges::transform(samples, std::back_inserter(m_waiting), mended);

    std::size_t done = 0;
    for (; m_waiting.size() - done >= block; done += block)
        encodeBlock(std::span(m_waiting).subspan(done, block));
    m_waiting.erase(m_waiting.begin(), m_waiting.begin() + std::ptrdiff_t(done));
}

void WmaEncoder::finish()
{
    if (m_waiting.empty())
        return;
    m_waiting.resize(std::size_t(m_context->frame_size));
    write({});
}

void WmaEncoder::encodeBlock(std::span<const float> samples)
{
    // Silence can always be encoded. A packet less would move all later sound.
    if (!tryEncode(samples) && !tryEncode(std::vector<float>(samples.size())))
        throw std::runtime_error("cannot encode sound");
    const std::int64_t time =
        std::max(m_blocks * kLeadDistance, (m_blocks - kLeadPackets) * std::int64_t{m_context->frame_size});
    ++m_blocks;
    m_takePacket({m_packet->data, std::size_t(m_packet->size)}, time);
}

bool WmaEncoder::tryEncode(std::span<const float> samples)
{
    checked(av_frame_make_writable(m_frame.get()), "cannot write to the block of sound");
    std::ranges::copy(samples, reinterpret_cast<float*>(m_frame->data[0]));
    m_frame->pts = m_blocks * m_context->frame_size;
    return avcodec_send_frame(m_context.get(), m_frame.get()) >= 0 &&
           avcodec_receive_packet(m_context.get(), m_packet.get()) >= 0;
}

} // namespace quillora::capture
