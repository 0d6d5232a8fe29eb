#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <zip.h>

namespace quillora::session {

struct DiscardArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
/// Lets go of the archive without writing it.
using Archive = std::unique_ptr<zip_t, DiscardArchive>;

/// Opens an archive with libzip's flags. Throws std::runtime_error where that can't be.
Archive openArchive(const std::filesystem::path& path, int flags);

/// Throws std::runtime_error.
[[noreturn]] void failInArchive(const std::string& what, const char* why);

} // namespace quillora::session
