#include "stage/platform/v4l2/frame_stream.h"

#include <cerrno>
#include <libv4lconvert.h>
#include <stdexcept>
#include <sys/mman.h>
#include <system_error>
#include <utility>

namespace quillora::stage::v4l2 {
namespace {

constexpr std::uint32_t kWidth = 640;
constexpr std::uint32_t kHeight = 480;
constexpr std::uint32_t kPicturesPerSecond = 30;
/// One that is filled, one that is read, and two for a thread that comes late.
constexpr std::uint32_t kBufferCount = 4;
/// What a stranger's device may ask for in memory: 8 K pictures, and no more.
constexpr std::uint32_t kLargestSide = 8192;

YuvRange rangeOf(const v4l2_pix_format& format)
{
    if (format.quantization == V4L2_QUANTIZATION_FULL_RANGE)
        return YuvRange::full;
    if (format.quantization == V4L2_QUANTIZATION_LIM_RANGE)
        return YuvRange::limited;
    const bool stillPictures = format.pixelformat == V4L2_PIX_FMT_MJPEG ||
                               format.pixelformat == V4L2_PIX_FMT_JPEG ||
                               format.colorspace == V4L2_COLORSPACE_JPEG;
    return stillPictures ? YuvRange::full : YuvRange::limited;
}

} // namespace

/// A buffer of the driver's, in this process's memory.
class FrameStream::Buffer {
  public:
    Buffer(const Device& device, const v4l2_buffer& description)
        : m_length(description.length),
          m_start(::mmap(nullptr, m_length, PROT_READ | PROT_WRITE, MAP_SHARED, device.descriptor(),
                         description.m.offset))
    {
        if (m_start == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "no memory for camera pictures");
    }
    Buffer(Buffer&& other) noexcept
        : m_length(other.m_length), m_start(std::exchange(other.m_start, MAP_FAILED))
    {}
    Buffer& operator=(Buffer&&) = delete;
    ~Buffer()
    {
        if (m_start != MAP_FAILED)
            ::munmap(m_start, m_length);
    }

    std::span<std::uint8_t> bytes() const { return {static_cast<std::uint8_t*>(m_start), m_length}; }

  private:
    std::size_t m_length;
    void* m_start;
};

void FrameStream::DestroyConverter::operator()(v4lconvert_data* converter) const
{
    v4lconvert_destroy(converter);
}

FrameStream::FrameStream(const Device& device)
    : m_device(device), m_converter(v4lconvert_create(device.descriptor()))
{
    if (!m_converter)
        throw std::runtime_error("the device's formats can't be read");
    agreeOnFormat();
    askForRate();
    mapBuffers();
    for (std::uint32_t buffer = 0; buffer < m_buffers.size(); ++buffer)
        queue(buffer);
    int type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    m_device.request(VIDIOC_STREAMON, &type, "the camera can't be started");
}

FrameStream::~FrameStream()
{
    int type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    m_device.tryRequest(VIDIOC_STREAMOFF, &type);
}

void FrameStream::agreeOnFormat()
{
    m_planar.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    m_planar.fmt.pix.width = kWidth;
    m_planar.fmt.pix.height = kHeight;
    m_planar.fmt.pix.pixelformat = V4L2_PIX_FMT_YUV420;
    m_planar.fmt.pix.field = V4L2_FIELD_ANY;
    v4lconvert_set_fps(m_converter.get(), int(kPicturesPerSecond));
    if (v4lconvert_try_format(m_converter.get(), &m_planar, &m_sent) != 0 ||
        m_planar.fmt.pix.pixelformat != V4L2_PIX_FMT_YUV420)
        throw std::runtime_error("the camera sends no pictures that can be shown");
    m_device.request(VIDIOC_S_FMT, &m_sent, "the camera is in use");
    const auto& picture = m_planar.fmt.pix;
    if (picture.width == 0 || picture.height == 0 || picture.width > kLargestSide ||
        picture.height > kLargestSide || picture.width % 2 != 0 || picture.height % 2 != 0)
        throw std::runtime_error("the camera sends pictures of a size that can't be shown");
    m_range = rangeOf(m_sent.fmt.pix);
    m_planes.resize(std::size_t(picture.width) * picture.height * 3 / 2);
}

void FrameStream::askForRate()
{
    v4l2_streamparm rate{};
    rate.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    rate.parm.capture.timeperframe = {1, kPicturesPerSecond};
    m_device.tryRequest(VIDIOC_S_PARM, &rate);
}

void FrameStream::mapBuffers()
{
    v4l2_requestbuffers buffers{};
    buffers.count = kBufferCount;
    buffers.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    buffers.memory = V4L2_MEMORY_MMAP;
    m_device.request(VIDIOC_REQBUFS, &buffers, "the camera is in use");
    for (std::uint32_t index = 0; index < buffers.count; ++index) {
        v4l2_buffer description{};
        description.index = index;
        description.type = buffers.type;
        description.memory = buffers.memory;
        m_device.request(VIDIOC_QUERYBUF, &description, "the camera has no memory for its pictures");
        m_buffers.emplace_back(m_device, description);
    }
    if (m_buffers.empty())
        throw std::runtime_error("the camera has no memory for its pictures");
}

std::optional<FrameStream::Filled> FrameStream::dequeue()
{
    v4l2_buffer buffer{};
    buffer.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    buffer.memory = V4L2_MEMORY_MMAP;
    if (!m_device.tryRequest(VIDIOC_DQBUF, &buffer)) {
        if (errno == EAGAIN)
            return std::nullopt;
        throw std::system_error(errno, std::generic_category(), "the camera is gone");
    }
    if (buffer.index >= m_buffers.size())
        throw std::runtime_error("the camera names a picture that it was not asked for");
    const std::size_t room = m_buffers[buffer.index].bytes().size();
    const bool whole = !(buffer.flags & V4L2_BUF_FLAG_ERROR) && buffer.bytesused <= room;
    return Filled{buffer.index, whole ? buffer.bytesused : 0};
}

void FrameStream::queue(std::uint32_t buffer)
{
    v4l2_buffer description{};
    description.index = buffer;
    description.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    description.memory = V4L2_MEMORY_MMAP;
    m_device.request(VIDIOC_QBUF, &description, "the camera is gone");
}

bool FrameStream::take(FrameSize room, CameraFrame& frame)
{
    std::optional<Filled> newest;
    // No more than there are buffers: a device that always has one would keep the loop going for ever.
    for (std::size_t i = 0; i < m_buffers.size(); ++i) {
        const auto filled = dequeue();
        if (!filled)
            break;
        if (newest)
            queue(newest->buffer);
        newest = filled;
    }
    if (!newest)
        return false;
    const bool converted = !room.empty() && newest->length > 0 && convert(*newest, room, frame);
    queue(newest->buffer);
    return converted;
}

bool FrameStream::convert(const Filled& filled, FrameSize room, CameraFrame& frame)
{
    const auto bytes = m_buffers[filled.buffer].bytes();
    const int length = v4lconvert_convert(m_converter.get(), &m_sent, &m_planar, bytes.data(),
                                          int(filled.length), m_planes.data(), int(m_planes.size()));
    // A picture that was damaged on the way, which cameras send now and then: the next one comes soon.
    if (length < 0)
        return false;
    const FrameSize sent{int(m_planar.fmt.pix.width), int(m_planar.fmt.pix.height)};
    const FrameSize shown = fitted(sent, room);
    std::span<const std::uint8_t> planes = m_planes;
    if (shown != sent) {
        if (!m_scaler || !m_scaler->scales(sent, shown))
            m_scaler.emplace(sent, shown);
        planes = m_scaler->scale(planes);
    }
    toRgb(planes, shown.width, shown.height, m_range, frame);
    return true;
}

} // namespace quillora::stage::v4l2
