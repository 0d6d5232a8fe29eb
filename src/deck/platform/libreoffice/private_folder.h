#pragma once

#include <filesystem>

namespace quillora::deck::libreoffice {

/// A folder in the temporary folder that only this user can enter, removed with all that is in it. A recorder
/// that was killed leaves its own behind; the next one to make a folder removes those.
class PrivateFolder {
  public:
    /// Throws std::runtime_error.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

} // namespace quillora::deck::libreoffice
