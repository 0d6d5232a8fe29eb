#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Options = LectureWorld;
using Calls = std::vector<std::string>;

TEST_F(Options, AreWhatTheNextRecordingIsMadeWith)
{
    CaptureOptions_frm.whileModal = [&] {
        options.txtfps_Change("30");
        options.UpDown2_UpClick();
        options.capturecursor_chk_Click(false);
        options.highlightCursor_chk_Click(true);
        options.Command1_Click();
    };
    press("options");
    openDeck();
    startRecording();
    EXPECT_EQ(log.count("engine.FrameRate 30"), 1);
    EXPECT_EQ(log.count("engine.Bitrate 800000"), 1);
    EXPECT_EQ(log.count("engine.CaptureCursor false"), 1);
    EXPECT_EQ(log.count("engine.HighlightCursor true"), 1);
}

TEST_F(Options, SetToThirtyAndThenCancelledAtTheNextOpening_GiveTwentyFour)
{
    CaptureOptions_frm.whileModal = [&] {
        options.txtfps_Change("30");
        options.Command1_Click();
    };
    press("options");
    CaptureOptions_frm.whileModal = [&] { options.Command2_Click(); };
    press("options");
    openDeck();
    startRecording();
    EXPECT_EQ(log.count("engine.FrameRate 24"), 1);
    EXPECT_EQ(log.count("engine.FrameRate 30"), 0);
}

TEST_F(Options, AreLoadedByTheFirstRecordingWhereNobodyOpenedThem)
{
    openDeck();
    startRecording();
    const auto lists = log.startingWith("list ");
    EXPECT_EQ(lists.front(), "list VideoCodecCount");
    EXPECT_EQ(log.count("list VideoCodecCount"), 1);
    EXPECT_LT(std::ranges::find(log.calls, lists.back()),
              std::ranges::find(log.calls, "engine.CaptureCursor true"));
    stopAndSave();
    startRecording();
    EXPECT_EQ(log.count("list VideoCodecCount"), 1);
}

TEST_F(Options, DoNothingDuringARecordingAndOpenDuringAPause)
{
    openDeck();
    startRecording();
    press("options");
    EXPECT_EQ(log.count("CaptureOptions_frm modal"), 0);
    press("pause");
    press("options");
    EXPECT_EQ(log.count("CaptureOptions_frm modal"), 1);
}

TEST_F(Options, CancelledInAPause_LeaveTheRecordingAsItIs)
{
    openDeck();
    startRecording();
    secondsPass(5);
    press("pause");
    CaptureOptions_frm.whileModal = [&] { options.Command2_Click(); };
    press("options");
    press("resume");
    secondsPass(2);
    EXPECT_EQ(engines.recordings, 1);
    EXPECT_EQ(fields.runningTime, "00:00:07");
}

TEST_F(Options, OfTheTaskPane_StandBesideAFormThatDoesNotAnswer)
{
    commands.ebDemo_ItemClick("options");
    EXPECT_TRUE(CaptureOptions_frm.visible);
    EXPECT_TRUE(CaptureOptions_frm.topMost);
    EXPECT_FALSE(window.formEnabled);
    options.Command2_Click();
    EXPECT_TRUE(window.formEnabled);
}

TEST_F(Options, OfANumberThatIsNone_GiveTheEngineZero)
{
    options.txtfps_Change("as fast as it goes");
    openDeck();
    startRecording();
    EXPECT_EQ(log.count("engine.FrameRate 0"), 1);
}

} // namespace
} // namespace quillora::tests
