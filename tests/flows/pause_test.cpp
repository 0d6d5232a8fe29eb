#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Pause = LectureWorld;
using Calls = std::vector<std::string>;

TEST_F(Pause, StopsTheClockAndTheEngineInThisOrder)
{
    openDeck();
    startRecording();
    log.clear();
    press("pause");
    EXPECT_EQ(log.calls, (Calls{"SetTopMost false", "panel1 Paused ...", "engine.Pause", "Timer2.disable",
                                "setButtonVisible", "setButtonVisible", "countDown_trans hidden"}));
    EXPECT_EQ(fields.recordState, "pause");
}

TEST_F(Pause, ResumesTheSameRecordingInThisOrder)
{
    openDeck();
    startRecording();
    press("pause");
    log.clear();
    press("resume");
    EXPECT_EQ(log.calls, (Calls{"engine.Start", "panel1 Recording ...", "Timer2.enable", "setButtonVisible",
                                "setButtonVisible", "countDown_trans shown"}));
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(engines.recordings, 1);
}

TEST_F(Pause, SwapsTheButtonsPauseAndResume)
{
    openDeck();
    startRecording();
    press("pause");
    EXPECT_FALSE(window.buttonVisible["pause"]);
    EXPECT_TRUE(window.buttonVisible["resume"]);
    press("resume");
    EXPECT_TRUE(window.buttonVisible["pause"]);
    EXPECT_FALSE(window.buttonVisible["resume"]);
}

TEST_F(Pause, IsTakenOffTheTime)
{
    openDeck();
    startRecording();
    secondsPass(10);
    press("pause");
    secondsPass(30);
    press("resume");
    secondsPass(5);
    EXPECT_EQ(window.panels[4], "00:00:15");
    EXPECT_EQ(fields.runningTime, "00:00:15");
}

TEST_F(Pause, OfSeveralAddUp)
{
    openDeck();
    startRecording();
    for (int i = 0; i < 3; ++i) {
        secondsPass(10);
        press("pause");
        secondsPass(100);
        press("resume");
    }
    secondsPass(1);
    EXPECT_EQ(fields.runningTime, "00:00:31");
}

TEST_F(Pause, WithoutOne_TheTimeIsTheSameInBothClocks)
{
    openDeck();
    startRecording();
    secondsPass(10);
    const auto plain = fields.runningTime;
    fields.Text2 = "P";
    recorder.Timer2_Timer();
    EXPECT_EQ(fields.runningTime, plain);
}

TEST_F(Pause, SelectsTheCorrectedClockForTheRestOfTheRecording)
{
    openDeck();
    startRecording();
    EXPECT_EQ(fields.Text2, "R");
    press("pause");
    EXPECT_EQ(fields.Text2, "P");
    press("resume");
    EXPECT_EQ(fields.Text2, "P");
}

TEST_F(Pause, OfAnEarlierRecording_IsSubtractedFromTheFirstPauseOnAgain)
{
    openDeck();
    startRecording();
    press("pause");
    secondsPass(20);
    press("resume");
    stopAndSave();

    startRecording();
    secondsPass(60);
    EXPECT_EQ(fields.runningTime, "00:01:00");
    press("pause");
    secondsPass(5);
    press("resume");
    secondsPass(1);
    EXPECT_EQ(fields.runningTime, "00:00:41");
}

TEST_F(Pause, FreezesTheTimeOfSlideChanges)
{
    openDeck();
    startRecording();
    secondsPass(7);
    press("pause");
    secondsPass(3);
    turn("next");
    secondsPass(3);
    turn("next");
    press("resume");
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(entry("2", "00:00:07", "7") + entry("3", "00:00:07", "7")));
}

TEST_F(Pause, LetsADeckBeOpened)
{
    openDeck(3);
    startRecording();
    press("pause");
    openDeck(5);
    EXPECT_EQ(fields.slideStatus, "Slide 1/5");
    EXPECT_EQ(fields.recordState, "pause");
}

} // namespace
} // namespace quillora::tests
