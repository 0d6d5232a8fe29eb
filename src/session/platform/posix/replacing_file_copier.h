#pragma once

#include "session/file_copier.h"

namespace quillora::session {

/// Copies a file so that the destination is at each moment either what it was or the whole copy: the copy is
/// written beside it under a name of its own, synced, and renamed over it. A copy that fails, or a machine
/// that goes down meanwhile, leaves the destination as it was.
class ReplacingFileCopier : public FileCopier {
  public:
    void copyOver(const std::filesystem::path& from, const std::filesystem::path& to) override;
};

} // namespace quillora::session
