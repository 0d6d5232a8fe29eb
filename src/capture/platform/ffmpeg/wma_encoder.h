#pragma once

#include "capture/platform/ffmpeg/libav.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quillora::capture {

/// Sound as WMA2 packets, one channel at 96 kb/s.
///
/// Packets overlap by half, so that a decoder has a packet's sound complete with the one after it; and
/// FFmpeg's decoder throws away what the first two packets give. Therefore a block of silence goes first, and
/// the first two packets are squeezed into the first moments: what comes out first then is the first sound,
/// at time zero.
class WmaEncoder {
  public:
    using TakePacket = std::function<void(std::span<const std::uint8_t> bytes, std::int64_t firstSample)>;

    explicit WmaEncoder(TakePacket takePacket);

    /// Takes samples of any value; those that no sound card gives are mended, since the encoder fails on
    /// them.
    void write(std::span<const float> samples);
    /// Hands on the rest, filled up with silence.
    void finish();

    const AVCodecContext& context() const { return *m_context; }

  private:
    void encodeBlock(std::span<const float> samples);
    bool tryEncode(std::span<const float> samples);

    TakePacket m_takePacket;
    CodecHandle m_context;
    FrameHandle m_frame;
    PacketHandle m_packet;
    std::vector<float> m_waiting{};
    std::int64_t m_blocks = 0;
};

} // namespace quillora::capture
