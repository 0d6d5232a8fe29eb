#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/mount.h>

namespace quillora::tests {

/// A disk of its own at a folder, of the size that the test says, for as long as it lives. Only the superuser
/// can make one.
class SmallDisk {
  public:
    /// Makes @p folder where it isn't there.
    SmallDisk(const std::filesystem::path& folder, std::uintmax_t bytes) : m_folder(folder)
    {
        std::filesystem::create_directory(folder);
        const std::string options = "size=" + std::to_string(bytes);
        m_mounted = ::mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
    }
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount(m_folder.c_str());
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool mounted() const { return m_mounted; }

  private:
    std::filesystem::path m_folder;
    bool m_mounted = false;
};

} // namespace quillora::tests
