#include "session/platform/posix/durable_file.h"

#include "session/platform/posix/file_descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>

namespace quillora::session {
namespace {

/// Some file systems (network and user-space ones) have no way to sync a folder and say EINVAL: there the
/// rename itself is all that can be had.
void sync(const std::filesystem::path& path, int flags)
{
    const FileDescriptor file(::open(path.c_str(), flags | O_CLOEXEC));
    if (!file.isOpen() || (::fsync(file.number()) != 0 && errno != EINVAL))
        throw std::system_error(errno, std::generic_category(), "cannot sync " + path.string());
}

} // namespace

void syncToDisk(const std::filesystem::path& file)
{
    sync(file, O_RDONLY);
    const auto folder = file.parent_path();
    sync(folder.empty() ? std::filesystem::path(".") : folder, O_RDONLY | O_DIRECTORY);
}

} // namespace quillora::session
