#pragma once

#include <filesystem>
#include <memory>

namespace quillora::session {

/// Writes one ZIP archive. Entries lie at its top level under the files' own names, in the order in which
/// they were added. Media (what is compressed already) is stored, the rest deflated.
class ZipWriter {
  public:
    virtual ~ZipWriter() = default;

    virtual void AddFileToZip(const std::filesystem::path& file) = 0;
    virtual void setDestinationZipFile(const std::filesystem::path& archive) = 0;
    /// Writes the archive; blocks until it lies complete on the disk. Throws std::runtime_error when a file
    /// can't be read or the archive can't be written, and then leaves no archive behind.
    virtual void Zip() = 0;
};

/// Makes a writer for each archive.
class ZipWriterFactory {
  public:
    virtual ~ZipWriterFactory() = default;
    virtual std::unique_ptr<ZipWriter> create() = 0;
};

} // namespace quillora::session
