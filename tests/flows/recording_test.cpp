#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Recording = LectureWorld;
using Calls = std::vector<std::string>;

TEST_F(Recording, ALecture_GoesFromTheDeckToOneSavedFile)
{
    openDeck(3);
    startRecording();
    secondsPass(4);
    turn("next");
    secondsPass(4);
    turn("last");
    secondsPass(2);
    stopAndSave("lecture.asf");

    EXPECT_EQ(indexFile(), indexOf(entry("2", "00:00:04", "4") + entry("3", "00:00:08", "8")));
    EXPECT_EQ(readFile(documents / "lecture.asf"),
              "version.txt\nSlide1.PNG\nslide1.jpg\nslide2.jpg\nslide3.jpg\n"
              "slidetime.xml\n" +
                  fields.VidTempTitle_txt + "\n");
    EXPECT_EQ(fields.asf_name_lb, (documents / "lecture.asf").string());
    EXPECT_EQ(boxes.shown.back().text,
              "Congratulations!\r\rYour video presentation has been saved successfully!");
}

TEST_F(Recording, IsAnnouncedWithTheCountdown_SoThatTheSoundIsThereFromTheFirstFrame)
{
    openDeck();
    press("record");
    EXPECT_EQ(announcement.times, 1);
}

TEST_F(Recording, IsNotAnnouncedWhereThereIsNoDeck)
{
    press("record");
    EXPECT_EQ(announcement.times, 0);
}

TEST_F(Recording, Record_BeforeADeckWasOpened_AsksForOne)
{
    press("record");

    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, "Please click Open button to load your slides before recording!");
    EXPECT_EQ(boxes.shown[0].title, "Quillora");
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::critical);
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
    EXPECT_FALSE(countDown_tmr2.enabled);
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(window.minimizeBox);
    EXPECT_EQ(fields.currentSlide, "");
}

TEST_F(Recording, Record_CentresTheWindowAndForgetsTheSavedFile_EvenWithoutADeck)
{
    fields.asf_name_lb = "/somewhere/old.asf";
    press("record");
    EXPECT_EQ(log.count("center_form"), 1);
    EXPECT_EQ(fields.asf_name_lb, "no_video");
    EXPECT_EQ(fields.workspacePath, folders.localAppData.string() + "/Quillora/");
}

TEST_F(Recording, Record_CountsDownFiveSecondsAndThenStarts)
{
    openDeck();
    log.clear();
    press("record");
    EXPECT_TRUE(window.countdownVisible);
    secondsPass(4);
    EXPECT_EQ(fields.recordState, "stop");
    secondsPass(1);

    EXPECT_EQ(log.startingWith("picture "),
              (Calls{"picture 5s.gif", "picture 4s.gif", "picture 3s.gif", "picture 2s.gif", "picture 1s.gif",
                     "picture records.gif"}));
    EXPECT_EQ(window.countdownPicture, assets / "records.gif");
    EXPECT_FALSE(countDown_tmr2.enabled);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[1], "Recording ...");
}

TEST_F(Recording, TheBeep_IsOverBeforeTheCaptureStarts)
{
    openDeck();
    startRecording();
    const auto beep = std::ranges::find(log.calls, "Beep 900 200");
    const auto start = std::ranges::find(log.calls, "engine.Start");
    ASSERT_NE(start, log.calls.end());
    EXPECT_LT(beep, start);
}

TEST_F(Recording, TheBackdropButton_IsHiddenWhileRecordingOnly)
{
    openDeck();
    startRecording();
    EXPECT_FALSE(window.changeBackVisible);
    stopAndSave();
    EXPECT_TRUE(window.changeBackVisible);
}

TEST_F(Recording, Record_GoesBackToSlide1)
{
    openDeck(3);
    turn("last");
    press("record");
    EXPECT_EQ(fields.currentSlide, "1");
    EXPECT_EQ(fields.slideStatus, "Slide 1/3");
    EXPECT_EQ(window.panels[2], "Slide 1/3");
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
}

TEST_F(Recording, Record_DeletesTheVideoOfAnEarlierAttempt)
{
    openDeck();
    writeFile(root / "abandoned.wmv", "old");
    press("record");
    EXPECT_FALSE(std::filesystem::exists(root / "abandoned.wmv"));
    EXPECT_EQ(fields.workspacePath, root.string());
}

TEST_F(Recording, Record_MakesASecondEngineThatNobodyDrives)
{
    openDeck();
    startRecording();
    EXPECT_EQ(engines.alive, 2);
    stopAndSave();
    startRecording();
    EXPECT_EQ(engines.alive, 2);
    EXPECT_EQ(engines.created, 3);
    EXPECT_EQ(log.count("engine.Start"), 2);
}

TEST_F(Recording, Record_LetsGoOfItsOldSecondEngineBeforeItMakesANewOne)
{
    openDeck();
    startRecording();
    stopAndSave();
    startRecording();
    EXPECT_EQ(engines.mostAlive, 2);
}

TEST_F(Recording, Record_DuringTheCountdown_RestartsItAtFive)
{
    openDeck();
    press("record");
    secondsPass(3);
    press("record");
    EXPECT_EQ(window.countdownPicture, assets / "5s.gif");
    secondsPass(4);
    EXPECT_EQ(fields.recordState, "stop");
    secondsPass(1);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(log.count("engine.Start"), 1);
}

TEST_F(Recording, Record_DuringTheCountdown_EmptiesTheIndexAgain)
{
    openDeck();
    startRecording();
    turn("next");
    stopAndSave();
    EXPECT_NE(index.slideEntries(), "");
    press("record");
    EXPECT_EQ(index.slideEntries(), "");
    press("record");
    EXPECT_EQ(index.slideEntries(), "");
}

TEST_F(Recording, TheIndex_IsKeptAfterTheStop)
{
    openDeck();
    startRecording();
    turn("next");
    const auto entries = index.slideEntries();
    stopAndSave();
    EXPECT_EQ(index.slideEntries(), entries);
}

TEST_F(Recording, TheMinimiseBox_IsGoneWhileRecordingAndBackAfterTheStop)
{
    openDeck();
    press("record");
    EXPECT_FALSE(window.minimizeBox);
    secondsPass(5);
    EXPECT_FALSE(window.minimizeBox);
    stopAndSave();
    EXPECT_TRUE(window.minimizeBox);
}

TEST_F(Recording, TheMinimiseBox_IsBackWhenRecordWasPressedTwice)
{
    openDeck();
    press("record");
    press("record");
    EXPECT_TRUE(window.minimizeBox);
    secondsPass(5);
    EXPECT_TRUE(window.minimizeBox);
    stopAndSave();
    EXPECT_TRUE(window.minimizeBox);
}

TEST_F(Recording, TheWindow_CannotBeMovedWhileRecording)
{
    openDeck();
    startRecording();
    EXPECT_TRUE(window.moveLocked);
    EXPECT_TRUE(window.topMost);
    stopAndSave();
    EXPECT_FALSE(window.moveLocked);
    EXPECT_FALSE(window.topMost);
}

TEST_F(Recording, TheWindow_StaysAnOrdinaryOneFromTheFirstPauseOn)
{
    openDeck();
    startRecording();
    press("pause");
    EXPECT_FALSE(window.topMost);
    press("resume");
    EXPECT_FALSE(window.topMost);
    EXPECT_TRUE(window.moveLocked);
}

TEST_F(Recording, Stop_WritesIndexAndVersionBeforeItStopsAndPacksAfterwards)
{
    openDeck(1);
    startRecording();
    window.pendingEvents = [&] {
        log.add(std::filesystem::exists(root / "slidetime.xml") ? "index written" : "no index yet");
    };
    log.clear();
    stopAndSave();
    EXPECT_EQ(log.calls, (Calls{"countDown_trans hidden",
                                "panel1 Wait...",
                                "processPendingEvents",
                                "no index yet",
                                "processPendingEvents",
                                "no index yet",
                                "engine.Stop",
                                "panel1 Ready...",
                                "Timer2.disable",
                                "SetTopMost false",
                                "move free",
                                "zip.Add version.txt",
                                "zip.Add Slide1.PNG",
                                "Sleep 500",
                                "zip.Add slide1.jpg",
                                "zip.Add slidetime.xml",
                                "zip.Add " + fields.VidTempTitle_txt,
                                "zip.Zip MyZip.zip",
                                "ShowSave",
                                "box " + boxes.shown.back().text,
                                "processPendingEvents",
                                "index written",
                                "changeback_btn shown",
                                "minimise box on"}));
}

TEST_F(Recording, TheClock_GoesOnWhileTheStopWaits)
{
    openDeck();
    startRecording();
    secondsPass(3);
    window.pendingEvents = [&] { secondsPass(1); };
    CommonDialog1.willChoose(documents / "lecture.asf");
    press("stop");
    EXPECT_EQ(fields.runningTime, "00:00:05");
}

TEST_F(Recording, TheRunningTime_IsKeptAfterTheStop)
{
    openDeck();
    startRecording();
    secondsPass(7);
    stopAndSave();
    secondsPass(5);
    EXPECT_EQ(fields.runningTime, "00:00:07");
    EXPECT_EQ(window.panels[4], "00:00:07");
}

TEST_F(Recording, Closing_WhileRecording_RunsTheWholeStopWithItsSave)
{
    openDeck();
    startRecording();
    CommonDialog1.willBeCancelled();
    CommonDialog1.willChoose(documents / "lecture.asf");
    mainForm.Form_Unload();
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(std::filesystem::exists(documents / "lecture.asf"));
}

TEST_F(Recording, Closing_WhilePaused_SavesNothing)
{
    openDeck();
    startRecording();
    press("pause");
    log.clear();
    mainForm.Form_Unload();
    EXPECT_EQ(log.calls, Calls{"CloseCam"});
    EXPECT_TRUE(std::filesystem::is_empty(documents));
}

TEST_F(Recording, Closing_WhilePaused_LeavesAVideoThatTheNextStartRemoves)
{
    openDeck();
    startRecording();
    press("pause");
    mainForm.Form_Unload();
    EXPECT_TRUE(std::filesystem::exists(fields.TempVidFile_txt));
    mainForm.Form_Load();
    EXPECT_FALSE(std::filesystem::exists(fields.TempVidFile_txt));
}

TEST_F(Recording, Closing_WithNothingRecorded_ClosesTheCameraOnly)
{
    openDeck();
    log.clear();
    mainForm.Form_Unload();
    EXPECT_EQ(log.calls, Calls{"CloseCam"});
}

TEST_F(Recording, Closing_ClosesTheCameraAfterTheSave)
{
    openDeck();
    startRecording();
    CommonDialog1.willChoose(documents / "lecture.asf");
    log.clear();
    mainForm.Form_Unload();
    EXPECT_EQ(log.count("CloseCam"), 1);
    EXPECT_EQ(log.calls.back(), "CloseCam");
    EXPECT_TRUE(std::filesystem::exists(documents / "lecture.asf"));
}

TEST_F(Recording, TheEndOfTheFormWithoutAWindowToCloseClosesTheCamera)
{
    log.clear();
    mainForm.Form_Terminate();
    EXPECT_EQ(log.calls, Calls{"CloseCam"});
}

TEST_F(Recording, Closing_WithAnIndexThatCannotBeWritten_StillComesToItsEnd)
{
    openDeck();
    startRecording();
    std::filesystem::create_directory(root / "slidetime.xml");
    mainForm.Form_Unload();
    EXPECT_EQ(log.calls.back(), "CloseCam");
    EXPECT_TRUE(zip.entries.empty());
}

TEST_F(Recording, TwoLectures_PackTheirOwnVideoEach)
{
    openDeck(1);
    startRecording();
    stopAndSave("first.asf");
    const auto firstVideo = fields.VidTempTitle_txt;
    startRecording();
    secondsPass(2);
    turn("first");
    stopAndSave("second.asf");

    EXPECT_NE(fields.VidTempTitle_txt, firstVideo);
    EXPECT_EQ(zip.entries,
              (Calls{"version.txt", "Slide1.PNG", "slide1.jpg", "slidetime.xml", fields.VidTempTitle_txt}));
    EXPECT_EQ(indexFile(), indexOf(entry("1", "00:00:02", "2")));
    EXPECT_TRUE(std::filesystem::exists(documents / "first.asf"));
}

TEST_F(Recording, AFreshStage_RecordsWithoutAnySlideChange)
{
    openDeck();
    startRecording();
    secondsPass(2);
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(""));
    EXPECT_EQ(std::ranges::count(indexFile(), '\n'), 6);
}

} // namespace
} // namespace quillora::tests
