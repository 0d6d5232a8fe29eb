#include "deck/platform/libreoffice/painted_slots.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace quillora::deck::libreoffice {

PaintedSlots::PaintedSlots()
    : m_descriptor(::memfd_create("quillora-slides", MFD_CLOEXEC | MFD_ALLOW_SEALING)), m_owned(true)
{
    if (m_descriptor < 0)
        throw std::runtime_error("no memory to share with the deck converter");
}

PaintedSlots::PaintedSlots(int descriptor) : m_descriptor(descriptor), m_owned(false) {}

PaintedSlots::~PaintedSlots()
{
    if (m_bytes != nullptr)
        ::munmap(m_bytes, m_size);
    if (m_owned)
        ::close(m_descriptor);
}

void PaintedSlots::makeRoom(int count, std::size_t bytesEach)
{
    // Whole pages, so that no two slots share one.
    constexpr std::size_t kPage = 4096;
    const std::size_t slotSize = (bytesEach + kPage - 1) / kPage * kPage;
    const std::size_t size = slotSize * static_cast<std::size_t>(count);
    if (::ftruncate(m_descriptor, static_cast<off_t>(size)) != 0 ||
        ::fcntl(m_descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0)
        throw std::runtime_error("no room for the pictures of the slides");
    mapBytes(size, count);
}

void PaintedSlots::map(int count)
{
    struct stat status {};
    if (m_bytes != nullptr)
        return;
    if (::fstat(m_descriptor, &status) != 0 || status.st_size <= 0)
        throw std::runtime_error("no room was made for the pictures of the slides");
    mapBytes(static_cast<std::size_t>(status.st_size), count);
}

std::span<std::uint8_t> PaintedSlots::slot(int number) const
{
    const std::size_t begin = m_slotSize * static_cast<std::size_t>(number);
    if (number < 0 || m_bytes == nullptr || begin + m_slotSize > m_size)
        return {};
    return {m_bytes + begin, m_slotSize};
}

void PaintedSlots::mapBytes(std::size_t size, int count)
{
    void* bytes = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, m_descriptor, 0);
    if (bytes == MAP_FAILED)
        throw std::runtime_error("the pictures of the slides can't be mapped");
    m_bytes = static_cast<std::uint8_t*>(bytes);
    m_size = size;
    m_slotSize = size / static_cast<std::size_t>(count);
}

} // namespace quillora::deck::libreoffice
