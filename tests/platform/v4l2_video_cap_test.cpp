#include "stage/platform/v4l2/v4l2_video_cap.h"

#include "stage/planar_scaler.h"
#include "tests/support/fake_camera/fake_camera_script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <set>
#include <thread>

using namespace quillora;
using namespace std::chrono_literals;
using stage::CameraSetting;

namespace {

bool waitUntil(const std::function<bool()>& done)
{
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

/// Does what a test puts into it while it is "open".
class FakeSettingsDialog : public stage::CameraSettingsDialog {
  public:
    std::function<void(stage::CameraSettings&)> whileOpen = [](auto&) {};

    void showModal(stage::CameraSettings& camera) override { whileOpen(camera); }
};

class V4l2VideoCapTest : public testing::Test {
  protected:
    ~V4l2VideoCapTest() override
    {
        // What a test has stalled must not outlive it.
        for (const char* device : {"video0", "video1", "video2"})
            script.set(device, "present");
    }

    void connect(int index)
    {
        camera.deviceCount();
        camera.setDeviceIndex(index);
        camera.setConnected(true);
        camera.setPreview(true);
    }

    /// The next picture that is not empty.
    bool waitForPicture()
    {
        return waitUntil([&] { return frames.take(frame) && !frame.empty(); });
    }

    std::uint32_t pixel(int x, int y) const { return frame.pixels.at(std::size_t(y * frame.width + x)); }

    void expectColour(int x, int y, int red, int green, int blue)
    {
        const std::uint32_t got = pixel(x, y);
        EXPECT_NEAR(got >> 16 & 0xFF, red, 12) << x << ',' << y;
        EXPECT_NEAR(got >> 8 & 0xFF, green, 12) << x << ',' << y;
        EXPECT_NEAR(got & 0xFF, blue, 12) << x << ',' << y;
    }

    bool wasSet(const char* device, const std::string& line) const
    {
        const auto log = script.log(device);
        return std::ranges::find(log, line) != log.end();
    }

    tests::FakeCameraScript script;
    stage::NewestFrame frames;
    stage::CameraFrame frame;
    FakeSettingsDialog dialog;
    int turns = 0;
    // As long as a busy machine may take.
    stage::V4l2VideoCap camera{{.frames = frames,
                                .dialog = dialog,
                                .patience = {.longest = 20s, .letEventsThrough = [this] { ++turns; }}}};
    // For devices that never answer.
    stage::V4l2VideoCap impatient{{.frames = frames,
                                   .dialog = dialog,
                                   .patience = {.longest = 1500ms, .letEventsThrough = [this] { ++turns; }}}};
};

const CameraSetting* find(const std::vector<CameraSetting>& settings, const std::string& name)
{
    const auto found = std::ranges::find(settings, name, &CameraSetting::name);
    return found == settings.end() ? nullptr : &*found;
}

} // namespace

TEST_F(V4l2VideoCapTest, ListsTheCamerasWithoutTheNodesThatCarryNoPictures)
{
    ASSERT_EQ(camera.deviceCount(), 2);
    EXPECT_EQ(camera.deviceName(0), "Lecture Camera");
    EXPECT_EQ(camera.deviceName(1), "Document Camera");
    EXPECT_THROW(camera.deviceName(2), std::out_of_range);
}

TEST_F(V4l2VideoCapTest, FindsNoCameraOnAMachineWithoutOne)
{
    for (const char* device : {"video0", "video1", "video2"})
        script.set(device, "absent");
    EXPECT_EQ(camera.deviceCount(), 0);
    EXPECT_THROW(camera.setConnected(true), std::runtime_error);
    EXPECT_FALSE(camera.connected());
    EXPECT_EQ(camera.videoControlRange(0), std::nullopt);
}

TEST_F(V4l2VideoCapTest, FindsACameraThatIsPluggedInLater)
{
    script.set("video0", "absent");
    EXPECT_EQ(camera.deviceCount(), 1);
    script.set("video0", "present");
    EXPECT_EQ(camera.deviceCount(), 2);
}

TEST_F(V4l2VideoCapTest, ShowsPicturesOfACameraThatSendsMotionJpeg)
{
    connect(0);
    EXPECT_TRUE(camera.connected());
    ASSERT_TRUE(waitForPicture());
    ASSERT_EQ(frame.width, 640);
    ASSERT_EQ(frame.height, 480);
    expectColour(30, 30, 255, 0, 0);
    expectColour(610, 30, 0, 255, 0);
    expectColour(30, 450, 0, 0, 255);
    expectColour(610, 450, 255, 255, 255);
    expectColour(320, 40, 38, 120, 128);
}

TEST_F(V4l2VideoCapTest, ShowsPicturesOfACameraThatSendsYuyv)
{
    connect(1);
    ASSERT_TRUE(waitForPicture());
    expectColour(30, 30, 255, 0, 0);
    expectColour(610, 30, 0, 255, 0);
    expectColour(30, 450, 0, 0, 255);
    expectColour(610, 450, 255, 255, 255);
    expectColour(320, 40, 208, 122, 46);
}

TEST_F(V4l2VideoCapTest, PicturesMove)
{
    connect(0);
    std::set<std::uint32_t> seen;
    EXPECT_TRUE(waitUntil([&] {
        if (frames.take(frame) && !frame.empty())
            for (int phase = 0; phase < 4; ++phase)
                if ((pixel(120 + phase * 110, 120) >> 16 & 0xFF) > 230)
                    seen.insert(std::uint32_t(phase));
        return seen.size() >= 3;
    }));
}

TEST_F(V4l2VideoCapTest, ShowsNothingUntilThePreviewIsOn)
{
    camera.deviceCount();
    camera.setConnected(true);
    std::this_thread::sleep_for(150ms);
    EXPECT_FALSE(frames.take(frame) && !frame.empty());
    camera.setPreview(true);
    EXPECT_TRUE(waitForPicture());
}

TEST_F(V4l2VideoCapTest, SparesThePicturesThatNobodySees)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    frames.setRoom({});
    std::this_thread::sleep_for(100ms);
    frames.take(frame);
    std::this_thread::sleep_for(150ms);
    EXPECT_FALSE(frames.take(frame));
    frames.setRoom({640, 480});
    EXPECT_TRUE(waitForPicture());
}

TEST_F(V4l2VideoCapTest, MakesThePicturesFitTheirRoom)
{
    connect(0);
    for (const stage::FrameSize room : {stage::FrameSize{747, 420}, {173, 130}, {2000, 2000}}) {
        frames.setRoom(room);
        const stage::FrameSize expected = stage::fitted({640, 480}, room);
        ASSERT_TRUE(waitUntil([&] { return waitForPicture() && frame.width == expected.width; }))
            << room.width;
        EXPECT_EQ(frame.height, expected.height);
    }
}

TEST_F(V4l2VideoCapTest, TellsTheRangesOfThePictureControls)
{
    connect(0);
    EXPECT_EQ(camera.videoControlRange(0), (stage::VideoControlRange{-64, 64, 1, 0}));
    EXPECT_EQ(camera.videoControlRange(1), (stage::VideoControlRange{0, 95, 1, 32}));
    EXPECT_EQ(camera.videoControlRange(2), (stage::VideoControlRange{-40, 40, 1, 0}));
    EXPECT_THROW(camera.videoControlRange(3), std::out_of_range);
}

TEST_F(V4l2VideoCapTest, LacksAControlThatTheDeviceLacks)
{
    connect(1);
    EXPECT_EQ(camera.videoControlRange(1), (stage::VideoControlRange{10, 200, 1, 100}));
    EXPECT_EQ(camera.videoControlRange(2), std::nullopt);
    EXPECT_THROW(camera.setVideoControlValue(2, 5), std::runtime_error);
}

TEST_F(V4l2VideoCapTest, SetsAPictureControlWithinItsRange)
{
    connect(1);
    camera.setVideoControlValue(1, 150);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video2", "Contrast=150"); }));
    EXPECT_EQ(camera.videoControlRange(1)->current, 150);
    camera.setVideoControlValue(1, 0);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video2", "Contrast=10"); }));
}

TEST_F(V4l2VideoCapTest, ANegatedIndexAsksForTheAutomaticModeAndAValueEndsIt)
{
    connect(0);
    camera.setVideoControlValue(-2, 0);
    camera.setVideoControlValue(2, 17);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "Hue=17"); }));
    camera.setVideoControlValue(-2, 0);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "Hue, Automatic=1"); }));
    camera.setVideoControlValue(2, -9);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "Hue=-9"); }));
}

TEST_F(V4l2VideoCapTest, AnIndexWithoutAutomaticModeFails)
{
    connect(0);
    EXPECT_THROW(camera.setVideoControlValue(-1, 0), std::runtime_error);
}

TEST_F(V4l2VideoCapTest, TheNegatedZeroIsTheZero)
{
    connect(1);
    camera.setVideoControlValue(-0, 0);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video2", "Brightness=0"); }));
}

TEST_F(V4l2VideoCapTest, OffersAllSettingsOfTheDeviceToTheDialog)
{
    connect(0);
    dialog.whileOpen = [](stage::CameraSettings& settings) {
        const auto all = settings.settings();
        EXPECT_EQ(all.size(), 11U);
        ASSERT_NE(find(all, "Saturation"), nullptr);
        EXPECT_EQ(find(all, "Saturation")->kind, CameraSetting::Kind::number);
        ASSERT_NE(find(all, "White Balance, Automatic"), nullptr);
        EXPECT_EQ(find(all, "White Balance, Automatic")->kind, CameraSetting::Kind::onOff);
        ASSERT_NE(find(all, "Pan, Reset"), nullptr);
        EXPECT_EQ(find(all, "Pan, Reset")->kind, CameraSetting::Kind::button);
        ASSERT_NE(find(all, "Auto Exposure"), nullptr);
        EXPECT_EQ(find(all, "Auto Exposure")->entries,
                  (std::vector<CameraSetting::MenuEntry>{{1, "Manual Mode"}, {3, "Aperture Priority Mode"}}));
        ASSERT_NE(find(all, "White Balance Temperature"), nullptr);
        EXPECT_FALSE(find(all, "White Balance Temperature")->changeable);
    };
    camera.showSettings();
}

TEST_F(V4l2VideoCapTest, ASettingThatFreesAnotherShowsIt)
{
    connect(0);
    dialog.whileOpen = [](stage::CameraSettings& settings) {
        settings.changeSetting(find(settings.settings(), "White Balance, Automatic")->id, 0);
        EXPECT_TRUE(waitUntil([&] {
            const auto all = settings.settings();
            const auto* temperature = find(all, "White Balance Temperature");
            return temperature && temperature->changeable;
        }));
    };
    camera.showSettings();
}

TEST_F(V4l2VideoCapTest, ASettingThatTheDeviceRefusesIsReadAgain)
{
    connect(0);
    dialog.whileOpen = [](stage::CameraSettings& settings) {
        settings.changeSetting(find(settings.settings(), "White Balance, Automatic")->id, 1);
        settings.changeSetting(find(settings.settings(), "White Balance Temperature")->id, 3000);
        EXPECT_TRUE(
            waitUntil([&] { return find(settings.settings(), "White Balance Temperature")->value == 4600; }));
    };
    camera.showSettings();
}

TEST_F(V4l2VideoCapTest, HasNoSettingsToShowWithoutACamera)
{
    dialog.whileOpen = [](auto&) { ADD_FAILURE() << "a dialog was shown"; };
    EXPECT_THROW(camera.showSettings(), std::runtime_error);
}

TEST_F(V4l2VideoCapTest, CanBeClosedAndOpenedAgainAtOnce)
{
    connect(0);
    for (int i = 0; i < 5; ++i) {
        camera.setConnected(false);
        EXPECT_FALSE(camera.connected());
        camera.setConnected(true);
        EXPECT_TRUE(camera.connected());
    }
    camera.setPreview(true);
    EXPECT_TRUE(waitForPicture());
}

TEST_F(V4l2VideoCapTest, TurnsTheSurfaceBlackWhenItIsClosed)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    camera.setConnected(false);
    ASSERT_TRUE(frames.take(frame));
    EXPECT_TRUE(frame.empty());
    std::this_thread::sleep_for(150ms);
    EXPECT_FALSE(frames.take(frame));
}

TEST_F(V4l2VideoCapTest, ChangesFromOneCameraToTheOther)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    camera.setConnected(false);
    frames.take(frame);
    camera.setDeviceIndex(1);
    camera.setConnected(true);
    camera.setPreview(true);
    ASSERT_TRUE(waitForPicture());
    expectColour(320, 40, 208, 122, 46);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "stop"); }));
}

TEST_F(V4l2VideoCapTest, ABusyCameraCannotBeOpened)
{
    script.set("video0", "busy");
    camera.deviceCount();
    EXPECT_THROW(camera.setConnected(true), std::runtime_error);
    EXPECT_FALSE(camera.connected());
    camera.setPreview(true);
    EXPECT_FALSE(frames.take(frame) && !frame.empty());
}

TEST_F(V4l2VideoCapTest, AnUnpluggedCameraIsConnectedNoMore)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    script.set("video0", "unplugged");
    EXPECT_TRUE(waitUntil([&] { return !camera.connected(); }));
    EXPECT_TRUE(waitUntil([&] { return frames.take(frame) && frame.empty(); }));
    EXPECT_THROW(camera.setVideoControlValue(0, 5), std::runtime_error);
    EXPECT_EQ(camera.videoControlRange(0), std::nullopt);
    camera.setConnected(false);
    script.set("video0", "present");
    connect(0);
    EXPECT_TRUE(waitForPicture());
}

TEST_F(V4l2VideoCapTest, AnUnpluggedCameraLeavesTheDialogWithoutSettings)
{
    connect(0);
    dialog.whileOpen = [&](stage::CameraSettings& settings) {
        EXPECT_FALSE(settings.settings().empty());
        script.set("video0", "unplugged");
        EXPECT_TRUE(waitUntil([&] { return settings.settings().empty(); }));
        settings.changeSetting(1, 1);
        settings.refreshSettings();
    };
    camera.showSettings();
}

TEST_F(V4l2VideoCapTest, ACameraThatHangsWhenItIsAskedDoesNotHideTheOthers)
{
    script.set("video0", "stalled-open");
    ASSERT_EQ(impatient.deviceCount(), 1);
    EXPECT_EQ(impatient.deviceName(0), "Document Camera");
    EXPECT_GT(turns, 0) << "the window stood still";
    // It is not asked again, so that threads that hang do not add up.
    turns = 0;
    EXPECT_EQ(impatient.deviceCount(), 1);
    EXPECT_EQ(turns, 0);
    script.set("video0", "present");
    EXPECT_TRUE(waitUntil([&] { return impatient.deviceCount() == 2; }));
}

TEST_F(V4l2VideoCapTest, ACameraThatHangsWhenItIsStartedIsGivenUp)
{
    script.set("video0", "stalled-start");
    impatient.deviceCount();
    EXPECT_THROW(impatient.setConnected(true), std::runtime_error);
    EXPECT_GT(turns, 0) << "the window stood still";
    EXPECT_FALSE(impatient.connected());
    // Still hanging: it is not begun anew.
    EXPECT_THROW(impatient.setConnected(true), std::runtime_error);
    EXPECT_EQ(std::ranges::count(script.log("video0"), "start"), 0);
    // The other one can be used meanwhile.
    impatient.setDeviceIndex(1);
    impatient.setConnected(true);
    EXPECT_TRUE(impatient.connected());
    script.set("video0", "present");
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "stop"); }));
    impatient.setDeviceIndex(0);
    impatient.setConnected(true);
    EXPECT_TRUE(impatient.connected());
}

TEST_F(V4l2VideoCapTest, ACameraThatSendsNoMorePicturesStopsNothing)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    script.set("video0", "stalled-frames");
    std::this_thread::sleep_for(100ms);
    frames.take(frame);
    EXPECT_TRUE(camera.connected());
    camera.setVideoControlValue(0, 3);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "Brightness=3"); }));
    script.set("video0", "present");
    EXPECT_TRUE(waitForPicture());
    script.set("video0", "stalled-frames");
    camera.setConnected(false);
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "stop"); }));
}

TEST_F(V4l2VideoCapTest, ACameraThatHangsInASettingKeepsNobodyWaiting)
{
    connect(0);
    script.set("video0", "stalled-settings");
    turns = 0;
    for (int i = 0; i < 1000; ++i)
        camera.setVideoControlValue(0, i % 60);
    EXPECT_EQ(turns, 0);
    camera.setConnected(false);
    EXPECT_FALSE(camera.connected());
    camera.setDeviceIndex(1);
    camera.setConnected(true);
    EXPECT_TRUE(camera.connected());
}

TEST_F(V4l2VideoCapTest, OrdersThatWaitForASlowCameraDoNotAddUp)
{
    connect(0);
    script.set("video0", "stalled-settings");
    for (int i = 0; i <= 50; ++i)
        camera.setVideoControlValue(0, i);
    script.set("video0", "present");
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "Brightness=50"); }));
    EXPECT_LE(std::ranges::count_if(script.log("video0"),
                                    [](const auto& line) { return line.starts_with("Brightness"); }),
              4);
}

TEST_F(V4l2VideoCapTest, ClosingInTheMiddleOfOpeningEndsIt)
{
    script.set("video0", "stalled-start");
    stage::V4l2VideoCap* self = nullptr;
    stage::V4l2VideoCap closing{
        {.frames = frames, .dialog = dialog, .patience = {.longest = 20s, .letEventsThrough = [&] {
                                                              self->setConnected(false);
                                                          }}}};
    self = &closing;
    closing.deviceCount();
    EXPECT_THROW(closing.setConnected(true), std::runtime_error);
    EXPECT_FALSE(closing.connected());
    script.set("video0", "present");
}

TEST_F(V4l2VideoCapTest, GoesAwayWhileACameraHangs)
{
    {
        stage::V4l2VideoCap other{{.frames = frames, .dialog = dialog}};
        other.deviceCount();
        other.setConnected(true);
        other.setPreview(true);
        script.set("video0", "stalled-settings");
        other.setVideoControlValue(0, 4);
        std::this_thread::sleep_for(50ms);
    }
    frames.take(frame);
    script.set("video0", "present");
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "stop"); }));
    EXPECT_FALSE(frames.take(frame));
}
