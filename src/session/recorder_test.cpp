#include "session/recorder.h"

#include "tests/support/fake_capture_engine.h"
#include "tests/support/fake_capture_options_form.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_file_copier.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_sleeper.h"
#include "tests/support/fake_timer.h"
#include "tests/support/fake_zip_writer.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillora::session {
namespace {

class RecorderTest : public testing::Test {
  protected:
    tests::TemporaryFolder disk{};
    UserFolders folders{.appData = disk.path(), .localAppData = disk.path()};
    tests::CallLog log{};
    tests::FakeClock clock{};
    tests::FakeTimer Timer2{log, "Timer2"};
    tests::FakeMainWindow window{log};
    tests::FakeCaptureEngineFactory engines{log};
    tests::FakeZipWriterFactory zip{log};
    tests::FakeSleeper sleeper{log};
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    tests::FakeFileCopier copier{};
    SessionFields fields{};
    capture::RandomNames names{clock};
    Workspace workspace{fields, folders};
    Packaging packaging{{fields, workspace, zip, sleeper, dialog, boxes, copier}};
    tests::FakeCaptureOptionsForm optionsForm{log};
    CaptureEngineField captureEngine{engines};
    CaptureOptions options{{fields, window, boxes, captureEngine, optionsForm}};
    RecordingClock time{};
    Recorder recorder{
        {fields, window, captureEngine, options, time, names, clock, Timer2, folders, packaging}};
};

using Calls = std::vector<std::string>;

TEST_F(RecorderTest, ConfiguresTheEngineInTheOrderThatItsInterfaceIsPromised)
{
    recorder.StartRec();
    EXPECT_EQ(log.startingWith("engine."),
              (Calls{"engine.CaptureCursor true", "engine.HighlightCursor false", "engine.HighlightSize 35",
                     "engine.Bitrate 700000", "engine.FrameRate 24", "engine.CaptureMode 0", "engine.Top 90",
                     "engine.Left 264", "engine.Width 747", "engine.Height 420", "engine.OutputWidth 746",
                     "engine.OutputHeight 420", "engine.FileName .wmv", "engine.Start"}));
}

TEST_F(RecorderTest, StartsInItsOrder)
{
    recorder.StartRec();
    EXPECT_EQ(log.calls[0], "SetTopMost true");
    EXPECT_EQ(log.calls[1], "move locked");
    EXPECT_EQ(log.calls[2], "list VideoCodecCount");
    EXPECT_EQ(*std::ranges::find_if(log.calls, [](const auto& call) { return call.starts_with("engine."); }),
              "engine.CaptureCursor true");
    const Calls end(log.calls.end() - 3, log.calls.end());
    EXPECT_EQ(end, (Calls{"engine.Start", "Timer2.enable", "panel1 Recording ..."}));
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(fields.Text2, "R");
}

TEST_F(RecorderTest, StopsInItsOrderAndPacksLast)
{
    recorder.StartRec();
    log.clear();
    recorder.StopRec();
    EXPECT_EQ(log.calls, (Calls{"engine.Stop", "panel1 Ready...", "Timer2.disable", "SetTopMost false",
                                "move free", "zip.Add version.txt"}));
    EXPECT_EQ(fields.recordState, "stop");
}

TEST_F(RecorderTest, TakesTheSettingsOfTheMoment)
{
    options.txtfps_Change("30");
    options.bitrate_txt_Change("1500 or so");
    options.highlightCursor_chk_Click(true);
    recorder.StartRec();
    EXPECT_EQ(log.count("engine.FrameRate 30"), 1);
    EXPECT_EQ(log.count("engine.Bitrate 1500000"), 1);
    EXPECT_EQ(log.count("engine.HighlightCursor true"), 1);
}

TEST_F(RecorderTest, PassesTheHighlightOnWithoutTheCursor)
{
    options.capturecursor_chk_Click(false);
    options.highlightCursor_chk_Click(true);
    recorder.StartRec();
    EXPECT_EQ(log.count("engine.CaptureCursor false"), 1);
    EXPECT_EQ(log.count("engine.HighlightCursor true"), 1);
}

TEST_F(RecorderTest, GivesTheEngineZeroForASettingWithoutANumber)
{
    options.txtfps_Change("fast");
    options.bitrate_txt_Change("");
    recorder.StartRec();
    EXPECT_EQ(log.count("engine.FrameRate 0"), 1);
    EXPECT_EQ(log.count("engine.Bitrate 0"), 1);
}

TEST_F(RecorderTest, FilmsAStageOfAnySizeIntoTheSameFrame)
{
    window.stage = {.left = -10, .top = 5, .width = 1494, .height = 841};
    recorder.StartRec();
    EXPECT_EQ(log.count("engine.Left -10"), 1);
    EXPECT_EQ(log.count("engine.Width 1494"), 1);
    EXPECT_EQ(log.count("engine.Height 841"), 1);
    EXPECT_EQ(log.count("engine.OutputWidth 746"), 1);
    EXPECT_EQ(log.count("engine.OutputHeight 420"), 1);
}

TEST_F(RecorderTest, TakesThePlaceOfTheStageOnceAtTheStart)
{
    recorder.StartRec();
    window.stage.left = 999;
    log.clear();
    recorder.PauseRec();
    recorder.ResumeRec();
    EXPECT_EQ(log.startingWith("engine."), (Calls{"engine.Pause", "engine.Start"}));
}

TEST_F(RecorderTest, TakesThePlaceOfTheStageAnewForTheNextRecording)
{
    recorder.StartRec();
    recorder.StopRec();
    window.stage.left = 500;
    recorder.StartRec();
    EXPECT_EQ(log.count("engine.Left 500"), 1);
}

TEST_F(RecorderTest, NamesTheVideoByEightLettersOrDigits)
{
    recorder.StartRec();
    const auto title = fields.VidTempTitle_txt.substr(0, 8);
    EXPECT_EQ(fields.VidTempTitle_txt, title + ".wmv");
    EXPECT_TRUE(std::ranges::all_of(title, [](unsigned char c) { return std::isalnum(c) != 0; })) << title;
    EXPECT_EQ(fields.TempVidFile_txt, disk.path().string() + "/Quillora/" + fields.VidTempTitle_txt);
    EXPECT_EQ(fields.Text5, fields.TempVidFile_txt);
    EXPECT_EQ(fields.Text7.size(), 12U);
    EXPECT_TRUE(fields.Text7.ends_with(".wmv"));
}

TEST_F(RecorderTest, NamesEachVideoAnew)
{
    recorder.StartRec();
    const auto first = fields.VidTempTitle_txt;
    recorder.StopRec();
    recorder.StartRec();
    EXPECT_NE(fields.VidTempTitle_txt, first);
}

TEST_F(RecorderTest, SubtractsReadingsAndNeverCountsTicks)
{
    recorder.StartRec();
    clock.advance(std::chrono::seconds(3));
    for (int i = 0; i < 50; ++i)
        recorder.Timer2_Timer();
    EXPECT_EQ(fields.runningTime, "00:00:03");
    EXPECT_EQ(window.panels[4], "00:00:03");
}

TEST_F(RecorderTest, KeepsTheOneEngineForAllRecordings)
{
    recorder.StartRec();
    recorder.StopRec();
    recorder.StartRec();
    EXPECT_EQ(engines.created, 1);
}

TEST_F(RecorderTest, MakesNoEngineBeforeItIsNeeded) { EXPECT_EQ(engines.created, 0); }

} // namespace
} // namespace quillora::session
