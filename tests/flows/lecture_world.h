#pragma once

#include "deck/deck_import.h"
#include "deck/slide_pen.h"
#include "deck/slide_viewer.h"
#include "deck/task_pane.h"
#include "panels/start_pages.h"
#include "session/command_surface.h"
#include "session/main_form.h"
#include "session/open_command.h"
#include "session/operations.h"
#include "session/review.h"
#include "session/screen_recording.h"
#include "stage/deck_shortcut.h"
#include "stage/media_selection.h"
#include "stage/rotation.h"
#include "stage/slide_place.h"
#include "stage/stage_commands.h"
#include "stage/stage_layout.h"
#include "tests/support/fake_beeper.h"
#include "tests/support/fake_camera_connection.h"
#include "tests/support/fake_camera_switch.h"
#include "tests/support/fake_capture_engine.h"
#include "tests/support/fake_capture_options_form.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_file_copier.h"
#include "tests/support/fake_full_screen_form.h"
#include "tests/support/fake_image_surface.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_microphone_setting.h"
#include "tests/support/fake_presentation_converter.h"
#include "tests/support/fake_preview_form.h"
#include "tests/support/fake_recording_announcement.h"
#include "tests/support/fake_sleeper.h"
#include "tests/support/fake_stage_surfaces.h"
#include "tests/support/fake_task_pane_view.h"
#include "tests/support/fake_timer.h"
#include "tests/support/fake_web_browser.h"
#include "tests/support/fake_zip_reader.h"
#include "tests/support/fake_zip_writer.h"
#include "tests/support/file_contents.h"
#include "tests/support/names_in.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/working_directory.h"

#include <gtest/gtest.h>

namespace quillora::tests {

/// A presenter's desk: the real logic, joined as the program joins it, on a disk of its own and with fakes
/// for everything outside. The recorder has just come up, as on its first day on this machine.
class LectureWorld : public testing::Test {
  protected:
    TemporaryFolder disk{};
    session::UserFolders folders{.appData = disk.path() / "roaming", .localAppData = disk.path() / "local"};
    std::filesystem::path root = folders.appData / "Quillora";
    std::filesystem::path assets = made(disk.path() / "assets");
    std::filesystem::path documents = made(disk.path() / "documents");
    WorkingDirectory workingDirectory{assets};

    CallLog log{};
    FakeClock clock{};
    FakeTimer Timer2{log, "Timer2"};
    FakeTimer countDown_tmr2{log, "countDown_tmr2"};
    FakeTimer Timer1{log, "Timer1"};
    FakeWebBrowser WebBrowser1{log, "WebBrowser1"};
    FakeWebBrowser WebBrowser2{log, "WebBrowser2"};
    FakeMainWindow window{log};
    FakeMessageBoxes boxes{log};
    FakeCommonDialog CommonDialog1{log};
    FakeMicrophoneSetting mic_frm{log};
    FakeBeeper beeper{log};
    FakeRecordingAnnouncement announcement{};
    FakeCaptureEngineFactory engines{log};
    FakeCaptureOptionsForm CaptureOptions_frm{log};
    FakeFullScreenForm FullScreen_frm{log};
    FakePreviewForm preview_frm{log};
    FakeZipWriterFactory zip{log};
    FakeZipReaderFactory zip_reader{log};
    FakeSleeper sleeper{log};
    FakeFileCopier copier{};
    FakeImageSurface slide_img{log, "slide_img"};
    FakeImageSurface slide_img_N{log, "slide_img_N"};
    FakeStageSurfaces surfaces{log};
    FakeTaskPaneView paneView{};
    FakeCameraConnection camera{};
    FakePresentationConverter converter{log};

    session::SessionFields fields{};
    capture::RandomNames names{clock};
    session::Workspace workspace{fields, folders};
    session::SlideTimeIndex index{fields, workspace};
    deck::TaskPane ebDemo{paneView};
    stage::SlidePlace slidePlace{surfaces.slide_img_back};
    deck::SlideViewer viewer{{fields, window, workspace, index, slide_img, slide_img_N, slidePlace, assets}};
    deck::SlidePen pen{slide_img};
    deck::DeckImport deckImport{
        {fields, window, CommonDialog1, boxes, workspace, converter, viewer, slide_img, assets}};
    session::OperationTable operations{};
    stage::StageFields stageFields{};
    stage::StageLayout layout{{fields, stageFields, window, viewer, ebDemo, camera, surfaces.all}};
    stage::MediaSelection media{{fields, window, viewer, ebDemo, surfaces.all}};
    stage::StageCommands stageCommands{
        {fields, stageFields, window, media, layout, surfaces.all, operations}};
    stage::Rotation rotation{{stageFields, surfaces.all}};
    stage::DeckShortcut deckShortcut{{surfaces.all, ebDemo, deckImport}};
    session::Packaging packaging{{fields, workspace, zip, sleeper, CommonDialog1, boxes, copier}};
    session::CaptureEngineField captureEngine{engines};
    session::CaptureOptions options{{fields, window, boxes, captureEngine, CaptureOptions_frm}};
    session::RecordingClock time{};
    session::Recorder recorder{
        {fields, window, captureEngine, options, time, names, clock, Timer2, folders, packaging}};
    session::ScreenRecording screenRecording{{fields, window, boxes, captureEngine, time, clock, Timer2,
                                              FullScreen_frm, [this] { log.add("ActivateHotKey"); }}};
    session::Review review{{fields, workspace, zip_reader, CommonDialog1, preview_frm}};
    session::Countdown countdown{{window, clock, countDown_tmr2, beeper, recorder, announcement, assets}};
    session::RecordingSession session{
        {fields, window, boxes, mic_frm, engines, viewer, index, workspace, recorder, countdown, assets}};
    session::OpenCommand open{{fields, window, deckImport, media, layout, ebDemo}};
    session::CommandSurface commands{{fields, window, boxes, ebDemo, operations}};
    panels::StartPages startPages{{WebBrowser1, WebBrowser2, Timer1}};
    FakeCameraSwitch cameraSwitch{log};
    session::MainForm mainForm{{fields, window, viewer, workspace, session, ebDemo, startPages, Timer1,
                                [this] { log.add("ActivateHotKey"); }, cameraSwitch}};

    LectureWorld()
    {
        for (const auto* asset :
             {"5s.gif", "4s.gif", "3s.gif", "2s.gif", "1s.gif", "records.gif", "PPT.png", "WAIT02.CUR"})
            writeFile(assets / asset, asset);
        Timer2.handler = [this] { recorder.Timer2_Timer(); };
        countDown_tmr2.handler = [this] { countdown.countDown_tmr2_Timer(); };
        Timer1.handler = [this] { startPages.Timer1_Timer(); };
        provideOperations();
        mainForm.Form_Load();
    }

    void press(std::string_view key) { commands.main_TB_ButtonClick(key); }
    void turn(std::string_view key) { viewer.navigation_TB_ButtonClick(key); }

    void openDeck(int slides = 3)
    {
        converter.slideCount = slides;
        CommonDialog1.willChoose(documents / "deck.pptx");
        press("open");
    }

    void secondsPass(int seconds)
    {
        for (int i = 0; i < seconds; ++i) {
            clock.advance(std::chrono::seconds(1));
            countDown_tmr2.tick();
            Timer2.tick();
        }
    }

    void startRecording()
    {
        press("record");
        secondsPass(5);
    }

    void stopAndSave(const std::string& name = "lecture.asf", int filterIndex = 1)
    {
        CommonDialog1.willChoose(documents / name, filterIndex);
        press("stop");
    }

    std::string indexFile() const { return readFile(root / "slidetime.xml"); }

    static std::string indexOf(const std::string& entries)
    {
        return "<slides>\r\n<slide currentS=\"1\">\r\n<minutes>00:00:00</minutes>\r\n<seconds>0</seconds>\r\n"
               "</slide>\r\n" +
               entries + "</slides>\r\n";
    }
    static std::string entry(const std::string& slide, const std::string& time, const std::string& seconds)
    {
        return "<slide currentS=\"" + slide + "\">\r\n<minutes>" + time + "</minutes>\r\n<seconds>" +
               seconds + "</seconds>\r\n</slide>\r\n";
    }

  private:
    void provideOperations()
    {
        using session::Operation;
        operations.provide(Operation::toolbar_open, [this] { open.toolbar_open(); });
        operations.provide(Operation::toolbar_record, [this] { session.toolbar_record(); });
        operations.provide(Operation::toolbar_pause, [this] { session.toolbar_pause(); });
        operations.provide(Operation::toolbar_resume, [this] { session.toolbar_resume(); });
        operations.provide(Operation::toolbar_stop, [this] { session.toolbar_stop(); });
        operations.provide(Operation::toolbar_options, [this] { options.toolbar_options(); });
        operations.provide(Operation::showOptionsFromTaskPane, [this] { options.showFromTaskPane(); });
        operations.provide(Operation::toolbar_screen, [this] { screenRecording.toolbar_screen(); });
        operations.provide(Operation::showPreview, [this] { review.preview(); });
        operations.provide(Operation::toolbar_slides, [this] { stageCommands.toolbar_slides(); });
        operations.provide(Operation::toolbar_text, [this] { stageCommands.toolbar_text(); });
        operations.provide(Operation::toolbar_draw, [this] { stageCommands.toolbar_draw(); });
        operations.provide(Operation::toolbar_web, [this] { stageCommands.toolbar_web(); });
        operations.provide(Operation::toolbar_youtube, [this] { stageCommands.toolbar_youtube(); });
        operations.provide(Operation::StartRec, [this] { recorder.StartRec(); });
        operations.provide(Operation::PauseRec, [this] { recorder.PauseRec(); });
        operations.provide(Operation::ResumeRec, [this] { recorder.ResumeRec(); });
        operations.provide(Operation::StopRec, [this] { recorder.StopRec(); });
        operations.provide(Operation::RotatePPT, [this] { rotation.RotatePPT(); });
        operations.provide(Operation::RotatePPTCAM, [this] { rotation.RotatePPTCAM(); });
        operations.provide(Operation::RotatePPTDRAW, [this] { rotation.RotatePPTDRAW(); });
        operations.provide(Operation::RotatePPTWHITEBOARD, [this] { rotation.RotatePPTWHITEBOARD(); });
    }

    static std::filesystem::path made(const std::filesystem::path& folder)
    {
        std::filesystem::create_directories(folder);
        return folder;
    }
};

} // namespace quillora::tests
