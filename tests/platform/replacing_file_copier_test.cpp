#include "session/platform/posix/replacing_file_copier.h"

#include "tests/support/file_contents.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace quillora::tests;
using quillora::session::ReplacingFileCopier;
namespace fs = std::filesystem;

namespace {

class ReplacingFileCopierTest : public testing::Test {
  protected:
    ReplacingFileCopierTest()
    {
        fs::create_directory(destination);
        writeFile(source, "the lecture");
    }

    std::ptrdiff_t filesAtDestination() const
    {
        return std::distance(fs::directory_iterator(destination), fs::directory_iterator());
    }

    TemporaryFolder folder;
    fs::path source = folder.path() / "MyZip.zip";
    fs::path destination = folder.path() / "saved";
    ReplacingFileCopier copier;
};

} // namespace

TEST_F(ReplacingFileCopierTest, WritesTheCopyAndNothingElse)
{
    copier.copyOver(source, destination / "lecture.asf");
    EXPECT_EQ(readFile(destination / "lecture.asf"), "the lecture");
    EXPECT_EQ(filesAtDestination(), 1);
}

TEST_F(ReplacingFileCopierTest, GivesANewFileTheRightsOfAnyNewFile)
{
    const auto mask = ::umask(022);
    copier.copyOver(source, destination / "lecture.asf");
    ::umask(mask);
    EXPECT_EQ(fs::status(destination / "lecture.asf").permissions(), fs::perms(0644));
}

TEST_F(ReplacingFileCopierTest, ReplacesAFileAndKeepsItsRights)
{
    writeFile(destination / "lecture.asf", "last week's");
    fs::permissions(destination / "lecture.asf", fs::perms(0600));
    copier.copyOver(source, destination / "lecture.asf");
    EXPECT_EQ(readFile(destination / "lecture.asf"), "the lecture");
    EXPECT_EQ(fs::status(destination / "lecture.asf").permissions(), fs::perms(0600));
}

TEST_F(ReplacingFileCopierTest, WritesThroughALinkToTheFileBehindIt)
{
    writeFile(folder.path() / "elsewhere.asf", "last week's");
    fs::create_symlink(folder.path() / "elsewhere.asf", destination / "lecture.asf");
    copier.copyOver(source, destination / "lecture.asf");
    EXPECT_TRUE(fs::is_symlink(destination / "lecture.asf"));
    EXPECT_EQ(readFile(folder.path() / "elsewhere.asf"), "the lecture");
}

TEST_F(ReplacingFileCopierTest, TakesANameAsLongAsTheFileSystemAllows)
{
    const std::string name(251, 'n');
    copier.copyOver(source, destination / (name + ".asf"));
    EXPECT_EQ(readFile(destination / (name + ".asf")), "the lecture");
}

TEST_F(ReplacingFileCopierTest, LeavesTheFileThatWasThereWhenTheDiskIsFull)
{
    writeFile(destination / "lecture.asf", "last week's");
    writeFile(source, std::string(100000, 'x'));
    {
        const FileSizeLimit limit(50000);
        EXPECT_THROW(copier.copyOver(source, destination / "lecture.asf"), std::runtime_error);
    }
    EXPECT_EQ(readFile(destination / "lecture.asf"), "last week's");
    EXPECT_EQ(filesAtDestination(), 1);
}

TEST_F(ReplacingFileCopierTest, LeavesTheFileThatWasThereWhenTheSourceIsMissing)
{
    writeFile(destination / "lecture.asf", "last week's");
    EXPECT_THROW(copier.copyOver(folder.path() / "no such file", destination / "lecture.asf"),
                 std::runtime_error);
    EXPECT_EQ(readFile(destination / "lecture.asf"), "last week's");
    EXPECT_EQ(filesAtDestination(), 1);
}

TEST_F(ReplacingFileCopierTest, RefusesAFolderOfThatName)
{
    fs::create_directory(destination / "lecture.asf");
    EXPECT_THROW(copier.copyOver(source, destination / "lecture.asf"), std::runtime_error);
    EXPECT_TRUE(fs::is_directory(destination / "lecture.asf"));
    EXPECT_EQ(filesAtDestination(), 1);
}

TEST_F(ReplacingFileCopierTest, RefusesAFolderThatIsNotThere)
{
    EXPECT_THROW(copier.copyOver(source, destination / "gone" / "lecture.asf"), std::runtime_error);
}
