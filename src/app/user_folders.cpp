#include "app/user_folders.h"

namespace fs = std::filesystem;

namespace quillora::app {
namespace {

fs::path valueOf(const Environment& environment, const std::string& name)
{
    return environment(name).value_or("");
}

fs::path findFolder(const Environment& environment, const std::string& name, const std::string& xdgName,
                    const fs::path& fallback)
{
    if (const auto folder = valueOf(environment, name); !folder.empty())
        return folder;
    if (const auto folder = valueOf(environment, xdgName); folder.is_absolute())
        return folder;
    return fallback;
}

} // namespace

session::UserFolders findUserFolders(const Environment& environment, const fs::path& home)
{
    const auto homeSet = valueOf(environment, "HOME");
    const auto base = homeSet.empty() ? home : homeSet;
    return {.appData = findFolder(environment, "APPDATA", "XDG_DATA_HOME", base / ".local/share"),
            .localAppData = findFolder(environment, "LOCALAPPDATA", "XDG_CACHE_HOME", base / ".cache")};
}

} // namespace quillora::app
