#pragma once

#include <filesystem>

namespace quillora::session {

/// The folders in which the system keeps what belongs to one user, found by the program once at its start.
/// Our own folder "Quillora" lies below each.
struct UserFolders {
    std::filesystem::path appData{};
    std::filesystem::path localAppData{};
};

} // namespace quillora::session
