#include "app/composition.h"

#include "app/camera_parts.h"
#include "app/capture_options_parts.h"
#include "app/drawing_parts.h"
#include "app/hot_key_parts.h"
#include "app/links_parts.h"
#include "app/message_parts.h"
#include "app/microphone_parts.h"
#include "app/recording_engine_factory.h"
#include "app/review_parts.h"
#include "app/screen_recording_parts.h"
#include "app/slide_ink_parts.h"
#include "app/stage_parts.h"
#include "app/system_wall_clock.h"
#include "app/text_board_parts.h"
#include "app/thread_sleeper.h"
#include "app/web_parts.h"

#include "capture/random_string.h"
#include "deck/deck_import.h"
#include "deck/platform/libreoffice/libreoffice_converter.h"
#include "deck/platform/libreoffice/office_location.h"
#include "deck/slide_pen.h"
#include "deck/slide_viewer.h"
#include "deck/task_pane.h"
#include "forms/camera_settings_form.h"
#include "forms/drawing_palette.h"
#include "forms/paint_canvas_widget.h"
#include "forms/platform/x11/x11_window_hints.h"
#include "forms/qt_common_dialog.h"
#include "forms/qt_message_boxes.h"
#include "forms/qt_timer.h"
#include "forms/stage_widget.h"
#include "forms/task_pane_widget.h"
#include "forms/vantry_frm.h"
#include "session/command_surface.h"
#include "session/countdown.h"
#include "session/main_form.h"
#include "session/open_command.h"
#include "session/operations.h"
#include "session/packaging.h"
#include "session/platform/posix/replacing_file_copier.h"
#include "session/platform/pulse/pulse_beeper.h"
#include "session/platform/zip/libzip_reader.h"
#include "session/platform/zip/libzip_writer.h"
#include "session/recorder.h"
#include "session/recording_session.h"
#include "session/slide_time_index.h"
#include "session/workspace.h"
#include "stage/newest_frame.h"
#include "stage/platform/v4l2/v4l2_video_cap.h"
#include "stage/slide_place.h"

#include <QObject>

namespace quillora::app {

using namespace std::chrono_literals;

/// What touches the world outside: forms, adapters, clocks.
struct Composition::Platform {
    explicit Platform(const InstalledFiles& files)
        : converter(
              {.program = files.deckConverter, .officeFolders = deck::libreoffice::usualOfficeFolders()})
    {}

    SystemWallClock clock;
    ThreadSleeper sleeper;
    RecordingEngineFactory engines;
    session::LibzipWriterFactory zip;
    session::LibzipReaderFactory unzip;
    session::ReplacingFileCopier copier;
    session::PulseBeeper beeper;
    deck::libreoffice::LibreOfficeConverter converter;
    forms::X11WindowHints windowHints;
    // The window looks at the pictures until it is gone, and the camera makes none for a window that is.
    stage::NewestFrame cameraFrames;
    forms::Vantry_frm window{windowHints};
    forms::CameraSettingsForm cameraSettings{window};
    stage::V4l2VideoCap camera{{.frames = cameraFrames,
                                .dialog = cameraSettings,
                                .patience = {.letEventsThrough = [this] { window.processPendingEvents(); }}}};
    forms::QtMessageBoxes boxes{window};
    MessageParts messages{boxes};
    forms::QtCommonDialog CommonDialog1{window};
    forms::QtCommonDialog CommonDialog4{window};
};

/// The recorder itself, lowest part first. Timers are part of it since they tick into it.
struct Composition::Logic {
    Logic(Platform& platform, const InstalledFiles& files, const session::UserFolders& folders)
        : workspace(fields, folders),
          names(platform.clock),
          ebDemo(platform.window.ebDemo()),
          slidePlace(platform.window.surfaces().slide_img_back),
          viewer({.fields = fields,
                  .window = platform.window,
                  .workspace = workspace,
                  .index = index,
                  .slide_img = platform.window.slide_img(),
                  .slide_img_N = platform.window.slide_img_N(),
                  .slide_img_back = slidePlace,
                  .assets = files.assets}),
          pen(platform.window.slide_img()),
          textBoard(platform.window.Picture1().textBoard_txt(), platform.window.textBoard_pic()),
          slideInk({.window = platform.window, .pen = pen, .viewer = viewer, .assets = files.assets}),
          packaging({.fields = fields,
                     .workspace = workspace,
                     .zip = platform.zip,
                     .sleeper = platform.sleeper,
                     .CommonDialog1 = platform.CommonDialog1,
                     .boxes = platform.boxes,
                     .copier = platform.copier}),
          Timer2(50ms, [this] { recorder.Timer2_Timer(); }),
          captureEngine(platform.engines),
          captureOptions({.fields = fields,
                          .window = platform.window,
                          .hints = platform.windowHints,
                          .boxes = platform.boxes,
                          .captureEngine = captureEngine}),
          recorder({.fields = fields,
                    .window = platform.window,
                    .captureEngine = captureEngine,
                    .options = captureOptions.logic(),
                    .time = time,
                    .names = names,
                    .clock = platform.clock,
                    .Timer2 = Timer2,
                    .folders = folders,
                    .packaging = packaging}),
          screenRecording({.fields = fields,
                           .window = platform.window,
                           .hints = platform.windowHints,
                           .boxes = platform.boxes,
                           .captureEngine = captureEngine,
                           .time = time,
                           .clock = platform.clock,
                           .Timer2 = Timer2,
                           .ActivateHotKey = [this] { hotKey.ActivateHotKey(); }}),
          review({.fields = fields,
                  .workspace = workspace,
                  .zip = platform.unzip,
                  .CommonDialog1 = platform.CommonDialog1,
                  .window = platform.window,
                  .playerProgram = files.reviewPlayer}),
          countDown_tmr2(1000ms, [this] { countdown.countDown_tmr2_Timer(); }),
          countdown({.window = platform.window,
                     .clock = platform.clock,
                     .countDown_tmr2 = countDown_tmr2,
                     .beeper = platform.beeper,
                     .recorder = recorder,
                     .announcement = platform.engines,
                     .assets = files.assets}),
          microphone({.fields = fields,
                      .window = platform.window,
                      .boxes = platform.boxes,
                      .messages = platform.messages}),
          session({.fields = fields,
                   .window = platform.window,
                   .boxes = platform.boxes,
                   .mic_frm = microphone,
                   .engines = platform.engines,
                   .slides = viewer,
                   .index = index,
                   .workspace = workspace,
                   .recorder = recorder,
                   .countdown = countdown,
                   .assets = files.assets}),
          import({.fields = fields,
                  .window = platform.window,
                  .CommonDialog1 = platform.CommonDialog1,
                  .boxes = platform.boxes,
                  .workspace = workspace,
                  .converter = platform.converter,
                  .slides = viewer,
                  .slide_img = platform.window.slide_img(),
                  .assets = files.assets}),
          stage({.window = platform.window,
                 .fields = fields,
                 .slides = viewer,
                 .bars = ebDemo,
                 .deck = import,
                 .camera = platform.camera,
                 .CommonDialog4 = platform.CommonDialog4,
                 .boxes = platform.boxes,
                 .operations = operations}),
          web(platform.window, files.browser),
          links({.window = platform.window,
                 .boxes = platform.boxes,
                 .operations = operations,
                 .version = fields.version_lb,
                 .documents = files.assets}),
          drawing({platform.window.Picture1().picPaint(), platform.window.Picture2(), platform.window},
                  files.assets),
          camera({.window = platform.window,
                  .fields = fields,
                  .camera = platform.camera,
                  .frames = platform.cameraFrames,
                  .layout = stage.layout(),
                  .commands = stage.commands()}),
          open({.fields = fields,
                .window = platform.window,
                .deck = import,
                .media = stage.media(),
                .mode = stage.layout(),
                .bars = ebDemo}),
          commands({.fields = fields,
                    .window = platform.window,
                    .boxes = platform.boxes,
                    .pane = ebDemo,
                    .operations = operations}),
          hotKey(platform.messages, platform.window),
          mainForm({.fields = fields,
                    .window = platform.window,
                    .slides = viewer,
                    .workspace = workspace,
                    .session = session,
                    .pane = ebDemo,
                    .browsers = web.startPages(),
                    .Timer1 = web.Timer1(),
                    .ActivateHotKey = [this] { hotKey.ActivateHotKey(); },
                    .camera = camera.cameraSwitch()})
    {}

    session::SessionFields fields;
    session::Workspace workspace;
    session::SlideTimeIndex index{fields, workspace};
    capture::RandomNames names;
    deck::TaskPane ebDemo;
    stage::SlidePlace slidePlace;
    deck::SlideViewer viewer;
    deck::SlidePen pen;
    TextBoardParts textBoard;
    SlideInkParts slideInk;
    session::Packaging packaging;
    forms::QtTimer Timer2;
    session::CaptureEngineField captureEngine;
    CaptureOptionsParts captureOptions;
    session::RecordingClock time;
    session::Recorder recorder;
    ScreenRecordingParts screenRecording;
    ReviewParts review;
    forms::QtTimer countDown_tmr2;
    session::Countdown countdown;
    MicrophoneParts microphone;
    session::RecordingSession session;
    deck::DeckImport import;
    session::OperationTable operations;
    StageParts stage;
    WebParts web;
    LinksParts links;
    DrawingParts drawing;
    CameraParts camera;
    session::OpenCommand open;
    session::CommandSurface commands;
    HotKeyParts hotKey;
    session::MainForm mainForm;
};

Composition::Composition(const InstalledFiles& files, const session::UserFolders& folders)
    : m_platform(std::make_unique<Platform>(files)),
      m_logic(std::make_unique<Logic>(*m_platform, files, folders))
{
    provideOperations();
    connectForm();
}

Composition::~Composition() { m_logic->mainForm.Form_Terminate(); }

void Composition::provideOperations()
{
    using session::Operation;
    auto& logic = *m_logic;
    auto& table = logic.operations;
    table.provide(Operation::toolbar_open, [&] { logic.open.toolbar_open(); });
    table.provide(Operation::toolbar_options, [&] { logic.captureOptions.logic().toolbar_options(); });
    table.provide(Operation::showOptionsFromTaskPane,
                  [&] { logic.captureOptions.logic().showFromTaskPane(); });
    table.provide(Operation::toolbar_screen, [&] { logic.screenRecording.toolbar_screen(); });
    table.provide(Operation::showPreview, [&] { logic.review.preview(); });
    table.provide(Operation::toolbar_record, [&] { logic.session.toolbar_record(); });
    table.provide(Operation::toolbar_pause, [&] { logic.session.toolbar_pause(); });
    table.provide(Operation::toolbar_resume, [&] { logic.session.toolbar_resume(); });
    table.provide(Operation::toolbar_stop, [&] { logic.session.toolbar_stop(); });
    table.provide(Operation::DrawPrepare, [&] { logic.drawing.DrawPrepare(); });
    table.provide(Operation::StartRec, [&] { logic.recorder.StartRec(); });
    table.provide(Operation::PauseRec, [&] { logic.recorder.PauseRec(); });
    table.provide(Operation::ResumeRec, [&] { logic.recorder.ResumeRec(); });
    table.provide(Operation::StopRec, [&] { logic.recorder.StopRec(); });
}

void Composition::connectForm()
{
    auto& logic = *m_logic;
    auto& window = m_platform->window;
    using forms::Vantry_frm;
    logic.hotKey.ReturnWindow = [&] { logic.screenRecording.ReturnWindow(); };
    const auto connect = [&](auto signal, auto handler) {
        QObject::connect(&window, signal, &window, handler);
    };
    connect(&Vantry_frm::main_TB_ButtonClick,
            [&](const std::string& key) { logic.commands.main_TB_ButtonClick(key); });
    connect(&Vantry_frm::navigation_TB_ButtonClick,
            [&](const std::string& key) { logic.viewer.navigation_TB_ButtonClick(key); });
    connect(&Vantry_frm::slide_img_MouseDown, [&](int button, int shift, float x, float y) {
        logic.pen.slide_img_MouseDown(button, shift, x, y);
    });
    connect(&Vantry_frm::slide_img_MouseMove, [&](int button, int shift, float x, float y) {
        logic.pen.slide_img_MouseMove(button, shift, x, y);
    });
    connect(&Vantry_frm::slide_img_MouseUp, [&](int button, int shift, float x, float y) {
        logic.pen.slide_img_MouseUp(button, shift, x, y);
    });
    connect(&Vantry_frm::record_Click, [&] { logic.commands.record_Click(); });
    connect(&Vantry_frm::Form_Unload, [&] { logic.mainForm.Form_Unload(); });
    QObject::connect(&window.ebDemo(), &forms::TaskPaneWidget::ItemClick, &window,
                     [&](const std::string& key) { logic.commands.ebDemo_ItemClick(key); });
}

void Composition::start()
{
    m_logic->mainForm.Form_Load();
    m_platform->window.show();
}

} // namespace quillora::app
