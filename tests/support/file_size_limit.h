#pragma once

#include <csignal>
#include <sys/resource.h>

namespace quillora::tests {

/// While it lives, no file of this process can grow past a size: writing fails as it does on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_previous);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = m_previous.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit m_previous{};
    void (*m_previousHandler)(int) = nullptr;
};

} // namespace quillora::tests
