#pragma once

#include "session/zip_reader.h"

namespace quillora::session {

/// ZipReader on libzip, for archives of strangers. What comes out of it are files that it has made itself,
/// with names that were none in the folder before, so that no archive can reach beyond that folder or through
/// a link in it. Before anything is unpacked, the number of entries and the room that they ask for are held
/// against limits that no lecture comes near, and against the disk; while an entry is unpacked, against what
/// it has declared.
class LibzipReader : public ZipReader {
  public:
    /// A deck of ten thousand slides fits.
    static constexpr long kMostEntries = 20'000;

    void setZipFileName(const std::filesystem::path& archive) override { m_archive = archive; }
    void setExtractDir(const std::filesystem::path& folder) override { m_folder = folder; }
    void setExtractList(int list) override { m_list = list; }
    /// Makes the folder where it has gone.
    void Unzip() override;

  private:
    std::filesystem::path m_archive;
    std::filesystem::path m_folder;
    int m_list = 0;
};

class LibzipReaderFactory : public ZipReaderFactory {
  public:
    std::unique_ptr<ZipReader> create() override { return std::make_unique<LibzipReader>(); }
};

} // namespace quillora::session
