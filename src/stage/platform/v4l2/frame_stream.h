#pragma once

#include "stage/newest_frame.h"
#include "stage/planar_scaler.h"
#include "stage/platform/v4l2/device.h"
#include "stage/yuv_picture.h"

#include <chrono>
#include <cstddef>
#include <linux/videodev2.h>
#include <memory>
#include <optional>
#include <span>
#include <vector>

struct v4lconvert_data;

namespace quillora::stage::v4l2 {

/// The pictures of a device, from the moment at which it is made: buffers that the driver fills, whatever
/// format the camera sends them in. Lives on the camera's thread.
class FrameStream {
  public:
    /// Asks for pictures of 640 by 480, 30 a second: the shape of the camera's frame on the stage, and as
    /// many pixels as the stage has room for. Takes what the device gives instead. Throws std::runtime_error
    /// when the device gives nothing that can be shown, or another program has it.
    explicit FrameStream(const Device& device);
    ~FrameStream();
    FrameStream(const FrameStream&) = delete;
    FrameStream& operator=(const FrameStream&) = delete;

    /// Takes all pictures that are waiting; turns the newest of them into @p frame, no larger than @p room,
    /// if there is any room and the picture is whole, and says whether it did. Throws std::system_error when
    /// the device is gone.
    bool take(FrameSize room, CameraFrame& frame);

  private:
    struct Filled {
        std::uint32_t buffer;
        std::size_t length;
    };
    class Buffer;
    struct DestroyConverter {
        void operator()(v4lconvert_data* converter) const;
    };

    void agreeOnFormat();
    void askForRate();
    void mapBuffers();
    std::optional<Filled> dequeue();
    void queue(std::uint32_t buffer);
    bool convert(const Filled& filled, FrameSize room, CameraFrame& frame);

    const Device& m_device;
    std::unique_ptr<v4lconvert_data, DestroyConverter> m_converter;
    v4l2_format m_sent{};
    v4l2_format m_planar{};
    YuvRange m_range = YuvRange::limited;
    std::vector<Buffer> m_buffers;
    std::vector<std::uint8_t> m_planes;
    std::optional<PlanarScaler> m_scaler;
};

} // namespace quillora::stage::v4l2
