#pragma once

#include <filesystem>

namespace quillora::deck::libreoffice {

/// Writes a LibreOffice user profile into @p folder: no macros, no links followed, nothing asked, nothing
/// remembered. Each converter has one of its own, since two can't share one. Throws std::runtime_error.
void writeOfficeProfile(const std::filesystem::path& folder);

} // namespace quillora::deck::libreoffice
