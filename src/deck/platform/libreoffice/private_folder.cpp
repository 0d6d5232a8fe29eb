#include "deck/platform/libreoffice/private_folder.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace quillora::deck::libreoffice {

namespace {

constexpr std::string_view kPrefix = "quillora-deck-";

/// The process that a folder's name tells of is there no more.
bool isLeftBehind(const std::filesystem::path& folder)
{
    const std::string name = folder.filename().string();
    pid_t owner = 0;
    const char* end = name.data() + name.size();
    if (!name.starts_with(kPrefix) ||
        std::from_chars(name.data() + kPrefix.size(), end, owner).ec != std::errc())
        return false;
    struct stat status {};
    const bool ours =
        ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
    return ours && owner > 1 && ::kill(owner, 0) != 0 && errno == ESRCH;
}

void removeLeftBehind(const std::filesystem::path& temporary)
{
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(temporary, ignored), end; entry != end;
         entry.increment(ignored)) {
        std::error_code kept;
        if (isLeftBehind(entry->path()))
            std::filesystem::remove_all(entry->path(), kept);
        if (ignored)
            return;
    }
}

} // namespace

PrivateFolder::PrivateFolder()
{
    const std::filesystem::path temporary = std::filesystem::temp_directory_path();
    removeLeftBehind(temporary);
    std::string name = (temporary / kPrefix).string() + std::to_string(::getpid()) + "-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no private folder for the deck converter");
    m_path = name;
}

PrivateFolder::~PrivateFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace quillora::deck::libreoffice
