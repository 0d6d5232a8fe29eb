#include "deck/platform/libreoffice/office_location.h"

#include <algorithm>
#include <string>

namespace quillora::deck::libreoffice {

std::vector<std::filesystem::path> usualOfficeFolders()
{
    std::vector<std::filesystem::path> folders{"/usr/lib/libreoffice/program",
                                               "/usr/lib64/libreoffice/program",
                                               "/usr/local/lib/libreoffice/program"};
    std::vector<std::filesystem::path> own;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/opt", error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().filename().string().starts_with("libreoffice"))
            own.push_back(entry->path() / "program");
    }
    std::sort(own.rbegin(), own.rend());
    folders.insert(folders.end(), own.begin(), own.end());
    return folders;
}

std::optional<std::filesystem::path> officeFolder(const std::vector<std::filesystem::path>& folders)
{
    const auto holdsLibrary = [](const std::filesystem::path& folder) {
        std::error_code error;
        return std::filesystem::exists(folder / "libsofficeapp.so", error) ||
               std::filesystem::exists(folder / "libmergedlo.so", error);
    };
    const auto found = std::find_if(folders.begin(), folders.end(), holdsLibrary);
    return found == folders.end() ? std::nullopt : std::optional(*found);
}

} // namespace quillora::deck::libreoffice
