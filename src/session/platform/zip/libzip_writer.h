#pragma once

#include "session/zip_writer.h"

#include <vector>

namespace quillora::session {

/// ZipWriter on libzip. The archive is written under a temporary name beside its destination, checked, synced
/// and renamed; past 4 GiB it takes the 64-bit form by itself.
class LibzipWriter : public ZipWriter {
  public:
    void AddFileToZip(const std::filesystem::path& file) override;
    void setDestinationZipFile(const std::filesystem::path& archive) override;
    void Zip() override;

  private:
    std::vector<std::filesystem::path> m_files;
    std::filesystem::path m_destination;
};

class LibzipWriterFactory : public ZipWriterFactory {
  public:
    std::unique_ptr<ZipWriter> create() override { return std::make_unique<LibzipWriter>(); }
};

} // namespace quillora::session
