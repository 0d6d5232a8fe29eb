#include "stage/platform/v4l2/device.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace quillora::stage::v4l2 {

Device::Device(const std::string& node) : m_descriptor(::open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC))
{
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "cannot open " + node);
}

Device::~Device() { ::close(m_descriptor); }

void Device::request(unsigned long code, void* argument, const char* what) const
{
    if (!tryRequest(code, argument))
        throw std::system_error(errno, std::generic_category(), what);
}

bool Device::tryRequest(unsigned long code, void* argument) const
{
    int answer;
    do
        answer = ::ioctl(m_descriptor, code, argument);
    while (answer < 0 && errno == EINTR);
    return answer >= 0;
}

} // namespace quillora::stage::v4l2
