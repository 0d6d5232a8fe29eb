#include "app/installed_files.h"

#include <initializer_list>
#include <string_view>

namespace fs = std::filesystem;

namespace quillora::app {
namespace {

/// The first of the folders that holds @p file.
fs::path folderWith(std::string_view file, std::initializer_list<fs::path> folders)
{
    for (const auto& folder : folders) {
        std::error_code error;
        if (fs::exists(folder / file, error))
            return folder.lexically_normal();
    }
    return *folders.begin();
}

} // namespace

InstalledFiles findInstalledFiles(const fs::path& programFolder)
{
    constexpr std::string_view kConverter = "quillora-deck-converter";
    return {.assets = folderWith("PPT.png", {programFolder, programFolder / "../share/quillora"}),
            .deckConverter =
                folderWith(kConverter, {programFolder, programFolder / "../libexec/quillora"}) / kConverter};
}

} // namespace quillora::app
