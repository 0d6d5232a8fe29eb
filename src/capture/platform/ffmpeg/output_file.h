#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace quillora::capture {

/// A file that is written so that it can be finished even on a full disk.
///
/// Room is reserved on the disk some MiB ahead of what is written. When no more can be had, hasRoom() turns
/// false while the reserve still stands, and what finishes the file goes into it. What can't be written at
/// all is dropped without an error, and later writes to places further in front still work: a library that
/// writes through a stream gives up for good at the first error, and could not mend the file's header any
/// more.
class OutputFile {
  public:
    /// Creates the file, or empties it. Throws std::runtime_error.
    explicit OutputFile(const std::filesystem::path& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Writes at the current position and moves it on.
    void write(std::span<const std::uint8_t> bytes);
    void seek(std::int64_t position) { m_position = position; }
    std::int64_t position() const { return m_position; }
    /// The end of what was written or dropped.
    std::int64_t size() const { return m_size; }
    /// False once the disk is full, for good.
    bool hasRoom() const { return m_hasRoom; }

  private:
    void reserveAhead();

    int m_descriptor;
    std::int64_t m_position = 0;
    std::int64_t m_size = 0;
    std::int64_t m_reservedEnd = 0;
    bool m_canReserve = true;
    bool m_hasRoom = true;
};

} // namespace quillora::capture
