// Makes a program believe in cameras, by standing between it and the system calls that it would reach them
// with. Preload it, or link it before the C library, and name a folder in QUILLORA_FAKE_CAMERAS. There are
// then:
//
//   /dev/video0   "Lecture Camera", Motion-JPEG, a blue-green wall, every kind of setting
//   /dev/video1   its second node, which carries no pictures
//   /dev/video2   "Document Camera", YUYV, an orange wall, two settings of which none is the hue
//
// all of 640 by 480 and 30 pictures a second. A file video0 (or 1, 2) in the folder holds one word on what
// that device is; without it, it is present:
//
//   absent, unplugged                 there is no such node; unplugged also ends what is open
//   busy                              another program films with it
//   stalled-open, stalled-start,      the driver does not return from this, until another word is written; of
//   stalled-frames, stalled-settings  frames, none comes
//   damaged                           its pictures are cut off in their heads, or marked as broken, in turns
//
// The devices write what they are asked to do into video0.log and so on.

#include "tests/support/fake_camera/fake_device.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <time.h>
#include <unistd.h>

using namespace quillora::tests::fake_camera;

namespace {

/// The next definition of a function after this one: the C library's, or a sanitizer's.
template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

std::vector<FakeControl> lectureCameraControls()
{
    constexpr auto number = V4L2_CTRL_TYPE_INTEGER;
    constexpr auto onOff = V4L2_CTRL_TYPE_BOOLEAN;
    constexpr auto menu = V4L2_CTRL_TYPE_MENU;
    return {
        {V4L2_CID_BRIGHTNESS, number, "Brightness", -64, 64, 1, 0},
        {V4L2_CID_CONTRAST, number, "Contrast", 0, 95, 1, 32},
        {V4L2_CID_SATURATION, number, "Saturation", 0, 128, 1, 64},
        {V4L2_CID_HUE, number, "Hue", -40, 40, 1, 0, {}, V4L2_CID_HUE_AUTO},
        {V4L2_CID_AUTO_WHITE_BALANCE, onOff, "White Balance, Automatic", 0, 1, 1, 1},
        {V4L2_CID_POWER_LINE_FREQUENCY,
         menu,
         "Power Line Frequency",
         0,
         2,
         1,
         1,
         {"Disabled", "50 Hz", "60 Hz"}},
        {V4L2_CID_HUE_AUTO, onOff, "Hue, Automatic", 0, 1, 1, 0},
        {V4L2_CID_WHITE_BALANCE_TEMPERATURE,
         number,
         "White Balance Temperature",
         2800,
         6500,
         10,
         4600,
         {},
         V4L2_CID_AUTO_WHITE_BALANCE},
        {V4L2_CID_EXPOSURE_AUTO,
         menu,
         "Auto Exposure",
         0,
         3,
         1,
         3,
         {"", "Manual Mode", "", "Aperture Priority Mode"}},
        {V4L2_CID_EXPOSURE_ABSOLUTE,
         number,
         "Exposure Time, Absolute",
         1,
         5000,
         1,
         157,
         {},
         V4L2_CID_EXPOSURE_AUTO},
        {V4L2_CID_PAN_RESET, V4L2_CTRL_TYPE_BUTTON, "Pan, Reset", 0, 0, 0, 0},
    };
}

std::vector<FakeControl> documentCameraControls()
{
    return {
        {V4L2_CID_BRIGHTNESS, V4L2_CTRL_TYPE_INTEGER, "Brightness", 0, 255, 1, 128},
        {V4L2_CID_CONTRAST, V4L2_CTRL_TYPE_INTEGER, "Contrast", 10, 200, 1, 100},
    };
}

std::array<FakeDevice, 3>& devices()
{
    using Sends = FakeDevice::Sends;
    // Never destroyed: a thread may still wait in a stalled device when the program ends.
    static auto& all = *new std::array<FakeDevice, 3>{
        FakeDevice{"video0", "Lecture Camera", Sends::jpeg, {38, 120, 128}, lectureCameraControls()},
        FakeDevice{"video1", "Lecture Camera", Sends::otherData, {0, 0, 0}, {}},
        FakeDevice{"video2", "Document Camera", Sends::yuyv, {208, 122, 46}, documentCameraControls()}};
    return all;
}

FakeDevice* deviceAt(const char* path)
{
    constexpr std::string_view kFolder = "/dev/";
    if (!inUse() || path == nullptr || !std::string_view(path).starts_with(kFolder))
        return nullptr;
    for (auto& device : devices())
        if (device.name() == path + kFolder.size())
            return &device;
    return nullptr;
}

FakeDevice* deviceOf(int descriptor)
{
    if (!inUse() || descriptor < 0)
        return nullptr;
    for (auto& device : devices())
        if (device.owns(descriptor))
            return &device;
    return nullptr;
}

bool isVideoNode(const char* path)
{
    return path != nullptr && std::string_view(path).starts_with("/dev/video");
}

int openAs(const char* symbol, const char* path, int flags, mode_t mode)
{
    if (auto* device = deviceAt(path))
        return device->open(flags);
    return next<int (*)(const char*, int, ...)>(symbol)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0;
}

void* mapAs(const char* symbol, void* start, std::size_t length, int protection, int flags, int descriptor,
            off_t offset)
{
    if (auto* device = deviceOf(descriptor))
        descriptor = device->memory();
    return next<void* (*)(void*, std::size_t, int, int, int, off_t)>(symbol)(start, length, protection, flags,
                                                                             descriptor, offset);
}

/// A node of the video devices, as its status says it.
int describe(const FakeDevice& device, struct stat& status)
{
    status = {};
    status.st_mode = S_IFCHR | 0660;
    status.st_rdev = makedev(81, unsigned(device.name().back() - '0'));
    return 0;
}

int statusAs(const char* symbol, const char* path, struct stat& status)
{
    if (const auto* device = deviceAt(path))
        return describe(*device, status);
    return next<int (*)(const char*, struct stat*)>(symbol)(path, &status);
}

int statusAs(const char* symbol, int descriptor, struct stat& status)
{
    if (const auto* device = deviceOf(descriptor))
        return describe(*device, status);
    return next<int (*)(int, struct stat*)>(symbol)(descriptor, &status);
}

/// What a poll says of a fake device, in place of what its timer says.
int judged(pollfd* sources, nfds_t count)
{
    int ready = 0;
    for (nfds_t i = 0; i < count; ++i) {
        const auto* device = deviceOf(sources[i].fd);
        if (device != nullptr && device->state() == State::unplugged) {
            sources[i].revents = POLLERR | POLLHUP;
        } else if (device != nullptr && device->state() == State::stalledFrames && sources[i].revents) {
            std::uint64_t rings = 0;
            [[maybe_unused]] const auto ignored = ::read(sources[i].fd, &rings, sizeof rings);
            sources[i].revents = 0;
        }
        ready += sources[i].revents != 0;
    }
    return ready;
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs("open", path, flags, mode);
}

__attribute__((visibility("default"))) int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs("open64", path, flags, mode);
}

__attribute__((visibility("default"))) int access(const char* path, int mode) noexcept
{
    if (inUse() && isVideoNode(path)) {
        const auto* device = deviceAt(path);
        const State state = device ? device->state() : State::absent;
        if (state != State::absent && state != State::unplugged)
            return 0;
        errno = ENOENT;
        return -1;
    }
    static const auto real = next<int (*)(const char*, int)>("access");
    return real(path, mode);
}

__attribute__((visibility("default"))) int stat(const char* path, struct stat* status) noexcept
{
    return statusAs("stat", path, *status);
}

__attribute__((visibility("default"))) int stat64(const char* path, struct stat64* status) noexcept
{
    return statusAs("stat64", path, *reinterpret_cast<struct stat*>(status));
}

__attribute__((visibility("default"))) int fstat(int descriptor, struct stat* status) noexcept
{
    return statusAs("fstat", descriptor, *status);
}

__attribute__((visibility("default"))) int fstat64(int descriptor, struct stat64* status) noexcept
{
    return statusAs("fstat64", descriptor, *reinterpret_cast<struct stat*>(status));
}

__attribute__((visibility("default"))) int dup(int descriptor) noexcept
{
    static const auto real = next<int (*)(int)>("dup");
    const int second = real(descriptor);
    auto* device = deviceOf(descriptor);
    if (device != nullptr && second >= 0)
        device->adopt(second);
    return second;
}

__attribute__((visibility("default"))) int close(int descriptor)
{
    if (auto* device = deviceOf(descriptor))
        device->close(descriptor);
    static const auto real = next<int (*)(int)>("close");
    return real(descriptor);
}

__attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long code, ...) noexcept
{
    va_list arguments;
    va_start(arguments, code);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (auto* device = deviceOf(descriptor))
        return device->request(descriptor, code, argument);
    static const auto real = next<int (*)(int, unsigned long, ...)>("ioctl");
    return real(descriptor, code, argument);
}

// The library that converts pictures goes round the function above.
__attribute__((visibility("default"))) long syscall(long number, ...) noexcept
{
    va_list list;
    va_start(list, number);
    std::array<long, 6> arguments{};
    for (long& each : arguments)
        each = va_arg(list, long);
    va_end(list);
    if (number == SYS_ioctl)
        if (auto* device = deviceOf(int(arguments[0])))
            return device->request(int(arguments[0]), static_cast<unsigned long>(arguments[1]),
                                   reinterpret_cast<void*>(arguments[2]));
    static const auto real = next<long (*)(long, ...)>("syscall");
    return real(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}

__attribute__((visibility("default"))) void* mmap(void* start, std::size_t length, int protection, int flags,
                                                  int descriptor, off_t offset) noexcept
{
    return mapAs("mmap", start, length, protection, flags, descriptor, offset);
}

__attribute__((visibility("default"))) void* mmap64(void* start, std::size_t length, int protection,
                                                    int flags, int descriptor, off64_t offset) noexcept
{
    return mapAs("mmap64", start, length, protection, flags, descriptor, offset);
}

__attribute__((visibility("default"))) int poll(pollfd* sources, nfds_t count, int timeout)
{
    static const auto real = next<int (*)(pollfd*, nfds_t, int)>("poll");
    bool fake = false;
    for (nfds_t i = 0; i < count && !fake; ++i)
        fake = deviceOf(sources[i].fd) != nullptr;
    if (!fake)
        return real(sources, count, timeout);
    // In short turns, since a device may change in the middle of one.
    for (int waited = 0;; waited += 40) {
        const bool last = timeout >= 0 && waited + 40 >= timeout;
        const int answer = real(sources, count, last ? timeout - waited : 40);
        const int ready = answer < 0 ? answer : judged(sources, count);
        if (ready != 0 || last)
            return ready;
    }
}
}
