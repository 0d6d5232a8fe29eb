#include "capture/platform/ffmpeg/output_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace quillora::capture {

namespace {

/// What finishing a file may take: the packets still on their way, and an index of 6 bytes a second.
constexpr std::int64_t kFinishingRoom = 2 << 20;
/// Room is asked for in pieces of this size, so that it is not asked for at each write.
constexpr std::int64_t kReserveStep = 4 << 20;

} // namespace

OutputFile::OutputFile(const std::filesystem::path& path)
    : m_descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666))
{
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), path.string());
}

OutputFile::~OutputFile()
{
    // Gives back what was reserved and not used. A failure leaves a file that is only larger on the disk.
    struct stat state {};
    if (::fstat(m_descriptor, &state) == 0 && ::ftruncate(m_descriptor, state.st_size) != 0) {
    }
    ::close(m_descriptor);
}

void OutputFile::write(std::span<const std::uint8_t> bytes)
{
    reserveAhead();
    const std::int64_t end = m_position + std::int64_t(bytes.size());
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(m_descriptor, bytes.data(), bytes.size(), m_position);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            m_hasRoom = false;
            break;
        }
        bytes = bytes.subspan(std::size_t(written));
        m_position += written;
    }
    m_position = end;
    m_size = std::max(m_size, end);
}

void OutputFile::reserveAhead()
{
    if (!m_hasRoom || m_position + kFinishingRoom <= m_reservedEnd)
        return;
    if (m_canReserve) {
        if (::fallocate(m_descriptor, FALLOC_FL_KEEP_SIZE, m_reservedEnd, kReserveStep) == 0) {
            m_reservedEnd += kReserveStep;
            return;
        }
        m_canReserve = errno == ENOSPC || errno == EDQUOT || errno == EFBIG || errno == EINTR;
        if (m_canReserve) {
            m_hasRoom = errno == EINTR;
            return;
        }
    }
    // Some file systems reserve nothing. There, the room that is free now is the best that is known.
    struct statvfs space {};
    if (::fstatvfs(m_descriptor, &space) == 0)
        m_hasRoom = std::int64_t(space.f_bavail) * std::int64_t(space.f_frsize) > kReserveStep;
}

} // namespace quillora::capture
