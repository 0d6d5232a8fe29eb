#pragma once

#include <filesystem>
#include <memory>

namespace quillora::session {

/// Unpacks one ZIP archive, which may come from anybody. Only plain files with plain names come out of it,
/// into one folder, over nothing that lies there already: entries in folders, links, and names that lead
/// elsewhere are left where they are.
class ZipReader {
  public:
    virtual ~ZipReader() = default;

    virtual void setZipFileName(const std::filesystem::path& archive) = 0;
    virtual void setExtractDir(const std::filesystem::path& folder) = 0;
    /// 0: all entries, which is all that is asked for.
    virtual void setExtractList(int list) = 0;
    /// Blocks until all is unpacked. Throws std::runtime_error when the archive can't be read, or asks for
    /// more room than a lecture does or the disk has, and then nothing of it is unpacked; and when single
    /// entries can't be unpacked, after the others have been.
    virtual void Unzip() = 0;
};

/// Makes a reader for each archive.
class ZipReaderFactory {
  public:
    virtual ~ZipReaderFactory() = default;
    virtual std::unique_ptr<ZipReader> create() = 0;
};

} // namespace quillora::session
