#include "tests/support/fake_camera/fake_device.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <sys/mman.h>
#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>
#include <utility>

namespace quillora::tests::fake_camera {
namespace {

constexpr std::uint32_t kBufferSpace = 1 << 20;
/// Less than any picture can be told from.
constexpr std::uint32_t kHeadOfAPicture = 100;
constexpr long kPictureNanoseconds = 1'000'000'000 / 30;

int refuse(int code)
{
    errno = code;
    return -1;
}

template <std::size_t size>
void copyText(__u8 (&to)[size], const std::string& text)
{
    std::memset(to, 0, size);
    std::memcpy(to, text.data(), std::min(text.size(), size - 1));
}

void setTimer(int descriptor, long nanoseconds)
{
    const itimerspec times{{0, nanoseconds}, {0, nanoseconds}};
    ::timerfd_settime(descriptor, 0, &times, nullptr);
}

} // namespace

bool inUse() { return std::getenv("QUILLORA_FAKE_CAMERAS") != nullptr; }

State stateOf(const std::string& name)
{
    static const std::map<std::string, State> words = {
        {"present", State::present},
        {"absent", State::absent},
        {"unplugged", State::unplugged},
        {"busy", State::busy},
        {"stalled-open", State::stalledOpen},
        {"stalled-start", State::stalledStart},
        {"stalled-frames", State::stalledFrames},
        {"stalled-settings", State::stalledSettings},
        {"damaged", State::damaged},
    };
    const char* folder = std::getenv("QUILLORA_FAKE_CAMERAS");
    if (folder == nullptr)
        return State::absent;
    std::ifstream file(std::string(folder) + "/" + name);
    std::string word;
    file >> word;
    const auto found = words.find(word);
    return found == words.end() ? State::present : found->second;
}

FakeDevice::FakeDevice(std::string name, std::string card, Sends sends, Colour wall,
                       std::vector<FakeControl> controls)
    : m_name(std::move(name)),
      m_card(std::move(card)),
      m_sends(sends),
      m_wall(wall),
      m_controls(std::move(controls))
{}

State FakeDevice::state() const { return stateOf(m_name); }

void FakeDevice::stallWhile(State stalled) const
{
    while (state() == stalled)
        ::usleep(10'000);
}

void FakeDevice::write(const std::string& line) const
{
    if (const char* folder = std::getenv("QUILLORA_FAKE_CAMERAS"))
        std::ofstream(std::string(folder) + "/" + m_name + ".log", std::ios::app) << line << '\n';
}

int FakeDevice::open(int flags)
{
    stallWhile(State::stalledOpen);
    const State now = state();
    if (now == State::absent || now == State::unplugged)
        return refuse(ENOENT);
    // A timer that rings with each picture: a program can wait for it as it would for a camera.
    const int descriptor =
        ::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | (flags & O_NONBLOCK ? TFD_NONBLOCK : 0));
    const std::lock_guard lock(m_mutex);
    if (descriptor >= 0) {
        m_descriptors.push_back(descriptor);
        write("open");
    }
    return descriptor;
}

bool FakeDevice::owns(int descriptor)
{
    const std::lock_guard lock(m_mutex);
    return std::ranges::find(m_descriptors, descriptor) != m_descriptors.end();
}

void FakeDevice::adopt(int descriptor)
{
    const std::lock_guard lock(m_mutex);
    m_descriptors.push_back(descriptor);
}

void FakeDevice::close(int descriptor)
{
    const std::lock_guard lock(m_mutex);
    std::erase(m_descriptors, descriptor);
    if (m_streaming == descriptor)
        m_streaming = -1;
    write("close");
}

int FakeDevice::request(int descriptor, unsigned long code, void* argument)
{
    if (state() == State::unplugged)
        return refuse(ENODEV);
    switch (code) {
    case VIDIOC_QUERYCAP: {
        auto& capability = *static_cast<v4l2_capability*>(argument);
        capability = {};
        copyText(capability.driver, "uvcvideo");
        copyText(capability.card, m_card);
        copyText(capability.bus_info, "usb-0000:00:14.0-1");
        capability.device_caps = V4L2_CAP_STREAMING | (m_sends == Sends::otherData ? V4L2_CAP_META_CAPTURE
                                                                                   : V4L2_CAP_VIDEO_CAPTURE);
        capability.capabilities =
            V4L2_CAP_DEVICE_CAPS | V4L2_CAP_STREAMING | V4L2_CAP_META_CAPTURE | V4L2_CAP_VIDEO_CAPTURE;
        return 0;
    }
    case VIDIOC_G_INPUT:
        *static_cast<int*>(argument) = 0;
        return 0;
    case VIDIOC_S_INPUT:
        return *static_cast<int*>(argument) == 0 ? 0 : refuse(EINVAL);
    case VIDIOC_ENUMINPUT: {
        auto& input = *static_cast<v4l2_input*>(argument);
        if (input.index > 0)
            return refuse(EINVAL);
        input = {};
        copyText(input.name, "Camera 1");
        input.type = V4L2_INPUT_TYPE_CAMERA;
        return 0;
    }
    case VIDIOC_ENUM_FMT:
    case VIDIOC_ENUM_FRAMESIZES:
    case VIDIOC_ENUM_FRAMEINTERVALS:
    case VIDIOC_G_FMT:
    case VIDIOC_TRY_FMT:
    case VIDIOC_S_FMT:
    case VIDIOC_G_PARM:
    case VIDIOC_S_PARM:
        return requestFormat(code, argument);
    case VIDIOC_QUERYCTRL:
    case VIDIOC_QUERYMENU:
    case VIDIOC_G_CTRL:
    case VIDIOC_S_CTRL:
        return requestControl(code, argument);
    case VIDIOC_REQBUFS:
    case VIDIOC_QUERYBUF:
    case VIDIOC_QBUF:
    case VIDIOC_DQBUF:
    case VIDIOC_STREAMON:
    case VIDIOC_STREAMOFF:
        return requestStream(descriptor, code, argument);
    default:
        return refuse(ENOTTY);
    }
}

void FakeDevice::fill(v4l2_pix_format& format) const
{
    format = {};
    format.width = kWidth;
    format.height = kHeight;
    format.field = V4L2_FIELD_NONE;
    format.pixelformat = m_sends == Sends::jpeg ? V4L2_PIX_FMT_MJPEG : V4L2_PIX_FMT_YUYV;
    format.bytesperline = m_sends == Sends::jpeg ? 0 : kWidth * 2;
    format.sizeimage = kWidth * kHeight * 2;
    format.colorspace = m_sends == Sends::jpeg ? V4L2_COLORSPACE_JPEG : V4L2_COLORSPACE_SRGB;
}

int FakeDevice::requestFormat(unsigned long code, void* argument)
{
    if (m_sends == Sends::otherData)
        return refuse(EINVAL);
    switch (code) {
    case VIDIOC_ENUM_FMT: {
        auto& format = *static_cast<v4l2_fmtdesc*>(argument);
        if (format.index > 0)
            return refuse(EINVAL);
        format.flags = m_sends == Sends::jpeg ? V4L2_FMT_FLAG_COMPRESSED : 0;
        format.pixelformat = m_sends == Sends::jpeg ? V4L2_PIX_FMT_MJPEG : V4L2_PIX_FMT_YUYV;
        copyText(format.description, m_sends == Sends::jpeg ? "Motion-JPEG" : "YUYV 4:2:2");
        return 0;
    }
    case VIDIOC_ENUM_FRAMESIZES: {
        auto& size = *static_cast<v4l2_frmsizeenum*>(argument);
        if (size.index > 0)
            return refuse(EINVAL);
        size.type = V4L2_FRMSIZE_TYPE_DISCRETE;
        size.discrete = {kWidth, kHeight};
        return 0;
    }
    case VIDIOC_ENUM_FRAMEINTERVALS: {
        auto& interval = *static_cast<v4l2_frmivalenum*>(argument);
        if (interval.index > 0)
            return refuse(EINVAL);
        interval.type = V4L2_FRMIVAL_TYPE_DISCRETE;
        interval.discrete = {1, 30};
        return 0;
    }
    case VIDIOC_G_PARM:
    case VIDIOC_S_PARM:
        static_cast<v4l2_streamparm*>(argument)->parm.capture.capability = V4L2_CAP_TIMEPERFRAME;
        static_cast<v4l2_streamparm*>(argument)->parm.capture.timeperframe = {1, 30};
        return 0;
    default: {
        if (code == VIDIOC_S_FMT && (state() == State::busy || m_streaming != -1))
            return refuse(EBUSY);
        fill(static_cast<v4l2_format*>(argument)->fmt.pix);
        return 0;
    }
    }
}

FakeControl* FakeDevice::control(std::uint32_t id)
{
    const auto found = std::ranges::find(m_controls, id, &FakeControl::id);
    return found == m_controls.end() ? nullptr : &*found;
}

int FakeDevice::requestControl(unsigned long code, void* argument)
{
    stallWhile(State::stalledSettings);
    const std::lock_guard lock(m_mutex);
    const auto held = [&](const FakeControl& each) {
        const auto* holder = control(each.heldBy);
        return holder != nullptr && holder->value != (holder->type == V4L2_CTRL_TYPE_MENU ? 1 : 0);
    };
    if (code == VIDIOC_QUERYCTRL) {
        auto& query = *static_cast<v4l2_queryctrl*>(argument);
        const std::uint32_t id = query.id & ~V4L2_CTRL_FLAG_NEXT_CTRL;
        const bool next = query.id & V4L2_CTRL_FLAG_NEXT_CTRL;
        const auto found = std::ranges::find_if(
            m_controls, [&](const FakeControl& each) { return next ? each.id > id : each.id == id; });
        if (found == m_controls.end())
            return refuse(EINVAL);
        query = {};
        query.id = found->id;
        query.type = found->type;
        copyText(query.name, found->name);
        query.minimum = found->minimum;
        query.maximum = found->maximum;
        query.step = found->step;
        query.default_value = found->standard;
        query.flags = held(*found) ? V4L2_CTRL_FLAG_INACTIVE : 0;
        return 0;
    }
    if (code == VIDIOC_QUERYMENU) {
        auto& query = *static_cast<v4l2_querymenu*>(argument);
        const auto* found = control(query.id);
        if (found == nullptr || query.index >= found->entries.size() || found->entries[query.index].empty())
            return refuse(EINVAL);
        // The structure is packed, so its text can't be handed on by reference.
        __u8 name[sizeof query.name];
        copyText(name, found->entries[query.index]);
        std::memcpy(query.name, name, sizeof name);
        return 0;
    }
    auto& value = *static_cast<v4l2_control*>(argument);
    auto* found = control(value.id);
    if (found == nullptr)
        return refuse(EINVAL);
    if (code == VIDIOC_G_CTRL) {
        value.value = found->value;
        return 0;
    }
    if (held(*found))
        return refuse(EBUSY);
    if (value.value < found->minimum || value.value > found->maximum)
        return refuse(ERANGE);
    found->value = value.value;
    write(found->name + "=" + std::to_string(value.value));
    return 0;
}

void FakeDevice::makeBuffers(std::uint32_t count)
{
    if (m_memory == -1)
        m_memory = ::memfd_create("pictures", MFD_CLOEXEC);
    if (::ftruncate(m_memory, off_t(count) * kBufferSpace) != 0)
        count = 0;
    m_lengths.clear();
    m_queue.clear();
    // Each buffer holds its own picture for good: handing out one after the other moves them, and costs
    // nothing that would be taken for the program's own work.
    for (std::uint32_t i = 0; i < count; ++i) {
        const int phase = int(i) % kPhaseCount;
        const auto bytes = m_sends == Sends::jpeg ? jpegPicture(m_wall, phase) : yuyvPicture(m_wall, phase);
        const auto written = ::pwrite(m_memory, bytes.data(), bytes.size(), off_t(i) * kBufferSpace);
        m_lengths.push_back(std::uint32_t(std::max<ssize_t>(0, written)));
    }
}

void FakeDevice::describe(v4l2_buffer& buffer) const
{
    buffer.bytesused = m_lengths[buffer.index];
    buffer.length = kBufferSpace;
    buffer.m.offset = buffer.index * kBufferSpace;
    buffer.field = V4L2_FIELD_NONE;
    buffer.sequence = m_sequence;
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    buffer.timestamp = {now.tv_sec, now.tv_nsec / 1000};
    buffer.flags = V4L2_BUF_FLAG_TIMESTAMP_MONOTONIC;
}

int FakeDevice::dequeue(int descriptor, v4l2_buffer& buffer)
{
    // Without the lock: a program that waits for a picture here may be told to stop by another thread.
    std::uint64_t rings = 0;
    if (::read(descriptor, &rings, sizeof rings) != sizeof rings)
        return refuse(EAGAIN);
    const std::lock_guard lock(m_mutex);
    if (m_queue.empty())
        return refuse(EAGAIN);
    buffer.index = m_queue.front();
    m_queue.pop_front();
    ++m_sequence;
    describe(buffer);
    if (state() == State::damaged) {
        if (m_sequence % 2 == 0)
            buffer.flags |= V4L2_BUF_FLAG_ERROR;
        else
            buffer.bytesused = std::min(buffer.bytesused, kHeadOfAPicture);
    }
    return 0;
}

int FakeDevice::requestStream(int descriptor, unsigned long code, void* argument)
{
    if (m_sends == Sends::otherData)
        return refuse(EINVAL);
    if (code == VIDIOC_STREAMON)
        stallWhile(State::stalledStart);
    auto& buffer = *static_cast<v4l2_buffer*>(argument);
    if (code == VIDIOC_DQBUF)
        return dequeue(descriptor, buffer);
    const std::lock_guard lock(m_mutex);
    const bool names = code == VIDIOC_QUERYBUF || code == VIDIOC_QBUF;
    if (names && buffer.index >= m_lengths.size())
        return refuse(EINVAL);
    switch (code) {
    case VIDIOC_REQBUFS: {
        if (m_streaming != -1)
            return refuse(EBUSY);
        auto& wanted = *static_cast<v4l2_requestbuffers*>(argument);
        makeBuffers(wanted.count);
        wanted.count = std::uint32_t(m_lengths.size());
        return 0;
    }
    case VIDIOC_QUERYBUF:
        describe(buffer);
        return 0;
    case VIDIOC_QBUF:
        m_queue.push_back(buffer.index);
        return 0;
    case VIDIOC_STREAMON:
        m_streaming = descriptor;
        setTimer(descriptor, kPictureNanoseconds);
        write("start");
        return 0;
    default:
        m_streaming = -1;
        setTimer(descriptor, 0);
        write("stop");
        return 0;
    }
}

} // namespace quillora::tests::fake_camera
