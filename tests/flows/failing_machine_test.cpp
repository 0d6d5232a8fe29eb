#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using FailingMachine = LectureWorld;
using Calls = std::vector<std::string>;

const std::set<std::string> kEveryEngineCall{
    "Bitrate",       "CaptureMode", "Left",        "Top",          "Width",         "Height",
    "FrameRate",     "FileName",    "OutputWidth", "OutputHeight", "CaptureCursor", "HighlightCursor",
    "HighlightSize", "Start",       "Pause",       "Stop"};

TEST_F(FailingMachine, AnEngineThatCannotDoAnything_ShowsARunningRecordingAllTheSame)
{
    engines.failing.names = kEveryEngineCall;
    openDeck();
    startRecording();
    secondsPass(3);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[1], "Recording ...");
    EXPECT_EQ(window.panels[4], "00:00:03");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FailingMachine, AnEngineThatFailsInOneCall_IsStillAskedForAllTheOthers)
{
    openDeck();
    startRecording();
    const auto whenWell = log.startingWith("engine.");
    stopAndSave();
    for (const auto& name : kEveryEngineCall) {
        engines.failing.names = {name};
        log.clear();
        startRecording();
        EXPECT_EQ(log.startingWith("engine."), whenWell) << name;
        engines.failing.names.clear();
        stopAndSave();
    }
}

TEST_F(FailingMachine, AnEngineThatCannotBeMade_ShowsARunningRecordingAllTheSame)
{
    engines.failing.names = {"create"};
    openDeck();
    startRecording();
    secondsPass(3);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[4], "00:00:03");
}

TEST_F(FailingMachine, AnEngineThatCannotBeMadeAtFirst_IsMadeAtTheNextRecording)
{
    engines.failing.names = {"create"};
    openDeck();
    startRecording();
    stopAndSave();
    engines.failing.names.clear();
    startRecording();
    EXPECT_EQ(engines.recordings, 1);
}

TEST_F(FailingMachine, AnEngineThatCannotStop_LeavesTheStopToGoOnToItsSave)
{
    openDeck();
    startRecording();
    engines.failing.names = {"Stop"};
    stopAndSave();
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_EQ(window.panels[1], "Ready...");
    EXPECT_TRUE(std::filesystem::exists(documents / "lecture.asf"));
}

TEST_F(FailingMachine, AnEngineThatCannotPause_EndsThePauseThere)
{
    openDeck();
    startRecording();
    engines.failing.names = {"Pause"};
    press("pause");
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[1], "Paused ...");
    EXPECT_TRUE(Timer2.enabled);
    EXPECT_TRUE(window.buttonVisible["pause"]);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FailingMachine, AnEngineThatCannotResume_LeavesTheRecordingPaused)
{
    openDeck();
    startRecording();
    press("pause");
    engines.failing.names = {"Start"};
    press("resume");
    EXPECT_EQ(fields.recordState, "pause");
    EXPECT_EQ(window.panels[1], "Paused ...");
    EXPECT_FALSE(Timer2.enabled);
    EXPECT_TRUE(window.buttonVisible["resume"]);
}

TEST_F(FailingMachine, AResumeThatFailed_CanBeTriedAgainAndCountsTheWholePause)
{
    openDeck();
    startRecording();
    secondsPass(4);
    press("pause");
    engines.failing.names = {"Start"};
    secondsPass(10);
    press("resume");
    engines.failing.names.clear();
    secondsPass(10);
    press("resume");
    secondsPass(1);
    EXPECT_EQ(fields.runningTime, "00:00:05");
}

TEST_F(FailingMachine, AWindowThatCannotBeRaised_IsRecordedAllTheSame)
{
    window.failing.names = {"SetTopMost"};
    openDeck();
    startRecording();
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(engines.recordings, 1);
}

TEST_F(FailingMachine, AStageWithoutAPlaceOnTheScreen_IsRecordedAsAnEmptyRectangle)
{
    window.failing.names = {"stageRectangle"};
    openDeck();
    startRecording();
    EXPECT_EQ(log.count("engine.Width 0"), 1);
    EXPECT_EQ(engines.recordings, 1);
}

TEST_F(FailingMachine, CountdownPicturesThatAreMissing_DoNotKeepTheRecordingFromStarting)
{
    window.failing.names = {"setCountdownPicture"};
    beeper.failing.names = {"Beep"};
    openDeck();
    startRecording();
    EXPECT_EQ(fields.recordState, "record");
}

TEST_F(FailingMachine, AnIndexThatCannotBeWritten_EndsTheStopWhileTheRecordingGoesOn)
{
    openDeck();
    startRecording();
    std::filesystem::create_directory(root / "slidetime.xml");
    log.clear();
    press("stop");
    EXPECT_EQ(log.startingWith("engine."), Calls{});
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[1], "Wait...");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(window.minimizeBox);
}

TEST_F(FailingMachine, AVersionFileThatCannotBeWritten_EndsTheStopWhileTheRecordingGoesOn)
{
    openDeck();
    startRecording();
    std::filesystem::create_directory(root / "version.txt");
    press("stop");
    EXPECT_EQ(log.count("engine.Stop"), 0);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_TRUE(std::filesystem::exists(root / "slidetime.xml"));
}

TEST_F(FailingMachine, AStopThatFailed_CanBePressedAgain)
{
    openDeck();
    startRecording();
    std::filesystem::create_directory(root / "slidetime.xml");
    press("stop");
    std::filesystem::remove(root / "slidetime.xml");
    stopAndSave();
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(std::filesystem::exists(documents / "lecture.asf"));
}

TEST_F(FailingMachine, AMissingFirstSlide_EndsTheSaveWithoutAWord)
{
    openDeck();
    startRecording();
    std::filesystem::remove(root / "Slide1.PNG");
    press("stop");
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_EQ(window.panels[1], "Ready...");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(log.count("ShowSave"), 0);
    EXPECT_TRUE(window.minimizeBox);
}

TEST_F(FailingMachine, AnArchiveThatCannotBeWritten_EndsTheSaveWithoutAWord)
{
    openDeck();
    startRecording();
    zip.failing.names = {"Zip"};
    press("stop");
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(std::filesystem::exists(fields.TempVidFile_txt));
}

TEST_F(FailingMachine, ADestinationThatCannotBeWritten_EndsTheSaveWithoutAWord)
{
    openDeck();
    startRecording();
    copier.failing.names = {"copyOver"};
    stopAndSave();
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(fields.asf_name_lb, "no_video");
    EXPECT_TRUE(std::filesystem::exists(root / "MyZip.zip"));
}

TEST_F(FailingMachine, ADestinationThatIsAFolder_EndsTheSaveWithoutAWord)
{
    openDeck();
    startRecording();
    std::filesystem::create_directory(documents / "lecture.asf");
    stopAndSave("lecture.asf");
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(std::filesystem::is_directory(documents / "lecture.asf"));
}

TEST_F(FailingMachine, ADialogThatCannotBeShown_EndsTheSaveWithoutAWord)
{
    openDeck();
    startRecording();
    press("stop");
    EXPECT_EQ(log.count("ShowSave"), 1);
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(window.minimizeBox);
}

TEST_F(FailingMachine, AnEngineThatLeftNoVideo_IsPackedWithoutOne)
{
    engines.failing.names = {"Start"};
    openDeck(1);
    startRecording();
    stopAndSave();
    EXPECT_EQ(zip.entries, (Calls{"version.txt", "Slide1.PNG", "slide1.jpg", "slidetime.xml"}));
}

TEST_F(FailingMachine, AnUnwritableWorkspace_StillLetsTheProgramStartAndRecord)
{
    std::filesystem::remove_all(folders.appData);
    writeFile(folders.appData, "a file where the folder should be");
    mainForm.Form_Load();
    EXPECT_EQ(window.caption, "Quillora Recorder (Version 3.13.0)");
    openDeck();
    startRecording();
    EXPECT_EQ(fields.recordState, "record");
    press("stop");
    EXPECT_EQ(fields.recordState, "record");
}

} // namespace
} // namespace quillora::tests
