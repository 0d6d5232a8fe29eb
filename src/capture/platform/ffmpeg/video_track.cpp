#include "capture/platform/ffmpeg/video_track.h"

#include <algorithm>
#include <utility>

namespace quillora::capture {

namespace {

/// A player seeks to the key frame before the wanted moment and decodes from there.
constexpr double kMostSecondsBetweenKeyFrames = 10;
/// A picture that is new for the most part costs hardly more as a key frame, and comes out sharper; but not
/// in motion, where the picture before tells most of it.
constexpr double kFewestSecondsBetweenKeyFrames = 2;

} // namespace

VideoTrack::VideoTrack(const MediaFormat& format, TakeFrame takeFrame)
    : m_pixels(std::int64_t(format.width) * format.height),
      m_framesPerSecond(format.framesPerSecond),
      m_takeFrame(std::move(takeFrame)),
      m_encoder(format),
      m_rate(format.bitsPerSecond, format.framesPerSecond, m_pixels)
{}

void VideoTrack::writePicture(SharedPicture picture, std::int64_t changedPixels)
{
    m_owedPixels = std::min(m_owedPixels + changedPixels, m_pixels);
    if (tryWriteChange(picture, m_owedPixels))
        return;
    m_owed = std::move(picture);
    repeat();
    m_rate.leftOut(repeatBits(), changedPixels);
}

void VideoTrack::repeatPicture()
{
    if (m_owed && tryWriteChange(m_owed, m_owedPixels))
        return;
    if (!m_lastKeyFrame) {
        encode(RateControl::kFinestForKeyFrame, WmvEncoder::Kind::key, Cause::change, m_pixels);
        return;
    }
    if (!m_owed && keyFrameIsDue(0) && m_rate.affordsKeyFrame()) {
        encode(RateControl::kFinestForKeyFrame, WmvEncoder::Kind::key, Cause::change, m_pixels);
        return;
    }
    const auto quantiser = m_owed ? std::nullopt : m_rate.forStill();
    if (quantiser) {
        encode(*quantiser, WmvEncoder::Kind::any, Cause::still, 0);
        return;
    }
    repeat();
    m_rate.repeated(repeatBits());
}

bool VideoTrack::tryWriteChange(const SharedPicture& picture, std::int64_t changedPixels)
{
    const bool key = keyFrameIsDue(changedPixels);
    const auto quantiser = key ? m_rate.forKeyFrame() : m_rate.forChange(changedPixels);
    if (!quantiser && m_lastKeyFrame)
        return false;
    const auto kind = key ? WmvEncoder::Kind::key : WmvEncoder::Kind::any;
    settleRepeats(kind);
    m_encoder.show(picture);
    encode(quantiser.value_or(RateControl::kCoarsest), kind, Cause::change, key ? m_pixels : changedPixels);
    m_owed.reset();
    m_owedPixels = 0;
    return true;
}

bool VideoTrack::keyFrameIsDue(std::int64_t changedPixels) const
{
    if (!m_lastKeyFrame)
        return true;
    const double seconds = double(m_frames - *m_lastKeyFrame) / m_framesPerSecond;
    const bool isNew = 2 * changedPixels > m_pixels && !m_rate.inMotion();
    return seconds >= (isNew ? kFewestSecondsBetweenKeyFrames : kMostSecondsBetweenKeyFrames);
}

void VideoTrack::encode(int quantiser, WmvEncoder::Kind kind, Cause cause, std::int64_t changedPixels)
{
    settleRepeats(kind);
    const EncodedFrame frame = m_encoder.encode(quantiser, kind);
    m_quantiser = quantiser;
    const auto bits = std::int64_t(8 * frame.bytes.size());
    if (cause == Cause::change)
        m_rate.encodedChange(bits, quantiser, changedPixels);
    else
        m_rate.encodedStill(bits, quantiser);
    emit(frame);
}

void VideoTrack::repeat()
{
    if (m_holdingRepeat) {
        emit(m_encoder.repeat());
        m_oddRepeats = !m_oddRepeats;
    }
    m_holdingRepeat = true;
}

std::int64_t VideoTrack::repeatBits() const { return std::int64_t(8 * m_encoder.repeat().bytes.size()); }

void VideoTrack::settleRepeats(WmvEncoder::Kind next)
{
    if (m_holdingRepeat) {
        const bool evenWithThisOne = m_oddRepeats;
        // A key frame starts the rounding anew in both encoder and decoder.
        if (evenWithThisOne || next == WmvEncoder::Kind::key)
            emit(m_encoder.repeat());
        else
            emit(m_encoder.encode(m_quantiser, WmvEncoder::Kind::any));
    }
    m_holdingRepeat = false;
    m_oddRepeats = false;
}

void VideoTrack::emit(const EncodedFrame& frame)
{
    if (frame.key)
        m_lastKeyFrame = m_frames;
    m_takeFrame(frame, m_frames++);
}

void VideoTrack::finish()
{
    if (m_holdingRepeat)
        emit(m_encoder.repeat());
    m_holdingRepeat = false;
}

} // namespace quillora::capture
