#pragma once

#include <filesystem>
#include <sys/mount.h>
#include <unistd.h>

namespace quillora::tests {

/// Keeps a file from being deleted for as long as it lives. The superuser may delete anything but what
/// something is mounted on; for others, nothing in the file's folder can be made or deleted meanwhile.
class PinnedFile {
  public:
    explicit PinnedFile(const std::filesystem::path& file) : m_file(file)
    {
        if (::geteuid() == 0)
            m_pinned = ::mount(file.c_str(), file.c_str(), "", MS_BIND, nullptr) == 0;
        else
            setFolder(std::filesystem::perm_options::remove);
    }
    ~PinnedFile()
    {
        if (!m_pinned)
            return;
        if (::geteuid() == 0)
            ::umount(m_file.c_str());
        else
            setFolder(std::filesystem::perm_options::add);
    }
    PinnedFile(const PinnedFile&) = delete;
    PinnedFile& operator=(const PinnedFile&) = delete;

    /// Not where the superuser may not mount, as in some containers.
    bool pinned() const { return m_pinned; }

  private:
    void setFolder(std::filesystem::perm_options change)
    {
        std::filesystem::permissions(m_file.parent_path(), std::filesystem::perms::owner_write, change);
        m_pinned = true;
    }

    std::filesystem::path m_file;
    bool m_pinned = false;
};

} // namespace quillora::tests
