#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace quillora::deck::libreoffice {

/// Where packages of the common distributions and of LibreOffice itself put its program folder, newest first
/// where several may stand side by side.
std::vector<std::filesystem::path> usualOfficeFolders();

/// The first of @p folders that holds LibreOffice's library.
std::optional<std::filesystem::path> officeFolder(const std::vector<std::filesystem::path>& folders);

} // namespace quillora::deck::libreoffice
