#pragma once

#include <filesystem>

namespace quillora::session {

/// Waits until what was written to @p file, and then the name that @p file has in its folder, are on the
/// disk. Throws std::runtime_error when the disk reports that they are not.
void syncToDisk(const std::filesystem::path& file);

} // namespace quillora::session
