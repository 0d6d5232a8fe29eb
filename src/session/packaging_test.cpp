#include "session/packaging.h"

#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_file_copier.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_sleeper.h"
#include "tests/support/fake_zip_writer.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillora::session {
namespace {

class PackagingTest : public testing::Test {
  protected:
    tests::TemporaryFolder disk{};
    tests::CallLog log{};
    tests::FakeZipWriterFactory zip{log};
    tests::FakeSleeper sleeper{log};
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    tests::FakeFileCopier copier{};
    SessionFields fields{};
    Workspace workspace{fields, {.appData = disk.path(), .localAppData = disk.path()}};
    Packaging packaging{{fields, workspace, zip, sleeper, dialog, boxes, copier}};

    PackagingTest()
    {
        workspace.makeFolders();
        for (const auto* name : {"version.txt", "Slide1.PNG", "slidetime.xml", "abcdefgh.wmv"})
            make(name);
        fields.TempVidFile_txt = (workspace.root() / "abcdefgh.wmv").string();
    }

    void make(const std::string& name) { tests::writeFile(workspace.root() / name, name); }
};

using Names = std::vector<std::string>;

TEST_F(PackagingTest, AddsTheEntriesInTheirOrder)
{
    for (const auto* name : {"slide2.jpg", "slide1.jpg", "Slide2.PNG", "notes.txt"})
        make(name);
    dialog.willChoose(disk.path() / "a.asf");
    packaging.ZipAsf();
    EXPECT_EQ(zip.entries, (Names{"version.txt", "Slide1.PNG", "slide1.jpg", "slide2.jpg", "slidetime.xml",
                                  "abcdefgh.wmv"}));
}

TEST_F(PackagingTest, WaitsHalfASecondAfterTheFirstTwoEntries)
{
    dialog.willChoose(disk.path() / "a.asf");
    packaging.ZipAsf();
    EXPECT_EQ(log.calls[1], "zip.Add Slide1.PNG");
    EXPECT_EQ(log.calls[2], "Sleep 500");
}

TEST_F(PackagingTest, FindsTheFirstSlideWhateverItsCase)
{
    std::filesystem::rename(workspace.root() / "Slide1.PNG", workspace.root() / "slide1.png");
    dialog.willChoose(disk.path() / "a.asf");
    packaging.ZipAsf();
    EXPECT_EQ(zip.entries[1], "slide1.png");
}

TEST_F(PackagingTest, LeavesThePathWithASeparatorAtItsEnd)
{
    dialog.willChoose(disk.path() / "a.asf");
    packaging.ZipAsf();
    EXPECT_EQ(fields.workspacePath, workspace.root().string() + "/");
}

TEST_F(PackagingTest, WithoutTheVersionFile_EndsBeforeTheDialog)
{
    std::filesystem::remove(workspace.root() / "version.txt");
    EXPECT_THROW(packaging.ZipAsf(), std::runtime_error);
    EXPECT_EQ(log.count("ShowSave"), 0);
}

TEST_F(PackagingTest, WithoutAZipComponent_EndsBeforeTheDialog)
{
    zip.failing.names = {"create"};
    EXPECT_THROW(packaging.ZipAsf(), std::runtime_error);
    EXPECT_EQ(log.count("ShowSave"), 0);
}

TEST_F(PackagingTest, WithADestinationThatCannotBeWritten_DoesNotCongratulate)
{
    copier.failing.names = {"copyOver"};
    dialog.willChoose(disk.path() / "a.asf");
    EXPECT_THROW(packaging.ZipAsf(), std::runtime_error);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(fields.asf_name_lb, "no_video");
}

TEST_F(PackagingTest, ByTheSecondFilter_CopiesTheTemporaryVideo)
{
    dialog.willChoose(disk.path() / "a.wmv", 2);
    packaging.ZipAsf();
    EXPECT_EQ(copier.lastFrom, fields.TempVidFile_txt);
    EXPECT_TRUE(std::filesystem::exists(disk.path() / "a.wmv"));
}

TEST_F(PackagingTest, ByTheFirstFilter_CopiesTheContainerByADoubledSeparator)
{
    dialog.willChoose(disk.path() / "a.asf");
    packaging.ZipAsf();
    EXPECT_EQ(copier.lastFrom.string(), workspace.root().string() + "//MyZip.zip");
}

TEST_F(PackagingTest, TheNameOfAVideoChosenByTheFirstFilter_BecomesThatOfAContainer)
{
    dialog.willChoose(disk.path() / "talk.wmv", 1);
    packaging.ZipAsf();
    EXPECT_TRUE(std::filesystem::exists(disk.path() / "talk.asf"));
}

TEST(WithoutLastFour, DropsThemWhateverTheyAre)
{
    EXPECT_EQ(withoutLastFour("lecture.asf"), "lecture");
    EXPECT_EQ(withoutLastFour("lecture7"), "lect");
    EXPECT_EQ(withoutLastFour("a.b.jpeg"), "a.b.");
}

TEST(WithoutLastFour, CountsCharactersOfSeveralBytesOnce)
{
    EXPECT_EQ(withoutLastFour("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(withoutLastFour("x\xF0\x9F\x8E\x93.asf"), "x\xF0\x9F\x8E\x93");
}

TEST(WithoutLastFour, LeavesNothingOfAShorterName)
{
    EXPECT_EQ(withoutLastFour(""), "");
    EXPECT_EQ(withoutLastFour("abc"), "");
    EXPECT_EQ(withoutLastFour(".asf"), "");
}

} // namespace
} // namespace quillora::session
