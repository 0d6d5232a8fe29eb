#include "session/slide_time_index.h"

#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillora::session {
namespace {

class SlideTimeIndexTest : public testing::Test {
  protected:
    tests::TemporaryFolder disk{};
    SessionFields fields{};
    Workspace workspace{fields, {.appData = disk.path(), .localAppData = disk.path()}};
    SlideTimeIndex index{fields, workspace};

    void note(const std::string& slide, const std::string& time, const std::string& state = "record")
    {
        fields.recordState = state;
        fields.currentSlide = slide;
        fields.runningTime = time;
        index.updateXMLSlideTime();
    }
};

TEST_F(SlideTimeIndexTest, CountsWhateverTheClockReads)
{
    note("2", "99999999:2147483647:59");
    EXPECT_NE(index.slideEntries().find("<seconds>488849015279</seconds>"), std::string::npos)
        << index.slideEntries();
}

TEST_F(SlideTimeIndexTest, WritesTheWholeFormat)
{
    workspace.makeFolders();
    note("2", "00:01:05");
    note("1", "00:02:00");
    index.XMLSlideFinish();
    EXPECT_EQ(
        tests::readFile(workspace.root() / "slidetime.xml"),
        "<slides>\r\n"
        "<slide currentS=\"1\">\r\n<minutes>00:00:00</minutes>\r\n<seconds>0</seconds>\r\n</slide>\r\n"
        "<slide currentS=\"2\">\r\n<minutes>00:01:05</minutes>\r\n<seconds>65</seconds>\r\n</slide>\r\n"
        "<slide currentS=\"1\">\r\n<minutes>00:02:00</minutes>\r\n<seconds>120</seconds>\r\n</slide>\r\n"
        "</slides>\r\n");
}

TEST_F(SlideTimeIndexTest, WithoutAChange_HasTheFirstEntryAlone)
{
    workspace.makeFolders();
    index.XMLSlideFinish();
    EXPECT_EQ(tests::readFile(workspace.root() / "slidetime.xml"),
              "<slides>\r\n<slide currentS=\"1\">\r\n<minutes>00:00:00</minutes>\r\n<seconds>0</seconds>\r\n"
              "</slide>\r\n</slides>\r\n");
}

TEST_F(SlideTimeIndexTest, NotesAChangeWhileRecordingAndInAPauseOnly)
{
    note("2", "00:00:01", "stop");
    EXPECT_EQ(index.slideEntries(), "");
    note("2", "00:00:01", "resume");
    EXPECT_EQ(index.slideEntries(), "");
    note("2", "00:00:01", "record");
    note("3", "00:00:01", "pause");
    EXPECT_EQ(
        index.slideEntries(),
        "<slide currentS=\"2\">\r\n<minutes>00:00:01</minutes>\r\n<seconds>1</seconds>\r\n</slide>\r\n"
        "<slide currentS=\"3\">\r\n<minutes>00:00:01</minutes>\r\n<seconds>1</seconds>\r\n</slide>\r\n");
}

TEST_F(SlideTimeIndexTest, GivesTheSecondsWithoutLeadingZeros)
{
    note("2", "01:01:01");
    EXPECT_NE(index.slideEntries().find("<seconds>3661</seconds>"), std::string::npos);
    note("2", "00:00:00");
    EXPECT_NE(index.slideEntries().find("<seconds>0</seconds>"), std::string::npos);
}

TEST_F(SlideTimeIndexTest, CannotNoteAChangeBeforeThereIsATime)
{
    EXPECT_THROW(note("2", ""), std::runtime_error);
    EXPECT_THROW(note("2", "00:05"), std::runtime_error);
    EXPECT_EQ(index.slideEntries(), "");
}

TEST_F(SlideTimeIndexTest, ReplacesTheFileOfTheLastStop)
{
    workspace.makeFolders();
    tests::writeFile(workspace.root() / "slidetime.xml", std::string(5000, 'x'));
    index.XMLSlideFinish();
    EXPECT_LT(tests::readFile(workspace.root() / "slidetime.xml").size(), 200U);
}

TEST_F(SlideTimeIndexTest, ReportsAFileThatCannotBeMade)
{
    EXPECT_THROW(index.XMLSlideFinish(), std::runtime_error);
}

} // namespace
} // namespace quillora::session
