#include "capture/platform/ffmpeg/asf_writer.h"

#include "base/skip_failures.h"
#include "capture/platform/ffmpeg/asf_muxer.h"
#include "capture/platform/ffmpeg/video_track.h"
#include "capture/platform/ffmpeg/wma_encoder.h"

#include <utility>

namespace quillora::capture {

struct AsfWriter::Parts {
    explicit Parts(const MediaFormat& format)
        : video(format, [this](const EncodedFrame& frame,
                               std::int64_t number) { muxer.writeVideo(frame.bytes, number, frame.key); }),
          sound([this](std::span<const std::uint8_t> bytes, std::int64_t firstSample) {
              muxer.writeSound(bytes, firstSample);
          }),
          muxer(format.path, video.codec(), sound.context())
    {}

    VideoTrack video;
    WmaEncoder sound;
    AsfMuxer muxer;
    bool closed = false;
};

AsfWriter::AsfWriter(const MediaFormat& format) : m_parts(std::make_unique<Parts>(format)) {}

AsfWriter::~AsfWriter() { close(); }

void AsfWriter::writePicture(SharedPicture picture, std::int64_t changedPixels)
{
    m_parts->video.writePicture(std::move(picture), changedPixels);
}

void AsfWriter::repeatPicture(std::int64_t frames)
{
    for (; frames > 0; --frames)
        m_parts->video.repeatPicture();
}

void AsfWriter::writeSound(std::span<const float> samples) { m_parts->sound.write(samples); }

void AsfWriter::flush() { m_parts->muxer.flush(); }

void AsfWriter::close()
{
    if (m_parts->closed)
        return;
    m_parts->closed = true;
    base::skipFailures([&] { m_parts->video.finish(); }, [&] { m_parts->sound.finish(); },
                       [&] { m_parts->muxer.close(); });
}

} // namespace quillora::capture
