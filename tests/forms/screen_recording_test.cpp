#include "app/screen_recording_parts.h"

#include "app/system_wall_clock.h"
#include "capture/capture_settings.h"
#include "capture/platform/ffmpeg/asf_writer.h"
#include "capture/platform/x11/x11_screen_source.h"
#include "capture/recording_engine.h"
#include "forms/qt_message_boxes.h"
#include "forms/qt_timer.h"
#include "forms/screen_presence.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/neighbour_window.h"
#include "tests/platform/decoded_media.h"
#include "tests/support/fake_capture_ports.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace quillora;
using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t kDark = 0x102030;
constexpr int kDrawsAfterMs = 60;

class EngineOnThisDisplay : public capture::CaptureEngineFactory {
  public:
    std::unique_ptr<capture::CaptureEngine> create() override
    {
        return std::make_unique<capture::RecordingEngine>(capture::CapturePorts{
            [] { return std::make_unique<capture::X11ScreenSource>(); },
            [this] { return std::make_unique<tests::FakeSoundSource>(microphone); },
            [](const capture::MediaFormat& format) { return std::make_unique<capture::AsfWriter>(format); }});
    }

    tests::FakeMicrophone microphone{};
};

/// The real window, dialog and engine, before a neighbour that is dark all over. The stage is white.
class ScreenRecordingOnTheScreen : public tests::FormTest {
  protected:
    ScreenRecordingOnTheScreen()
    {
        form.slide_img().LoadFile(save(tests::plainPicture({747, 420}, Qt::white), "white.png"));
        // A server that draws the pointer itself brings back what was below it, be it gone meanwhile or not.
        EXPECT_EQ(tests::runToEnd({"xdotool", "mousemove", "5", "5"}), 0);
        tests::settle(200);
        auto& engine = captureEngine.get();
        engine.setFrameRate(24);
        engine.setBitrate(700'000);
        engine.setOutputWidth(capture::kOutputWidth);
        engine.setOutputHeight(capture::kOutputHeight);
        engine.setCaptureCursor(false);
        engine.setFileName(file());
        aimAtTheStage();
    }

    void aimAtTheStage()
    {
        auto& engine = captureEngine.get();
        const auto stage = form.stageRectangle();
        engine.setLeft(stage.left);
        engine.setTop(stage.top);
        engine.setWidth(stage.width);
        engine.setHeight(stage.height);
    }

    std::filesystem::path file() const { return folder.path() / "video.wmv"; }

    void startOnTheStage()
    {
        fields.recordState = "record";
        form.SetTopMost(true);
        time.start(clock.now());
        started = std::chrono::steady_clock::now();
        captureEngine.get().Start();
        Timer2.enable();
        tests::settle(700);
    }

    static forms::FullScreen_frm& dialog()
    {
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<forms::FullScreen_frm*>(widget))
                return *found;
        throw std::runtime_error("there is no dialog");
    }
    static void choose(const char* control)
    {
        dialog().findChild<QAbstractButton*>(QString(control))->click();
    }
    void leaveTheStage(const char* option)
    {
        parts.toolbar_screen();
        EXPECT_TRUE(tests::waitUntil([&] { return dialog().windowHandle()->isExposed(); }));
        tests::settle(300);
        choose(option);
        choose("Command1");
        tests::settle(700);
    }

    /// What the frames show, in their order: 's' only the stage, 'd' only the neighbour, '?' a mixture.
    std::string shots()
    {
        captureEngine.get().Stop();
        if (const char* pictures = std::getenv("QUILLORA_PICTURES"))
            std::filesystem::copy_file(file(), std::filesystem::path(pictures) / "screen_recording.wmv",
                                       std::filesystem::copy_options::overwrite_existing);
        std::string kinds;
        for (const auto& frame : tests::decodeMedia(file()).frames) {
            const auto [darkest, brightest] = std::ranges::minmax(frame.luma);
            const char kind = brightest < 110 ? 'd' : darkest > 150 ? 's' : '?';
            if (kinds.empty() || kinds.back() != kind)
                kinds += kind;
        }
        return kinds;
    }

    tests::NeighbourWindow neighbour{kDark, kDrawsAfterMs};
    session::SessionFields fields{};
    EngineOnThisDisplay engines{};
    session::CaptureEngineField captureEngine{engines};
    session::RecordingClock time{};
    app::SystemWallClock clock{};
    forms::QtTimer Timer2{50ms, [this] { ++ticks; }};
    forms::QtMessageBoxes boxes{form};
    int ticks = 0;
    int hotKeys = 0;
    std::chrono::steady_clock::time_point started{};
    app::ScreenRecordingParts parts{{.fields = fields,
                                     .window = form,
                                     .hints = hints,
                                     .boxes = boxes,
                                     .captureEngine = captureEngine,
                                     .time = time,
                                     .clock = clock,
                                     .Timer2 = Timer2,
                                     .ActivateHotKey = [this] { ++hotKeys; }}};
};

TEST_F(ScreenRecordingOnTheScreen, NoFrameShowsTheRecordersOwnWindowsBesideTheStage)
{
    startOnTheStage();
    leaveTheStage("full_opt");
    parts.ReturnWindow();
    tests::settle(700);
    leaveTheStage("mouse_opt");
    parts.ReturnWindow();
    tests::settle(700);
    EXPECT_EQ(shots(), "sdsds");
    EXPECT_EQ(hotKeys, 2);
}

TEST_F(ScreenRecordingOnTheScreen, IsOneFileWhoseLengthIsThatOfItsSegments)
{
    using Clock = std::chrono::steady_clock;
    // What may pass between the ends of a segment and the readings of the clock beside them; the dialog
    // stands for far longer.
    constexpr double kUnsure = 0.4;
    startOnTheStage();
    const auto left = Clock::now();
    parts.toolbar_screen();
    tests::settle(1500);
    choose("Command1");
    const auto began = Clock::now();
    tests::settle(700);
    const auto returned = Clock::now();
    parts.ReturnWindow();
    const auto back = Clock::now();
    tests::settle(700);
    const auto stopped = Clock::now();
    captureEngine.get().Stop();

    const std::chrono::duration<double> segments = (left - started) + (returned - began) + (stopped - back);
    const auto media = tests::decodeMedia(file());
    EXPECT_EQ(media.errors, 0);
    EXPECT_NEAR(double(media.frames.size()) / 24, segments.count(), kUnsure);
    EXPECT_NEAR(media.soundSeconds(), double(media.frames.size()) / 24, 0.1);
}

TEST_F(ScreenRecordingOnTheScreen, Cancelled_FilmsTheStageAgain)
{
    startOnTheStage();
    parts.toolbar_screen();
    tests::settle(400);
    EXPECT_FALSE(form.isVisible());
    choose("Command2");
    tests::settle(500);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(shots(), "s");
}

TEST_F(ScreenRecordingOnTheScreen, ClosingTheDialogCancelsSinceNothingElseWouldBringTheStageBack)
{
    startOnTheStage();
    parts.toolbar_screen();
    tests::settle(400);
    dialog().close();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(dialog().isVisible());
    parts.toolbar_screen();
    tests::settle(400);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(ScreenRecordingOnTheScreen, TheHotKeyAtAnOpenDialog_ShowsTheFormBesideIt)
{
    startOnTheStage();
    parts.toolbar_screen();
    tests::settle(400);
    parts.ReturnWindow();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(dialog().isVisible());
    const int before = ticks;
    tests::settle(300);
    EXPECT_EQ(ticks, before);
    choose("Command1");
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_TRUE(tests::waitUntil([&] { return ticks > before; }));
}

TEST_F(ScreenRecordingOnTheScreen, TheHotKeyAtAnOpenDialog_DoesNotKeepItsStartFromFilmingTheScreen)
{
    form.move(0, 0);
    tests::settle(200);
    aimAtTheStage();
    startOnTheStage();
    parts.toolbar_screen();
    tests::settle(400);
    parts.ReturnWindow();
    tests::settle(400);
    choose("full_opt");
    choose("Command1");
    tests::settle(700);

    // The form has come back, and is filmed with all that stands beside it.
    const auto kinds = shots();
    EXPECT_EQ(kinds.back(), '?') << kinds;
    const auto last = tests::decodeMedia(file()).frames.back();
    EXPECT_LT(int(last.luma.back()), 110) << "no neighbour in the corner of the screen";
}

TEST_F(ScreenRecordingOnTheScreen, NothingCanBeOrderedWhileTheFormIsAway)
{
    std::vector<std::string> orders;
    const auto hear = [&](const std::string& key) { orders.push_back(key); };
    QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick, &form, hear);
    QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick, &form, hear);
    const auto typeAll = [&] {
        for (const auto* keys : {"ctrl+o", "space", "Next"})
            type(keys);
    };
    typeAll();
    ASSERT_TRUE(tests::waitUntil([&] { return orders.size() == 3; })) << "the keys are orders otherwise";
    orders.clear();

    startOnTheStage();
    leaveTheStage("full_opt");
    typeAll();
    tests::settle(500);
    EXPECT_TRUE(orders.empty()) << orders.front();
    EXPECT_EQ(fields.recordState, "record");
    parts.ReturnWindow();
    tests::settle(300);
    EXPECT_TRUE(orders.empty()) << orders.front();
}

TEST_F(ScreenRecordingOnTheScreen, TheDialogKeepsItsChoiceWhileItIsHidden)
{
    startOnTheStage();
    leaveTheStage("mouse_opt");
    parts.ReturnWindow();
    parts.toolbar_screen();
    tests::settle(300);
    EXPECT_TRUE(dialog().mouse_opt());
    EXPECT_FALSE(dialog().findChild<QAbstractButton*>("full_opt")->isChecked());
    choose("full_opt");
    EXPECT_FALSE(dialog().mouse_opt());
}

TEST_F(ScreenRecordingOnTheScreen, TheDialogTellsWhatBringsTheStageBack)
{
    startOnTheStage();
    parts.toolbar_screen();
    tests::settle(400);
    EXPECT_EQ(dialog().findChild<QLabel*>("Label3")->text(),
              "To stop screen recording and return back click");
    EXPECT_FALSE(dialog().findChild<QLabel*>("Picture1")->pixmap().isNull());
    EXPECT_LT(dialog().findChild<QLabel*>("Picture1")->y(), dialog().findChild<QLabel*>("Label3")->y());
    if (const char* pictures = std::getenv("QUILLORA_PICTURES"))
        probe.grab({0, 0, QUILLORA_TEST_SCREEN_WIDTH, QUILLORA_TEST_SCREEN_HEIGHT})
            .save(QString(pictures) + "/screen_dialog.png");
}

/// The toolkit ends a program whose last window is closed. Hidden is not closed.
TEST_F(ScreenRecordingOnTheScreen, TheRecorderGoesOnWhileItHasNoWindowOnTheScreen)
{
    const QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
    startOnTheStage();
    leaveTheStage("full_opt");
    parts.ReturnWindow();
    parts.toolbar_screen();
    tests::settle(300);
    dialog().close();
    tests::settle(300);
    EXPECT_EQ(lastClosed.count(), 0);
}

TEST_F(ScreenRecordingOnTheScreen, TheFormComesBackToItsPlaceAboveTheOthers)
{
    form.move(180, 140);
    tests::settle(200);
    startOnTheStage();
    const auto stage = form.stageRectangle();
    for (int i = 0; i < 3; ++i) {
        form.setFormVisible(false);
        EXPECT_FALSE(probe.isMapped(window()));
        form.setFormVisible(true);
        EXPECT_TRUE(probe.isMapped(window()));
        EXPECT_EQ(form.stageRectangle(), stage);
    }
    EXPECT_TRUE(tests::waitUntil([&] {
        return std::ranges::count(probe.atomList(window(), "_NET_WM_STATE"), "_NET_WM_STATE_ABOVE") == 1;
    }));
}

TEST_F(ScreenRecordingOnTheScreen, AFormThatIsOnTheScreenStaysUndisturbed)
{
    probe.watchUnmapping(window());
    form.setFormVisible(true);
    form.setFormVisible(true);
    EXPECT_EQ(probe.unmappings(), 0);
}

TEST_F(ScreenRecordingOnTheScreen, AFormThatDoesNotAnswerLooksAsEver)
{
    const QImage before = grabStage();
    form.setFormEnabled(false);
    tests::settle(200);
    EXPECT_EQ(grabStage(), before);
    int clicks = 0;
    QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick, &form,
                     [&](const std::string&) { ++clicks; });
    auto* open = find<QAbstractButton>("main_TB_open");
    QTest::mouseClick(open, Qt::LeftButton);
    open->setFocus();
    QTest::keyClick(open, Qt::Key_Space);
    EXPECT_EQ(clicks, 0);
    form.setFormEnabled(true);
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

} // namespace
