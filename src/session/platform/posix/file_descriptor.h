#pragma once

#include <unistd.h>

#include <utility>

namespace quillora::session {

/// Owns an open file of the system.
class FileDescriptor {
  public:
    explicit FileDescriptor(int number) : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    ~FileDescriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    /// Closes it and gives the result of closing: a late write failure shows up only here.
    int close() { return ::close(std::exchange(m_number, -1)); }

  private:
    int m_number;
};

} // namespace quillora::session
