#pragma once

#include "capture/platform/ffmpeg/libav.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quillora::capture {

/// Sound as WMA2 packets, one channel at 96 kb/s.
///
/// A decoder gives each packet's sound one packet later, since packets overlap by half. The packet that only
/// primes it is left out, so that the first packet handed on belongs at time zero and sound keeps its moment;
/// its first 46 ms fade in.
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
