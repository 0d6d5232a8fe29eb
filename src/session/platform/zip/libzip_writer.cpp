#include "session/platform/zip/libzip_writer.h"

#include "session/platform/posix/durable_file.h"
#include "session/platform/zip/libzip_archive.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

/// Pictures and video are compressed already: deflating them again costs seconds and gains nothing.
bool isMedia(const fs::path& file)
{
    auto extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::tolower(c); });
    constexpr std::array kMedia = {".wmv", ".jpg", ".png"};
    return std::ranges::find(kMedia, extension) != kMedia.end();
}

void add(zip_t* archive, const fs::path& file)
{
    zip_source_t* source = zip_source_file(archive, file.c_str(), 0, 0);
    if (!source)
        failInArchive("cannot read " + file.string(), zip_strerror(archive));
    const auto index = zip_file_add(archive, file.filename().c_str(), source, ZIP_FL_ENC_GUESS);
    if (index < 0) {
        zip_source_free(source);
        failInArchive("cannot add " + file.string(), zip_strerror(archive));
    }
    const auto method = isMedia(file) ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
    if (zip_set_file_compression(archive, zip_uint64_t(index), method, 0) != 0)
        failInArchive("cannot add " + file.string(), zip_strerror(archive));
}

void write(const fs::path& path, const std::vector<fs::path>& files)
{
    auto archive = openArchive(path, ZIP_CREATE | ZIP_TRUNCATE);
    for (const auto& file : files)
        add(archive.get(), file);
    if (zip_close(archive.get()) != 0)
        failInArchive("cannot write " + path.string(), zip_strerror(archive.get()));
    archive.release();
}

/// Reads the archive's directory back, before anything relies on it.
void check(const fs::path& path, std::size_t entries)
{
    const auto archive = openArchive(path, ZIP_RDONLY | ZIP_CHECKCONS);
    if (zip_get_num_entries(archive.get(), 0) != zip_int64_t(entries))
        failInArchive("cannot write " + path.string(), "entries are missing");
}

} // namespace

void LibzipWriter::AddFileToZip(const fs::path& file)
{
    if (!fs::is_regular_file(file))
        throw std::runtime_error("no file to pack: " + file.string());
    m_files.push_back(file);
}

void LibzipWriter::setDestinationZipFile(const fs::path& archive) { m_destination = archive; }

void LibzipWriter::Zip()
{
    // libzip deletes an archive without entries instead of writing it.
    if (m_files.empty())
        throw std::runtime_error("nothing to pack");
    auto unfinished = m_destination;
    unfinished += ".part";
    try {
        write(unfinished, m_files);
        check(unfinished, m_files.size());
        syncToDisk(unfinished);
        fs::rename(unfinished, m_destination);
        syncToDisk(m_destination);
    } catch (...) {
        std::error_code ignored;
        fs::remove(unfinished, ignored);
        throw;
    }
}

} // namespace quillora::session
