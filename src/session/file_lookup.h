#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

/// Finding files by names whose case nobody promised: several programs write into the Workspace, and each has
/// a spelling of its own ("Slide1.PNG", "slide1.jpg"). Only the case of A to Z is ignored.
namespace quillora::session {

/// The file at @p path, or the first one in its folder (by name) that differs from it in case only. Where
/// there is none, @p path itself. Never throws.
std::filesystem::path findIgnoringCase(const std::filesystem::path& path);

/// The files of @p folder (not folders) whose names end in @p ending, such as ".wmv", sorted by name. Case
/// counts in neither. Empty where the folder can't be read. Never throws.
std::vector<std::filesystem::path> filesEndingIn(const std::filesystem::path& folder,
                                                 std::string_view ending);

} // namespace quillora::session
