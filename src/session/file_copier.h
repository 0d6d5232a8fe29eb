#pragma once

#include <filesystem>

namespace quillora::session {

/// Puts finished files where the presenter wants them.
class FileCopier {
  public:
    virtual ~FileCopier() = default;
    /// Copies the file @p from to @p to, in place of what may be there, without asking. Throws
    /// std::runtime_error when it can't; the file that was at @p to is then still there, whole.
    virtual void copyOver(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
};

} // namespace quillora::session
