#pragma once

#include <filesystem>

namespace quillora::app {

/// Where the files that come with the program lie.
struct InstalledFiles {
    /// Countdown pictures, start picture, cursor.
    std::filesystem::path assets;
    std::filesystem::path deckConverter;
    std::filesystem::path browser;
    std::filesystem::path reviewPlayer;
};

/// Looks beside the program first, then where an installation puts things relative to it, so that a copied
/// folder, a local prefix and a system installation all work. Files that are found nowhere are expected
/// beside the program: what needs them then fails by itself.
InstalledFiles findInstalledFiles(const std::filesystem::path& programFolder);

} // namespace quillora::app
