#include "forms/platform/webengine/shared_picture.h"

#include "forms/platform/webengine/browser_messages.h"

#include <QSize>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillora::forms::webengine {

namespace {

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

} // namespace

SharedPicture::SharedPicture()
    : m_descriptor(::memfd_create("quillora-page", MFD_CLOEXEC | MFD_ALLOW_SEALING))
{
    if (m_descriptor < 0)
        fail("memfd_create");
    if (::ftruncate(m_descriptor, kPictureCapacity) != 0 ||
        ::fcntl(m_descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0) {
        ::close(m_descriptor);
        fail("memory for the picture");
    }
    map();
}

SharedPicture::SharedPicture(int descriptor) : m_descriptor(descriptor) { map(); }

SharedPicture::~SharedPicture()
{
    ::munmap(m_bytes, kPictureCapacity);
    ::close(m_descriptor);
}

void SharedPicture::map()
{
    void* address = ::mmap(nullptr, kPictureCapacity, PROT_READ | PROT_WRITE, MAP_SHARED, m_descriptor, 0);
    if (address == MAP_FAILED) {
        ::close(m_descriptor);
        fail("mmap");
    }
    m_bytes = static_cast<unsigned char*>(address);
}

} // namespace quillora::forms::webengine
