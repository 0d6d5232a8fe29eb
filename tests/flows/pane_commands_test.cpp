// What the task pane's keys do to a lecture that is running, also those that no item of the pane has yet.

#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Calls = std::vector<std::string>;

class PaneCommands : public LectureWorld {
  protected:
    void choose(std::string_view key) { commands.ebDemo_ItemClick(key); }
};

TEST_F(PaneCommands, Rotate0WhileRecording_StartsTheEngineOnceMoreAndTakesTheTimeSinceThePauseOff)
{
    openDeck();
    startRecording();
    secondsPass(10);
    press("pause");
    secondsPass(5);
    press("resume");
    secondsPass(10);
    ASSERT_EQ(window.panels[4], "00:00:20");
    log.clear();
    choose("rotate0");
    EXPECT_EQ(log.count("engine.Start"), 1);
    EXPECT_EQ(log.count("engine.Pause"), 0);
    EXPECT_EQ(fields.recordState, "record");
    secondsPass(5);
    // 30 s since the start, less the pause of 5 s, less the 15 s since that pause began.
    EXPECT_EQ(window.panels[4], "00:00:10");
}

TEST_F(PaneCommands, Rotate2WhileRecording_TakesNoTimeOff)
{
    openDeck();
    startRecording();
    secondsPass(10);
    log.clear();
    choose("rotate2");
    EXPECT_EQ(log.startingWith("engine."), (Calls{"engine.Pause", "engine.Start"}));
    secondsPass(5);
    EXPECT_EQ(window.panels[4], "00:00:15");
}

TEST_F(PaneCommands, Startrec_RecordsWithoutADeckAndWithoutACountdown)
{
    ASSERT_EQ(fields.ppt_txt, "no");
    fields.Text2 = "P";
    log.clear();
    choose("startrec");
    EXPECT_EQ(log.count("engine.Start"), 1);
    EXPECT_EQ(log.count("countDown_tmr2.enable"), 0);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[1], "Recording ...");
    EXPECT_EQ(fields.Text2, "R");
    secondsPass(3);
    EXPECT_EQ(window.panels[4], "00:00:03");
}

TEST_F(PaneCommands, Stop_PacksTheLectureWithoutItsIndex)
{
    openDeck();
    // From an earlier lecture: what writes it is the toolbar's stop.
    writeFile(root / "version.txt", "Version 3.13.0\r\n");
    startRecording();
    turn("next");
    CommonDialog1.willChoose(documents / "lecture.asf");
    log.clear();
    choose("stop");
    EXPECT_EQ(log.count("engine.Stop"), 1);
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_FALSE(std::filesystem::exists(root / "slidetime.xml"));
    EXPECT_EQ(zip.entries.size(), 6U) << "the version, a PNG, three JPEG, the video";
    EXPECT_EQ(fields.asf_name_lb, (documents / "lecture.asf").string());
}

TEST_F(PaneCommands, Stop_OfAFirstLecturePacksNothing)
{
    openDeck();
    startRecording();
    choose("stop");
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_EQ(log.count("ShowSave"), 0) << "there is no version file yet to be packed";
    EXPECT_FALSE(std::filesystem::exists(root / "MyZip.zip"));
}

} // namespace
} // namespace quillora::tests
