// Archives with every kind of entry, with bytes of theirs turned over, cut or doubled: whatever comes out of
// them are plain files in the one folder, no larger than their archive allows, and nothing beside it.

#include "session/platform/zip/libzip_reader.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/zip_bytes.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace fs = std::filesystem;

using quillora::tests::FuzzInput;

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "zip_reader_fuzz: %s\n", what);
    std::abort();
}

std::string name(FuzzInput& input)
{
    constexpr const char* kNames[] = {
        "a.wmv", "b.WMV",   "version.txt", "../up",      "/tmp/zip_reader_fuzz_up",
        "..",    "folder/", "a/b",         "slide1.jpg", "a.wmv\n"};
    if (input.choice(4) > 0)
        return kNames[input.choice(int(std::size(kNames)))];
    std::string any;
    for (int length = input.choice(20); length > 0; --length)
        any.push_back(static_cast<char>(input.byte()));
    return any;
}

std::string anyArchive(FuzzInput& input)
{
    constexpr std::uint32_t kModes[] = {0, 0100644, 0120777, 0040755, 0010644, 0060600};
    quillora::tests::ZipBytes zip;
    for (int count = input.choice(12); count > 0; --count) {
        quillora::tests::ZipBytesEntry entry;
        entry.name = name(input);
        entry.contents.assign(input.byte(), static_cast<char>(input.byte()));
        entry.method = input.choice(4) == 0 ? 8 : 0;
        if (input.choice(6) == 0)
            entry.declaredSize = static_cast<std::uint32_t>(input.number());
        entry.mode = kModes[input.choice(int(std::size(kModes)))];
        entry.flags = input.choice(10) == 0 ? input.byte() : 0;
        zip.add(entry);
    }
    return zip.archive();
}

void damage(std::string& bytes, FuzzInput& input)
{
    for (int count = input.choice(6); count > 0 && !bytes.empty(); --count) {
        const auto at = (std::size_t{input.byte()} << 8U | input.byte()) % bytes.size();
        const int kind = input.choice(8);
        if (kind == 0)
            bytes.resize(at);
        else if (kind == 1)
            bytes.insert(at, bytes.substr(at, input.byte()));
        else
            bytes[at] = static_cast<char>(input.byte());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uintmax_t kMostBytes = 64 << 20;
    static const quillora::tests::TemporaryFolder disk;
    const auto preview = disk.path() / "Preview";
    const auto container = disk.path() / "container.asf";
    fs::remove_all(preview);
    fs::create_directory(preview);

    FuzzInput input(data, size);
    auto bytes = anyArchive(input);
    damage(bytes, input);
    quillora::tests::writeFile(container, bytes);
    quillora::session::LibzipReader reader;
    reader.setZipFileName(container);
    reader.setExtractDir(preview);
    try {
        reader.Unzip();
    } catch (const std::exception&) {
    }

    std::uintmax_t total = 0;
    for (const auto& file : fs::directory_iterator(preview)) {
        require(file.symlink_status().type() == fs::file_type::regular,
                "something else than a file came out");
        total += file.file_size();
    }
    require(total <= kMostBytes, "more came out than the archive allows");
    require(std::distance(fs::directory_iterator(disk.path()), {}) == 2,
            "something was written beside the folder");
    require(!fs::exists("/tmp/zip_reader_fuzz_up"), "an absolute name was followed");
    return 0;
}
