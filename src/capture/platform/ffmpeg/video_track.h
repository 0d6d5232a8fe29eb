#pragma once

#include "capture/media_writer.h"
#include "capture/platform/ffmpeg/wmv_encoder.h"
#include "capture/rate_control.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace quillora::capture {

/// Turns the pictures of a recording into its encoded frames, one for each.
///
/// An unchanged picture is not encoded again: once it stands as sharp as it gets, the encoder's repeating
/// frame goes out in its place. One such frame is always held back. Repeats must come in even numbers before
/// the encoder goes on (see WmvEncoder), and where their number is odd the encoder is given the unchanged
/// picture once, and its frame takes the place of the one held back.
class VideoTrack {
  public:
    /// Takes the encoded frames in order.
    using TakeFrame = std::function<void(const EncodedFrame& frame, std::int64_t number)>;

    VideoTrack(const MediaFormat& format, TakeFrame takeFrame);

    void writePicture(SharedPicture picture, std::int64_t changedPixels);
    void repeatPicture();
    /// Hands on the frame that is held back.
    void finish();

    const AVCodecContext& codec() const { return m_encoder.context(); }

  private:
    enum class Cause { change, still };

    bool tryWriteChange(const SharedPicture& picture, std::int64_t changedPixels);
    bool keyFrameIsDue(std::int64_t changedPixels) const;
    void encode(int quantiser, WmvEncoder::Kind kind, Cause cause, std::int64_t changedPixels);
    void repeat();
    std::int64_t repeatBits() const;
    void settleRepeats(WmvEncoder::Kind next);
    void emit(const EncodedFrame& frame);

    std::int64_t m_pixels;
    double m_framesPerSecond;
    TakeFrame m_takeFrame;
    WmvEncoder m_encoder;
    RateControl m_rate;

    int m_quantiser = WmvEncoder::kCoarsest;
    /// A picture newer than the one that the encoder shows, which was too dear to encode, and how much of it
    /// is new.
    SharedPicture m_owed{};
    std::int64_t m_owedPixels = 0;

    bool m_holdingRepeat = false;
    bool m_oddRepeats = false;
    std::int64_t m_frames = 0;
    std::optional<std::int64_t> m_lastKeyFrame{};
};

} // namespace quillora::capture
