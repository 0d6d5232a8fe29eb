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

/// A program that this one starts.
fs::path helperProgram(const fs::path& programFolder, std::string_view name)
{
    return folderWith(name, {programFolder, programFolder / "../libexec/quillora"}) / name;
}

} // namespace

InstalledFiles findInstalledFiles(const fs::path& programFolder)
{
    return {.assets = folderWith("PPT.png", {programFolder, programFolder / "../share/quillora"}),
            .deckConverter = helperProgram(programFolder, "quillora-deck-converter"),
            .browser = helperProgram(programFolder, "quillora-browser"),
            .reviewPlayer = helperProgram(programFolder, "quillora-review-player")};
}

} // namespace quillora::app
