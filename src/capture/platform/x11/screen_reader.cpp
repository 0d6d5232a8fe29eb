#include "capture/platform/x11/screen_reader.h"

#include <xcb/shm.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace quillora::capture {
namespace {

constexpr std::uint32_t kAllPlanes = ~0U;

[[noreturn]] void throwSystemError(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

PictureBuffer::PictureBuffer(const X11Connection& connection, std::size_t bytes)
    : m_connection(connection), m_size(bytes)
{
    const int file = memfd_create("screen picture", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (file < 0)
        throwSystemError("memory for a screen picture");
    void* mapped = MAP_FAILED;
    if (ftruncate(file, static_cast<off_t>(bytes)) == 0)
        mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (mapped == MAP_FAILED) {
        const int reason = errno;
        close(file);
        errno = reason;
        throwSystemError("memory for a screen picture");
    }
    m_data = static_cast<std::uint8_t*>(mapped);
    // A server that cut the file short would end this process at its next look at the picture.
    fcntl(file, F_ADD_SEALS, F_SEAL_SHRINK);
    if (connection.extensions().sharedMemory)
        share(file);
    else
        close(file);
}

PictureBuffer::~PictureBuffer()
{
    if (m_segment)
        xcb_shm_detach(m_connection.get(), m_segment);
    munmap(m_data, m_size);
}

void PictureBuffer::share(int file)
{
    m_segment = xcb_generate_id(m_connection.get());
    // XCB closes the descriptor. Whether the server takes it shows at the first use.
    xcb_shm_attach_fd(m_connection.get(), m_segment, file, 0);
}

ScreenReader::ScreenReader(const X11Connection& connection)
    : m_connection(connection), m_shared(connection.extensions().sharedMemory)
{}

void ScreenReader::makeRoom(std::unique_ptr<PictureBuffer>& buffer, int width, int height) const
{
    const std::size_t bytes = m_connection.layout().rowBytes(width) * static_cast<std::size_t>(height);
    if (buffer && buffer->size() >= bytes)
        return;
    buffer.reset();
    buffer = std::make_unique<PictureBuffer>(m_connection, bytes);
}

ScreenReader::Outcome ScreenReader::read(const PixelRectangle& part, PictureBuffer& buffer)
{
    XcbPointer<xcb_generic_error_t> error;
    if (m_shared && readShared(part, buffer, error))
        return Outcome::done;
    if (error && error->error_code == XCB_MATCH)
        return Outcome::offScreen;
    m_connection.check();
    m_shared = false;
    if (readCopied(part, buffer, error))
        return Outcome::done;
    if (error && error->error_code == XCB_MATCH)
        return Outcome::offScreen;
    m_connection.check();
    throw std::runtime_error("the screen can't be read");
}

bool ScreenReader::readShared(const PixelRectangle& part, PictureBuffer& buffer,
                              XcbPointer<xcb_generic_error_t>& error)
{
    xcb_generic_error_t* failure = nullptr;
    const auto request = xcb_shm_get_image(
        m_connection.get(), m_connection.root(), static_cast<std::int16_t>(part.left),
        static_cast<std::int16_t>(part.top), static_cast<std::uint16_t>(part.width),
        static_cast<std::uint16_t>(part.height), kAllPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, buffer.segment(), 0);
    const XcbPointer<xcb_shm_get_image_reply_t> reply(
        xcb_shm_get_image_reply(m_connection.get(), request, &failure));
    error.reset(failure);
    return reply != nullptr;
}

bool ScreenReader::readCopied(const PixelRectangle& part, PictureBuffer& buffer,
                              XcbPointer<xcb_generic_error_t>& error)
{
    xcb_generic_error_t* failure = nullptr;
    const auto request = xcb_get_image(
        m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_connection.root(),
        static_cast<std::int16_t>(part.left), static_cast<std::int16_t>(part.top),
        static_cast<std::uint16_t>(part.width), static_cast<std::uint16_t>(part.height), kAllPlanes);
    const XcbPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection.get(), request, &failure));
    error.reset(failure);
    if (!reply)
        return false;
    const auto bytes = static_cast<std::size_t>(xcb_get_image_data_length(reply.get()));
    std::memcpy(buffer.data(), xcb_get_image_data(reply.get()), std::min(bytes, buffer.size()));
    return true;
}

} // namespace quillora::capture
