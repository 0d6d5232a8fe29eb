#pragma once

#include <filesystem>
#include <string_view>

namespace quillora::session {

/// Writes @p text and a final carriage return and line feed, in place of any file that is there. Throws
/// std::runtime_error when the file can't be made or does not hold all of the text (full disk).
void printToFile(const std::filesystem::path& path, std::string_view text);

} // namespace quillora::session
