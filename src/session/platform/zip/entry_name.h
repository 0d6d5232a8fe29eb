#pragma once

#include <string_view>

namespace quillora::session {

/// Whether a name from an archive is the name of one file and nothing else: no folder in it in anybody's
/// spelling, no step upward, nothing that doesn't print, and not longer than a file's name can be.
bool isPlainName(std::string_view name);

} // namespace quillora::session
