#include "session/file_lookup.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

/// Not the locale's idea of case: which files are packed must not depend on the presenter's language.
std::string lowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::vector<fs::path> filesOf(const fs::path& folder)
{
    std::vector<fs::path> files;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code unreadable;
        if (!entry->is_directory(unreadable))
            files.push_back(entry->path());
    }
    return files;
}

} // namespace

fs::path findIgnoringCase(const fs::path& path)
{
    std::error_code failure;
    if (fs::exists(path, failure))
        return path;
    const auto wanted = lowerCase(path.filename().string());
    auto files = filesOf(path.parent_path());
    std::erase_if(files, [&](const fs::path& file) { return lowerCase(file.filename().string()) != wanted; });
    return files.empty() ? path : std::ranges::min(files);
}

std::vector<fs::path> filesEndingIn(const fs::path& folder, std::string_view ending)
{
    const auto wanted = lowerCase(std::string(ending));
    auto files = filesOf(folder);
    std::erase_if(
        files, [&](const fs::path& file) { return !lowerCase(file.filename().string()).ends_with(wanted); });
    std::ranges::sort(files, [](const fs::path& left, const fs::path& right) {
        const auto leftName = lowerCase(left.filename().string());
        const auto rightName = lowerCase(right.filename().string());
        // Names that differ in case only still need an order of their own, whatever order the disk has.
        return leftName != rightName ? leftName < rightName : left < right;
    });
    return files;
}

} // namespace quillora::session
