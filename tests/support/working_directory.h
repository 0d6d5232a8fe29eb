#pragma once

#include <filesystem>

namespace quillora::tests {

/// The process's current directory, for as long as it lives.
class WorkingDirectory {
  public:
    explicit WorkingDirectory(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    ~WorkingDirectory()
    {
        std::error_code gone;
        std::filesystem::current_path(m_previous, gone);
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

  private:
    std::filesystem::path m_previous = std::filesystem::current_path();
};

} // namespace quillora::tests
