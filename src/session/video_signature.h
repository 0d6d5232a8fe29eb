#pragma once

#include <filesystem>

namespace quillora::session {

/// Whether @p path is a file, and no link to one, that begins as every Windows Media file does. Players go by
/// what is in a file and not by its name, and some follow texts that name other files: what isn't a video by
/// this is not shown to one. Never throws.
bool isWindowsMedia(const std::filesystem::path& path);

} // namespace quillora::session
