#pragma once

#include "capture/media_writer.h"
#include "capture/platform/ffmpeg/libav.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillora::capture {

/// The bytes of one encoded frame. They stay valid until the next call on the encoder.
struct EncodedFrame {
    std::span<const std::uint8_t> bytes{};
    bool key = false;
};

/// WMV2 frames, quantised as the caller says, and a ready-made frame that repeats the one before.
///
/// A P frame of this format carries no number, so that one and the same frame, "every block as before", can
/// be written again and again without the encoder's knowing of it. All that it leaves behind in a decoder is
/// the rounding of half-pixel motion, which flips with each P frame: repeats must reach the decoder in even
/// numbers, or the encoder must be made to flip too. Keeping to that is the caller's part; see VideoTrack.
class WmvEncoder {
  public:
    /// Finest and coarsest quantiser. The finest one quantises by 2, a step that the eye can't see.
    static constexpr int kFinest = 1;
    static constexpr int kCoarsest = 31;

    enum class Kind { any, key };

    /// Throws std::runtime_error for a size that the format can't hold: an odd width, nothing, too much.
    explicit WmvEncoder(const MediaFormat& format);

    /// The picture that is encoded from now on, of the format's size. It is held, not copied.
    void show(const SharedPicture& picture);
    /// Encodes the shown picture, black where none was.
    EncodedFrame encode(int quantiser, Kind kind) { return encodeWith(*m_context, quantiser, kind); }
    /// The frame that repeats.
    EncodedFrame repeat() const { return {m_repeat, false}; }

    const AVCodecContext& context() const { return *m_context; }

  private:
    static CodecHandle open(const MediaFormat& format);
    EncodedFrame encodeWith(AVCodecContext& context, int quantiser, Kind kind);

    CodecHandle m_context;
    FrameHandle m_frame;
    PacketHandle m_packet;
    std::int64_t m_encoded = 0;
    std::vector<std::uint8_t> m_repeat{};
};

} // namespace quillora::capture
