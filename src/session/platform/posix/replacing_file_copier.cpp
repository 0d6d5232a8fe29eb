#include "session/platform/posix/replacing_file_copier.h"

#include "session/platform/posix/durable_file.h"
#include "session/platform/posix/file_descriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

[[noreturn]] void fail(const char* what, const fs::path& path, int error = errno)
{
    throw std::system_error(error, std::generic_category(), std::string(what) + " " + path.string());
}

/// The file that a name stands for: a link stays a link, and what it points to is replaced.
fs::path resolved(const fs::path& name)
{
    std::error_code error;
    const auto target = fs::canonical(name, error);
    return error ? name : target;
}

/// Access rights for the copy: those of the file that it replaces, else those of any new file.
mode_t rightsFor(const fs::path& to)
{
    struct stat existing {};
    if (::stat(to.c_str(), &existing) == 0) {
        if (!S_ISREG(existing.st_mode))
            fail("not a file:", to, EISDIR);
        return existing.st_mode & 0777;
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

void writeAll(int file, const char* data, std::size_t size, const fs::path& path)
{
    while (size > 0) {
        const auto written = ::write(file, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            fail("cannot write", path);
        data += written;
        size -= std::size_t(written);
    }
}

void copyContents(const fs::path& from, int target, const fs::path& to)
{
    const FileDescriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (!source.isOpen())
        fail("cannot open", from);
    // Large pieces: a lecture is hundreds of megabytes, and the window waits.
    std::vector<char> piece(std::size_t(1) << 20);
    for (;;) {
        const auto size = ::read(source.number(), piece.data(), piece.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            fail("cannot read", from);
        if (size == 0)
            return;
        writeAll(target, piece.data(), std::size_t(size), to);
    }
}

} // namespace

void ReplacingFileCopier::copyOver(const fs::path& from, const fs::path& to)
{
    const auto target = resolved(to);
    const auto rights = rightsFor(target);
    // A short name of its own: one built from the destination's could pass the limit of 255 bytes.
    std::string beside = (target.parent_path() / ".quillora-XXXXXX").string();
    FileDescriptor copy(::mkostemp(beside.data(), O_CLOEXEC));
    if (!copy.isOpen())
        fail("cannot create a file beside", target);
    try {
        copyContents(from, copy.number(), target);
        if (::fchmod(copy.number(), rights) != 0 || ::fsync(copy.number()) != 0 || copy.close() != 0)
            fail("cannot finish", target);
        fs::rename(beside, target);
    } catch (...) {
        ::unlink(beside.c_str());
        throw;
    }
    syncToDisk(target);
}

} // namespace quillora::session
