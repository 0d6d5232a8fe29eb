#include "session/platform/zip/libzip_writer.h"

#include "tests/support/child_process.h"
#include "tests/support/file_contents.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <vector>

using namespace quillora::tests;
using quillora::session::LibzipWriter;
namespace fs = std::filesystem;

namespace {

struct Entry {
    std::string name;
    int method = 0;

    bool operator==(const Entry&) const = default;
};

constexpr int kStored = 0;
constexpr int kDeflated = 8;

unsigned numberAt(const std::string& bytes, std::size_t at, int size)
{
    unsigned value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + std::size_t(i)));
    return value;
}

/// The archive's central directory, read by the layout of PKWARE's APPNOTE 4.3.12 rather than by the library
/// under test.
std::vector<Entry> entriesOf(const fs::path& archive)
{
    const auto bytes = readFile(archive);
    std::vector<Entry> entries;
    for (auto at = bytes.find("PK\1\2"); at != std::string::npos; at = bytes.find("PK\1\2", at + 46))
        entries.push_back(
            {bytes.substr(at + 46, numberAt(bytes, at + 28, 2)), int(numberAt(bytes, at + 10, 2))});
    return entries;
}

class LibzipWriterTest : public testing::Test {
  protected:
    void add(const std::string& name, const std::string& contents)
    {
        writeFile(folder.path() / name, contents);
        writer.AddFileToZip(folder.path() / name);
    }

    void zip()
    {
        writer.setDestinationZipFile(archive);
        writer.Zip();
    }

    TemporaryFolder folder;
    fs::path archive = folder.path() / "MyZip.zip";
    LibzipWriter writer;
};

} // namespace

TEST_F(LibzipWriterTest, KeepsTheOrderInWhichFilesWereAddedAndDropsTheirFolders)
{
    add("version.txt", "Version 3.13.0\r\n");
    add("Slide1.PNG", "png");
    add("slide1.jpg", "jpg");
    add("slidetime.xml", "<slides>");
    add("aB3dE6gH.wmv", "wmv");
    zip();
    EXPECT_EQ(entriesOf(archive), (std::vector<Entry>{{"version.txt", kDeflated},
                                                      {"Slide1.PNG", kStored},
                                                      {"slide1.jpg", kStored},
                                                      {"slidetime.xml", kDeflated},
                                                      {"aB3dE6gH.wmv", kStored}}));
}

TEST_F(LibzipWriterTest, WritesAnArchiveThatAnotherProgramUnpacks)
{
    const std::string video(3'000'000, 'v');
    add("aB3dE6gH.wmv", video);
    zip();
    const auto unpacked = folder.path() / "unpacked";
    ASSERT_EQ(runToEnd({"unzip", "-q", archive.string(), "-d", unpacked.string()}), 0);
    EXPECT_EQ(readFile(unpacked / "aB3dE6gH.wmv"), video);
}

TEST_F(LibzipWriterTest, ReplacesTheArchiveOfTheLastRecording)
{
    writeFile(archive, "an older archive");
    add("version.txt", "Version 3.13.0\r\n");
    zip();
    EXPECT_EQ(entriesOf(archive).size(), 1U);
}

TEST_F(LibzipWriterTest, FailsWhenAFileIsMissing)
{
    EXPECT_THROW(writer.AddFileToZip(folder.path() / "Slide1.PNG"), std::runtime_error);
}

TEST_F(LibzipWriterTest, FailsWithoutATraceWhenAFileGoesAwayBeforePacking)
{
    add("version.txt", "Version 3.13.0\r\n");
    fs::remove(folder.path() / "version.txt");
    EXPECT_THROW(zip(), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(LibzipWriterTest, LeavesNoHalfArchiveWhenTheDiskIsFull)
{
    add("aB3dE6gH.wmv", std::string(100000, 'v'));
    {
        const FileSizeLimit limit(50000);
        EXPECT_THROW(zip(), std::runtime_error);
    }
    fs::remove(folder.path() / "aB3dE6gH.wmv");
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(LibzipWriterTest, FailsWhenThereIsNothingToPack)
{
    EXPECT_THROW(zip(), std::runtime_error);
    EXPECT_FALSE(fs::exists(archive));
}

TEST_F(LibzipWriterTest, PacksAVideoPastFourGibibytes)
{
    constexpr std::uintmax_t kSize = (std::uintmax_t(4) << 30) + 12345;
    if (fs::space(folder.path()).available < 2 * kSize)
        GTEST_SKIP() << "needs 9 GB of disk";
    // The source takes no room: it is one long hole.
    add("aB3dE6gH.wmv", "");
    fs::resize_file(folder.path() / "aB3dE6gH.wmv", kSize);
    add("slidetime.xml", "<slides>");
    zip();
    EXPECT_GT(fs::file_size(archive), kSize);
    EXPECT_EQ(runToEnd({"unzip", "-lqq", archive.string()}), 0);
}
