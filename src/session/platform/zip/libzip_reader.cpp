#include "session/platform/zip/libzip_reader.h"

#include "session/platform/posix/file_descriptor.h"
#include "session/platform/zip/entry_name.h"
#include "session/platform/zip/libzip_archive.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>
#include <vector>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

constexpr std::uint64_t kMebibyte = 1024 * 1024;
/// How much larger than the archive all that comes out of it may be. Video and pictures hardly shrink in an
/// archive, and text that shrinks much is small; what grows a hundredfold is there to fill the disk.
constexpr std::uint64_t kMostGrowth = 100;
constexpr std::uint64_t kSmallChange = 16 * kMebibyte;
/// What has to stay free on the disk, on which a recording may be waiting in a pause.
constexpr std::uint64_t kLeftFree = 256 * kMebibyte;
constexpr std::size_t kPiece = kMebibyte;

struct Entry {
    zip_uint64_t index = 0;
    std::string name{};
    std::uint64_t size = 0;
};

bool isPlainFile(zip_t* archive, zip_uint64_t index)
{
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0)
        return false;
    if (system != ZIP_OPSYS_UNIX)
        return true;
    // The mode stands in the upper half; writers that have none leave it empty.
    const auto kind = (attributes >> 16U) & S_IFMT;
    return kind == 0 || kind == S_IFREG;
}

bool isReadable(const zip_stat_t& facts)
{
    constexpr auto kNeeded = ZIP_STAT_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    return (facts.valid & kNeeded) == kNeeded && facts.encryption_method == ZIP_EM_NONE &&
           (facts.comp_method == ZIP_CM_STORE || facts.comp_method == ZIP_CM_DEFLATE);
}

std::string lowerCase(std::string name)
{
    std::ranges::transform(name, name.begin(), [](unsigned char byte) { return std::tolower(byte); });
    return name;
}

/// The name of an entry in UTF-8, whatever code page it was packed with; none where it leads elsewhere, be it
/// as it stands or as it is read.
std::optional<std::string> plainName(zip_t* archive, zip_uint64_t index)
{
    const char* packed = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
    const char* name = zip_get_name(archive, index, ZIP_FL_ENC_GUESS);
    if (packed == nullptr || name == nullptr || !isPlainName(packed) || !isPlainName(name))
        return std::nullopt;
    return name;
}

/// What of the archive may come out of it. Of entries with the same name, the first.
std::vector<Entry> plainEntries(zip_t* archive)
{
    const auto count = zip_get_num_entries(archive, 0);
    if (count > LibzipReader::kMostEntries)
        throw std::runtime_error("the archive has more entries than any lecture");
    std::vector<Entry> entries;
    std::unordered_set<std::string> taken;
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = zip_uint64_t(i);
        const auto name = plainName(archive, index);
        zip_stat_t facts;
        zip_stat_init(&facts);
        if (!name || zip_stat_index(archive, index, 0, &facts) != 0 || !isReadable(facts) ||
            !isPlainFile(archive, index) || !taken.insert(lowerCase(*name)).second)
            continue;
        entries.push_back({index, *name, facts.size});
    }
    return entries;
}

void checkRoom(const std::vector<Entry>& entries, std::uint64_t archiveSize, const fs::path& folder)
{
    std::uint64_t total = 0;
    for (const auto& entry : entries) {
        if (entry.size > std::numeric_limits<std::int64_t>::max() - total)
            throw std::runtime_error("the archive declares more than there is");
        total += entry.size;
    }
    if (total > kSmallChange && (total - kSmallChange) / kMostGrowth > archiveSize)
        throw std::runtime_error("the archive is small for what it declares");
    if (total + kLeftFree > fs::space(folder).available)
        throw std::runtime_error("the disk has no room for what is in the archive");
}

class OpenEntry {
  public:
    OpenEntry(zip_t* archive, zip_uint64_t index) : m_file(zip_fopen_index(archive, index, 0))
    {
        if (m_file == nullptr)
            throw std::runtime_error("an entry of the archive can't be read");
    }
    ~OpenEntry() { zip_fclose(m_file); }
    OpenEntry(const OpenEntry&) = delete;
    OpenEntry& operator=(const OpenEntry&) = delete;

    /// How much was read; 0 at the end.
    std::size_t read(std::vector<char>& piece)
    {
        const auto count = zip_fread(m_file, piece.data(), piece.size());
        if (count < 0)
            throw std::runtime_error("an entry of the archive is damaged");
        return std::size_t(count);
    }

  private:
    zip_file_t* m_file;
};

void writeAll(int file, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const auto written = ::write(file, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            throw std::runtime_error(std::strerror(errno));
        bytes += written;
        count -= std::size_t(written);
    }
}

void copy(zip_t* archive, const Entry& entry, int file)
{
    OpenEntry opened(archive, entry.index);
    std::vector<char> piece(kPiece);
    std::uint64_t copied = 0;
    while (const auto count = opened.read(piece)) {
        copied += count;
        if (copied > entry.size)
            throw std::runtime_error("an entry of the archive is larger than it declares");
        writeAll(file, piece.data(), count);
    }
    if (copied != entry.size)
        throw std::runtime_error("an entry of the archive is smaller than it declares");
}

void unpack(zip_t* archive, const Entry& entry, int folder)
{
    // Exclusive: neither a file nor a link that lies there is written through.
    FileDescriptor file(::openat(folder, entry.name.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        throw std::runtime_error(entry.name + ": " + std::strerror(errno));
    try {
        copy(archive, entry, file.number());
        if (file.close() != 0)
            throw std::runtime_error(entry.name + ": " + std::strerror(errno));
    } catch (...) {
        ::unlinkat(folder, entry.name.c_str(), 0);
        throw;
    }
}

} // namespace

void LibzipReader::Unzip()
{
    if (m_list != 0)
        throw std::runtime_error("only all entries can be unpacked");
    // Opening a pipe would wait for somebody to write into it.
    if (!fs::is_regular_file(m_archive))
        throw std::runtime_error("no file to unpack: " + m_archive.string());
    const auto archive = openArchive(m_archive, ZIP_RDONLY);
    const auto entries = plainEntries(archive.get());
    fs::create_directories(m_folder);
    checkRoom(entries, fs::file_size(m_archive), m_folder);

    const FileDescriptor folder(::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        throw std::runtime_error(m_folder.string() + ": " + std::strerror(errno));
    std::optional<std::string> failure;
    for (const auto& entry : entries) {
        try {
            unpack(archive.get(), entry, folder.number());
        } catch (const std::runtime_error& first) {
            if (!failure)
                failure = first.what();
        }
    }
    if (failure)
        throw std::runtime_error(*failure);
}

} // namespace quillora::session
