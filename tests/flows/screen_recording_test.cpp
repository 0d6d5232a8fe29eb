#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Calls = std::vector<std::string>;

class ScreenRecordingFlow : public LectureWorld {
  protected:
    void recordOnTheStage()
    {
        openDeck();
        startRecording();
        secondsPass(10);
        log.clear();
    }
    void leaveTheStage()
    {
        press("desktop");
        screenRecording.Command1_Click();
    }
};

TEST_F(ScreenRecordingFlow, LeavesTheStageInThisOrder)
{
    recordOnTheStage();
    press("desktop");
    EXPECT_EQ(log.calls, (Calls{"engine.Pause", "Timer2.disable", "processPendingEvents", "Vantry_frm hidden",
                                "FullScreen_frm shown"}));
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(fields.Text2, "P");
    EXPECT_FALSE(Timer2.enabled);
}

TEST_F(ScreenRecordingFlow, StartsOnTheWholeScreenInThisOrder)
{
    recordOnTheStage();
    press("desktop");
    log.clear();
    screenRecording.Command1_Click();
    EXPECT_EQ(log.calls, (Calls{"ActivateHotKey", "FullScreen_frm hidden", "engine.CaptureMode 3",
                                "Timer2.enable", "engine.Start"}));
    EXPECT_FALSE(window.formVisible);
    EXPECT_TRUE(Timer2.enabled);
    EXPECT_EQ(fields.recordState, "record");
}

TEST_F(ScreenRecordingFlow, StartsAroundTheMouseWhereThatIsChosen)
{
    recordOnTheStage();
    FullScreen_frm.aroundMouse = true;
    leaveTheStage();
    EXPECT_EQ(log.count("engine.CaptureMode 2"), 1);
    EXPECT_EQ(log.count("engine.CaptureMode 3"), 0);
}

TEST_F(ScreenRecordingFlow, Cancelled_GoesOnOnTheStageInThisOrder)
{
    recordOnTheStage();
    press("desktop");
    log.clear();
    screenRecording.Command2_Click();
    EXPECT_EQ(log.calls, (Calls{"FullScreen_frm hidden", "engine.CaptureMode 0", "Vantry_frm shown",
                                "Timer2.enable", "engine.Start"}));
    EXPECT_TRUE(window.formVisible);
    EXPECT_FALSE(FullScreen_frm.visible);
}

TEST_F(ScreenRecordingFlow, ReturnsToTheStageInThisOrder)
{
    recordOnTheStage();
    leaveTheStage();
    log.clear();
    screenRecording.ReturnWindow();
    EXPECT_EQ(log.calls, (Calls{"engine.Pause", "Vantry_frm shown", "processPendingEvents",
                                "engine.CaptureMode 0", "engine.Top 90", "engine.Left 264",
                                "engine.Width 747", "engine.Height 420", "engine.Start"}));
    EXPECT_TRUE(window.formVisible);
    EXPECT_TRUE(Timer2.enabled);
}

TEST_F(ScreenRecordingFlow, ReadsThePlaceOfTheStageAnewAtEachReturn)
{
    recordOnTheStage();
    leaveTheStage();
    window.stage = {.left = 5, .top = 6, .width = 1494, .height = 840};
    screenRecording.ReturnWindow();
    EXPECT_EQ(log.count("engine.Left 5"), 1);
    EXPECT_EQ(log.count("engine.Height 840"), 1);
    leaveTheStage();
    window.stage.left = 77;
    screenRecording.ReturnWindow();
    EXPECT_EQ(log.count("engine.Left 77"), 1);
}

TEST_F(ScreenRecordingFlow, NeverChangesTheSizeOfTheVideoFrame)
{
    recordOnTheStage();
    leaveTheStage();
    screenRecording.ReturnWindow();
    EXPECT_TRUE(log.startingWith("engine.Output").empty());
    EXPECT_EQ(engines.recordings, 1);
}

TEST_F(ScreenRecordingFlow, DoesNotCountTheTimeInTheDialog)
{
    recordOnTheStage();
    press("desktop");
    secondsPass(60);
    screenRecording.Command1_Click();
    secondsPass(5);
    EXPECT_EQ(fields.runningTime, "00:00:15");
    screenRecording.ReturnWindow();
    secondsPass(5);
    EXPECT_EQ(fields.runningTime, "00:00:20");
}

TEST_F(ScreenRecordingFlow, DoesNotCountTheTimeInADialogThatWasCancelled)
{
    recordOnTheStage();
    press("desktop");
    secondsPass(60);
    screenRecording.Command2_Click();
    secondsPass(5);
    EXPECT_EQ(fields.runningTime, "00:00:15");
}

TEST_F(ScreenRecordingFlow, CountsTheGapOfTheReturn)
{
    recordOnTheStage();
    leaveTheStage();
    window.pendingEvents = [&] { clock.advance(std::chrono::seconds(2)); };
    screenRecording.ReturnWindow();
    window.pendingEvents = [] {};
    secondsPass(1);
    EXPECT_EQ(fields.runningTime, "00:00:13");
}

TEST_F(ScreenRecordingFlow, ShowsTheTimeInTheHiddenStatusBar)
{
    recordOnTheStage();
    leaveTheStage();
    secondsPass(3);
    EXPECT_FALSE(window.formVisible);
    EXPECT_EQ(window.panels[4], "00:00:13");
}

TEST_F(ScreenRecordingFlow, AsksForARecordingWhereThereIsNone)
{
    press("desktop");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, "Please start recording first, before using Screen Recording Mode");
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::information);
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
    EXPECT_EQ(boxes.shown[0].title, "");
    EXPECT_TRUE(window.formVisible);
    EXPECT_FALSE(FullScreen_frm.visible);
    EXPECT_EQ(fields.Text2, "R");
}

TEST_F(ScreenRecordingFlow, TakesAPauseForNoRecording)
{
    recordOnTheStage();
    press("pause");
    log.clear();
    press("desktop");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(log.startingWith("engine.").empty());
    EXPECT_TRUE(window.formVisible);
}

TEST_F(ScreenRecordingFlow, TheHotKey_OutsideARecording_DrivesTheEngineAndChangesNoState)
{
    window.formVisible = false;
    log.clear();
    screenRecording.ReturnWindow();
    EXPECT_EQ(log.startingWith("engine."),
              (Calls{"engine.Pause", "engine.CaptureMode 0", "engine.Top 90", "engine.Left 264",
                     "engine.Width 747", "engine.Height 420", "engine.Start"}));
    EXPECT_TRUE(window.formVisible);
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_EQ(fields.Text2, "R");
    EXPECT_EQ(fields.runningTime, "");
    EXPECT_FALSE(Timer2.enabled);
}

TEST_F(ScreenRecordingFlow, TheHotKey_DuringARecordingOnTheStage_ChangesNoState)
{
    recordOnTheStage();
    screenRecording.ReturnWindow();
    secondsPass(1);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(fields.Text2, "R");
    EXPECT_EQ(fields.runningTime, "00:00:11");
}

TEST_F(ScreenRecordingFlow, TheHotKey_InAPause_StartsTheEngineThough)
{
    recordOnTheStage();
    press("pause");
    log.clear();
    screenRecording.ReturnWindow();
    EXPECT_EQ(log.calls.back(), "engine.Start");
    EXPECT_EQ(fields.recordState, "pause");
    EXPECT_EQ(window.panels[1], "Paused ...");
    EXPECT_FALSE(Timer2.enabled);
}

TEST_F(ScreenRecordingFlow, TheHotKey_WhileTheDialogIsOpen_ShowsTheFormAndLeavesDialogAndClock)
{
    recordOnTheStage();
    press("desktop");
    log.clear();
    screenRecording.ReturnWindow();
    EXPECT_TRUE(window.formVisible);
    EXPECT_TRUE(FullScreen_frm.visible);
    EXPECT_EQ(log.calls.back(), "engine.Start");
    EXPECT_FALSE(Timer2.enabled);

    log.clear();
    screenRecording.Command1_Click();
    EXPECT_FALSE(FullScreen_frm.visible);
    EXPECT_TRUE(Timer2.enabled);
    EXPECT_EQ(log.startingWith("engine."), (Calls{"engine.CaptureMode 3", "engine.Start"}));
}

TEST_F(ScreenRecordingFlow, EndsWhereTheEngineFails)
{
    recordOnTheStage();
    engines.failing.names = {"Pause"};
    press("desktop");
    EXPECT_TRUE(window.formVisible);
    EXPECT_FALSE(FullScreen_frm.visible);
    EXPECT_TRUE(Timer2.enabled);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_THROW(screenRecording.ReturnWindow(), std::exception);
}

TEST_F(ScreenRecordingFlow, IsOneRecordingWithOneIndex)
{
    recordOnTheStage();
    turn("next");
    press("desktop");
    secondsPass(30);
    screenRecording.Command1_Click();
    secondsPass(20);
    screenRecording.ReturnWindow();
    turn("next");
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(entry("2", "00:00:10", "10") + entry("3", "00:00:30", "30")));
    EXPECT_EQ(engines.recordings, 1);
}

} // namespace
} // namespace quillora::tests
