#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

class Saving : public LectureWorld {
  protected:
    Saving()
    {
        openDeck(1);
        startRecording();
    }
};

TEST_F(Saving, AsksAgainAsOftenAsItIsCancelled)
{
    CommonDialog1.willBeCancelled();
    CommonDialog1.willBeCancelled();
    stopAndSave();
    ASSERT_EQ(boxes.shown.size(), 3U);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(boxes.shown[i].text,
                  "Video presentation is not saved: You must save your video presentation before exit!");
        EXPECT_EQ(boxes.shown[i].title, "");
        EXPECT_EQ(boxes.shown[i].icon, base::BoxIcon::none);
        EXPECT_EQ(boxes.shown[i].buttons, base::BoxButtons::ok);
    }
    EXPECT_EQ(log.count("ShowSave"), 3);
}

TEST_F(Saving, ShowsTheSameDialogEachTime)
{
    CommonDialog1.willBeCancelled();
    stopAndSave();
    for (std::size_t i = CommonDialog1.shown.size() - 2; i < CommonDialog1.shown.size(); ++i) {
        EXPECT_EQ(CommonDialog1.shown[i].FileName, "");
        EXPECT_EQ(CommonDialog1.shown[i].DialogTitle, "Save Video Presentation As");
        EXPECT_EQ(CommonDialog1.shown[i].Filter,
                  "Advanced Systems Format (*.asf)|*.asf|Windows Media Video (*.wmv)|*.wmv");
    }
}

TEST_F(Saving, ProposesTheContainerWhateverKindOfDeckWasOpened)
{
    CommonDialog1.FilterIndex = 2;
    stopAndSave();
    EXPECT_EQ(CommonDialog1.shown.back().FilterIndex, 1);
}

TEST_F(Saving, ByTheFirstFilter_KeepsTheContainer)
{
    stopAndSave("lecture.asf", 1);
    EXPECT_EQ(namesIn(documents), std::vector<std::string>{"lecture.asf"});
    EXPECT_EQ(readFile(documents / "lecture.asf"), readFile(root / "MyZip.zip"));
    EXPECT_EQ(fields.asf_name_lb, (documents / "lecture.asf").string());
}

TEST_F(Saving, ByTheSecondFilter_KeepsThePlainVideo)
{
    stopAndSave("lecture.asf", 2);
    EXPECT_EQ(namesIn(documents), std::vector<std::string>{"lecture.wmv"});
    EXPECT_EQ(readFile(documents / "lecture.wmv"), "video 1");
    EXPECT_EQ(fields.asf_name_lb, "no_video");
}

TEST_F(Saving, UnderANameWithoutExtension_LosesFourCharactersOfIt)
{
    stopAndSave("lecture7");
    EXPECT_EQ(namesIn(documents), std::vector<std::string>{"lect.asf"});
}

TEST_F(Saving, LosesCharactersAndNotBytes)
{
    stopAndSave("Vorlesung \xC3\x84\xC3\x96\xC3\x9C\xE2\x82\xAC");
    EXPECT_EQ(namesIn(documents), std::vector<std::string>{"Vorlesung .asf"});
}

TEST_F(Saving, OverwritesWithoutAQuestion)
{
    writeFile(documents / "lecture.asf", "the old one");
    stopAndSave("lecture.asf");
    EXPECT_EQ(readFile(documents / "lecture.asf"), readFile(root / "MyZip.zip"));
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(Saving, Congratulates)
{
    stopAndSave();
    EXPECT_EQ(boxes.shown.back().text,
              "Congratulations!\r\rYour video presentation has been saved successfully!");
    EXPECT_EQ(boxes.shown.back().title, "");
    EXPECT_EQ(boxes.shown.back().buttons, base::BoxButtons::ok);
}

TEST_F(Saving, RunsWithTheStateStopAndTheStatusReady)
{
    stopAndSave();
    const auto ready = std::ranges::find(log.calls, "panel1 Ready...");
    const auto packed = std::ranges::find(log.calls, "zip.Zip MyZip.zip");
    EXPECT_LT(ready, packed);
    EXPECT_NE(packed, log.calls.end());
}

TEST_F(Saving, LeavesVideoAndContainerInTheWorkspace)
{
    stopAndSave();
    EXPECT_TRUE(std::filesystem::exists(fields.TempVidFile_txt));
    EXPECT_TRUE(std::filesystem::exists(root / "MyZip.zip"));
}

TEST_F(Saving, LeavesThemUntilTheNextRecording)
{
    stopAndSave();
    const auto video = fields.TempVidFile_txt;
    press("record");
    EXPECT_FALSE(std::filesystem::exists(video));
    EXPECT_FALSE(std::filesystem::exists(root / "MyZip.zip"));
}

TEST_F(Saving, LeavesThemUntilTheNextDeck)
{
    stopAndSave();
    openDeck(1);
    EXPECT_FALSE(std::filesystem::exists(fields.TempVidFile_txt));
    EXPECT_FALSE(std::filesystem::exists(root / "MyZip.zip"));
}

TEST_F(Saving, KeepsWhatTheDialogHolds_ForTheReview)
{
    stopAndSave("lecture.asf");
    EXPECT_EQ(CommonDialog1.FileName, (documents / "lecture.asf").string());
}

TEST_F(Saving, IsForgottenByTheNextRecordAndByTheNextDeck)
{
    stopAndSave();
    press("record");
    EXPECT_EQ(fields.asf_name_lb, "no_video");
    secondsPass(5);
    stopAndSave();
    EXPECT_NE(fields.asf_name_lb, "no_video");
    openDeck();
    EXPECT_EQ(fields.asf_name_lb, "no_video");
}

} // namespace
} // namespace quillora::tests
