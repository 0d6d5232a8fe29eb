#pragma once

#include <filesystem>

namespace quillora::tests {

/// A fresh folder of its own, removed with all that is in it by the destructor.
class TemporaryFolder {
  public:
    /// Unless a component can't take it, tests work below a path with blanks and letters beyond ASCII, so
    /// that code which quotes or encodes paths badly fails here and not at a user's.
    enum class Name { awkward, plain };

    explicit TemporaryFolder(Name name = Name::awkward);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

} // namespace quillora::tests
