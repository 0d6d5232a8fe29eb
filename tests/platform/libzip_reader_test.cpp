#include "session/platform/zip/libzip_reader.h"

#include "session/platform/zip/libzip_writer.h"
#include "tests/support/child_process.h"
#include "tests/support/file_contents.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/zip_bytes.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sys/stat.h>

namespace quillora::session {
namespace {

namespace fs = std::filesystem;
using tests::readFile;
using tests::writeFile;
using tests::ZipBytes;
using Files = std::map<std::string, std::string>;

constexpr std::uint32_t kLink = S_IFLNK | 0777;
constexpr std::uint32_t kFolder = S_IFDIR | 0755;
constexpr std::uint32_t kPlainFile = S_IFREG | 0644;
constexpr std::uint32_t kPipe = S_IFIFO | 0644;

class LibzipReaderTest : public testing::Test {
  protected:
    LibzipReaderTest() { fs::create_directories(preview); }

    /// Whatever an archive holds, nothing may appear beside the folder that it is unpacked into.
    ~LibzipReaderTest() override
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(disk.path()))
            names.insert(entry.path().filename().string());
        EXPECT_EQ(names, (std::set<std::string>{"container.asf", "Preview"}));
    }

    void unzip()
    {
        LibzipReader reader;
        reader.setZipFileName(container);
        reader.setExtractDir(preview);
        reader.setExtractList(0);
        reader.Unzip();
    }
    void unzip(const ZipBytes& zip)
    {
        writeFile(container, zip.archive());
        unzip();
    }

    /// What it says of an archive that it refuses.
    std::string failure(const ZipBytes& zip)
    {
        try {
            unzip(zip);
        } catch (const std::runtime_error& refusal) {
            return refusal.what();
        }
        return "none";
    }

    Files unpacked() const
    {
        Files files;
        for (const auto& entry : fs::directory_iterator(preview)) {
            EXPECT_TRUE(entry.symlink_status().type() == fs::file_type::regular) << entry.path();
            files[entry.path().filename().string()] = readFile(entry.path());
        }
        return files;
    }

    tests::TemporaryFolder disk{};
    fs::path preview = disk.path() / "Preview";
    fs::path container = disk.path() / "container.asf";
};

TEST_F(LibzipReaderTest, UnpacksWhatTheWriterPacked)
{
    tests::TemporaryFolder source;
    LibzipWriter writer;
    const Files packed{
        {"version.txt", std::string(5000, 'v')}, {"Slide1.PNG", "picture"}, {"a.wmv", "video"}, {"e", ""}};
    for (const auto& [name, contents] : packed) {
        writeFile(source.path() / name, contents);
        writer.AddFileToZip(source.path() / name);
    }
    writer.setDestinationZipFile(container);
    writer.Zip();
    unzip();
    EXPECT_EQ(unpacked(), packed);
}

TEST_F(LibzipReaderTest, UnpacksAnArchiveOfOtherCode)
{
    tests::TemporaryFolder source;
    writeFile(source.path() / "talk.wmv", std::string(100'000, 'w'));
    ASSERT_EQ(tests::runToEnd({"/usr/bin/python3", "-c",
                               "import sys, zipfile\n"
                               "with zipfile.ZipFile(sys.argv[1], 'w', zipfile.ZIP_DEFLATED) as z:\n"
                               "    z.write(sys.argv[2], 'talk.wmv')\n",
                               container.string(), (source.path() / "talk.wmv").string()}),
              0);
    unzip();
    EXPECT_EQ(unpacked(), (Files{{"talk.wmv", std::string(100'000, 'w')}}));
}

TEST_F(LibzipReaderTest, MakesTheFolderWhereItHasGone)
{
    fs::remove(preview);
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = "video"});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "video"}}));
}

TEST_F(LibzipReaderTest, LeavesEveryNameThatLeadsElsewhereInTheArchive)
{
    ZipBytes zip;
    for (const auto* name :
         {"../up.wmv", "../../up.wmv", "/tmp/quillora_absolute.wmv", "folder/in.wmv", "folder/", "..\\up.wmv",
          "C:\\up.wmv", "..", ".", "", "a\nb", "\x81/up.wmv", "..\\\x81.wmv", "\x81\x01.wmv"})
        zip.add({.name = name, .contents = "hostile"});
    zip.add({.name = "a.wmv", .contents = "video"});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "video"}}));
    EXPECT_FALSE(fs::exists("/tmp/quillora_absolute.wmv"));
}

/// As programs packed it that wrote names in the code page of the machine, and as those that write UTF-8 but
/// don't say so.
TEST_F(LibzipReaderTest, GivesNamesInUtf8WhateverTheyWerePackedWith)
{
    constexpr std::uint16_t kSaysUtf8 = 1U << 11U;
    ZipBytes zip;
    zip.add({.name = "vorf\x81hrung.wmv", .contents = "code page 437"});
    zip.add({.name = "le\xC3\xA7on.wmv", .contents = "silent"});
    zip.add({.name = "\xD0\xB4.wmv", .contents = "said", .flags = kSaysUtf8});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"vorf\xC3\xBChrung.wmv", "code page 437"},
                                 {"le\xC3\xA7on.wmv", "silent"},
                                 {"\xD0\xB4.wmv", "said"}}));
}

TEST_F(LibzipReaderTest, LeavesANameThatGrowsLongerThanAnyFilesNameInTheArchive)
{
    ZipBytes zip;
    zip.add({.name = std::string(200, '\x81'), .contents = "video"});
    unzip(zip);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, LeavesLinksFoldersAndPipesInTheArchive)
{
    ZipBytes zip;
    zip.add({.name = "link.wmv", .contents = "/etc/passwd", .mode = kLink});
    zip.add({.name = "folder", .contents = "", .mode = kFolder});
    zip.add({.name = "pipe.wmv", .contents = "", .mode = kPipe});
    zip.add({.name = "plain.wmv", .contents = "video", .mode = kPlainFile});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"plain.wmv", "video"}}));
}

TEST_F(LibzipReaderTest, TakesTheFirstOfEntriesWithOneName)
{
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = "first"});
    zip.add({.name = "a.wmv", .contents = "second"});
    zip.add({.name = "A.WMV", .contents = "third"});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "first"}}));
}

TEST_F(LibzipReaderTest, UnpacksTwoVideosAndNone)
{
    ZipBytes two;
    two.add({.name = "b.wmv", .contents = "b"});
    two.add({.name = "a.wmv", .contents = "a"});
    unzip(two);
    EXPECT_EQ(unpacked().size(), 2U);
    fs::remove_all(preview);
    ZipBytes none;
    none.add({.name = "slide1.jpg", .contents = "picture"});
    unzip(none);
    EXPECT_EQ(unpacked(), (Files{{"slide1.jpg", "picture"}}));
}

TEST_F(LibzipReaderTest, WritesOverNothingAndThroughNoLink)
{
    tests::TemporaryFolder outside;
    writeFile(outside.path() / "precious", "precious");
    fs::create_symlink(outside.path() / "precious", preview / "a.wmv");
    fs::create_symlink(outside.path() / "new", preview / "b.wmv");
    writeFile(preview / "c.wmv", "held by the player");
    ZipBytes zip;
    for (const auto* name : {"a.wmv", "b.wmv", "c.wmv", "d.wmv"})
        zip.add({.name = name, .contents = "video"});
    EXPECT_THROW(unzip(zip), std::runtime_error);
    EXPECT_EQ(readFile(outside.path() / "precious"), "precious");
    EXPECT_FALSE(fs::exists(outside.path() / "new"));
    EXPECT_EQ(readFile(preview / "c.wmv"), "held by the player");
    EXPECT_EQ(readFile(preview / "d.wmv"), "video");
}

TEST_F(LibzipReaderTest, RefusesMoreEntriesThanAnyLectureHas)
{
    ZipBytes zip;
    for (int i = 0; i < 100'000; ++i)
        zip.add({.name = std::to_string(i)});
    EXPECT_THROW(unzip(zip), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, TakesAsManyEntriesAsALectureMayHave)
{
    ZipBytes zip;
    for (int i = 0; i < LibzipReader::kMostEntries; ++i)
        zip.add({.name = "a.wmv", .contents = "video"});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "video"}}));
    fs::remove(preview / "a.wmv");
    zip.add({.name = "a.wmv", .contents = "video"});
    EXPECT_THROW(unzip(zip), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, LeavesRoomOnTheDiskForARecordingInAPause)
{
    constexpr std::uintmax_t kMebibyte = 1024 * 1024;
    const tests::SmallDisk small(preview, 258 * kMebibyte);
    if (!small.mounted())
        GTEST_SKIP() << "mounting a small disk needs root";
    ZipBytes large;
    large.add({.name = "a.wmv", .contents = std::string(3 * kMebibyte, 'a')});
    EXPECT_THROW(unzip(large), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
    ZipBytes fitting;
    fitting.add({.name = "a.wmv", .contents = std::string(kMebibyte, 'a')});
    unzip(fitting);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", std::string(kMebibyte, 'a')}}));
}

TEST_F(LibzipReaderTest, RefusesASmallArchiveThatDeclaresMuch)
{
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = "tiny", .declaredSize = 0xFFFF0000});
    EXPECT_THROW(unzip(zip), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, RefusesSizesWhoseSumGoesRoundToASmallOne)
{
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63U;
    for (const auto& [size, count] : {std::pair{kHalf, 2}, std::pair{kHalf / 2, 4}}) {
        ZipBytes zip;
        for (int i = 0; i < count; ++i)
            zip.add({.name = std::to_string(i), .contents = "tiny", .declaredSize = size});
        EXPECT_EQ(failure(zip), "the archive declares more than there is") << count;
        EXPECT_TRUE(unpacked().empty());
    }
}

TEST_F(LibzipReaderTest, RefusesABomb)
{
    ASSERT_EQ(tests::runToEnd({"/usr/bin/python3", "-c",
                               "import sys, zipfile\n"
                               "with zipfile.ZipFile(sys.argv[1], 'w', zipfile.ZIP_DEFLATED) as z:\n"
                               "    z.writestr('a.wmv', bytes(64 << 20))\n",
                               container.string()}),
              0);
    EXPECT_LT(fs::file_size(container), 100'000U);
    EXPECT_THROW(unzip(), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, StopsAtAnEntryThatIsLargerThanItDeclares)
{
    ASSERT_EQ(tests::runToEnd({"/usr/bin/python3", "-c",
                               "import struct, sys, zipfile\n"
                               "name = sys.argv[1]\n"
                               "with zipfile.ZipFile(name, 'w', zipfile.ZIP_DEFLATED) as z:\n"
                               "    z.writestr('a.wmv', bytes(64 << 20))\n"
                               "data = open(name, 'rb').read().replace(struct.pack('<I', 64 << 20),"
                               " struct.pack('<I', 1000))\n"
                               "open(name, 'wb').write(data)\n",
                               container.string()}),
              0);
    EXPECT_THROW(unzip(), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, LeavesAnEntryThatIsSmallerThanItDeclares)
{
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = "four", .declaredSize = 4000});
    zip.add({.name = "b.wmv", .contents = "video"});
    EXPECT_THROW(unzip(zip), std::runtime_error);
    EXPECT_FALSE(unpacked().contains("a.wmv"));
}

TEST_F(LibzipReaderTest, UnpacksTheRestWhereAnEntryIsDamaged)
{
    ZipBytes zip;
    zip.add({.name = "slide1.jpg", .contents = "picture"});
    zip.add({.name = "a.wmv", .contents = "video"});
    auto bytes = zip.archive();
    bytes[bytes.find("picture")] = 'P';
    writeFile(container, bytes);
    EXPECT_THROW(unzip(), std::runtime_error);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "video"}}));
}

TEST_F(LibzipReaderTest, LeavesWhatIsEncryptedOrPackedByRareMethods)
{
    ZipBytes zip;
    zip.add({.name = "secret.wmv", .contents = "video", .flags = 1});
    zip.add({.name = "rare.wmv", .contents = "video", .method = 12});
    zip.add({.name = "rarer.wmv", .contents = "video", .method = 14});
    zip.add({.name = "a.wmv", .contents = "video"});
    unzip(zip);
    EXPECT_EQ(unpacked(), (Files{{"a.wmv", "video"}}));
}

TEST_F(LibzipReaderTest, SurvivesAnArchiveCutAtEveryByteOfItsDirectory)
{
    ZipBytes zip;
    for (const auto* name : {"version.txt", "slide1.jpg", "a.wmv"})
        zip.add({.name = name, .contents = std::string("contents of ") + name, .mode = kPlainFile});
    const auto whole = zip.archive();
    for (std::size_t length = zip.directoryOffset(); length < whole.size(); ++length) {
        writeFile(container, whole.substr(0, length));
        EXPECT_THROW(unzip(), std::runtime_error) << length;
        EXPECT_TRUE(unpacked().empty()) << length;
    }
    writeFile(container, whole);
    unzip();
    EXPECT_EQ(unpacked().size(), 3U);
}

TEST_F(LibzipReaderTest, SurvivesEveryByteOfTheDirectoryWrong)
{
    ZipBytes zip;
    for (const auto* name : {"version.txt", "a.wmv"})
        zip.add({.name = name, .contents = std::string("contents of ") + name, .mode = kPlainFile});
    const auto whole = zip.archive();
    for (std::size_t at = zip.directoryOffset(); at < whole.size(); ++at) {
        auto wrong = whole;
        wrong[at] = char(~wrong[at]);
        writeFile(container, wrong);
        try {
            unzip();
        } catch (const std::runtime_error&) {
        }
        for (const auto& [name, contents] : unpacked())
            EXPECT_LE(contents.size(), 100U) << at;
        fs::remove_all(preview);
        fs::create_directories(preview);
    }
}

TEST_F(LibzipReaderTest, SaysThatItCannotReadWhatIsNoArchive)
{
    for (const std::string contents : {"", "text", "PK\x03\x04", "PK\x05\x06"}) {
        writeFile(container, contents);
        EXPECT_THROW(unzip(), std::runtime_error) << contents;
    }
    fs::remove(container);
    EXPECT_THROW(unzip(), std::runtime_error);
    fs::create_directory(container);
    EXPECT_THROW(unzip(), std::runtime_error);
    fs::remove(container);
    ASSERT_EQ(::mkfifo(container.c_str(), 0600), 0);
    EXPECT_THROW(unzip(), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

TEST_F(LibzipReaderTest, LeavesNoPartOfAFileForWhichTheDiskHasNoRoom)
{
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = std::string(300'000, 'a')});
    zip.add({.name = "b.wmv", .contents = "video"});
    writeFile(container, zip.archive());
    {
        const tests::FileSizeLimit limit(100'000);
        EXPECT_THROW(unzip(), std::runtime_error);
    }
    EXPECT_EQ(unpacked(), (Files{{"b.wmv", "video"}}));
}

TEST_F(LibzipReaderTest, UnpacksNothingThatWasNotAskedFor)
{
    ZipBytes zip;
    zip.add({.name = "a.wmv", .contents = "video"});
    writeFile(container, zip.archive());
    LibzipReader reader;
    reader.setZipFileName(container);
    reader.setExtractDir(preview);
    reader.setExtractList(1);
    EXPECT_THROW(reader.Unzip(), std::runtime_error);
    EXPECT_TRUE(unpacked().empty());
}

} // namespace
} // namespace quillora::session
