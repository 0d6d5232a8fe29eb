#pragma once

#include "session/user_folders.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quillora::app {

/// Value of an environment variable, or nothing where it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

/// APPDATA and LOCALAPPDATA where they are set, so that a presenter can put scratch data on a larger disk;
/// else the data and the cache folder of the XDG base directory specification, whose relative values are
/// invalid and ignored. @p home is used where HOME is not set.
session::UserFolders findUserFolders(const Environment& environment, const std::filesystem::path& home);

} // namespace quillora::app
