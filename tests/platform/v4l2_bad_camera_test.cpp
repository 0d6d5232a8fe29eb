// Cameras that are busy, are unplugged, hang, come late, or send pictures that are none.

#include "tests/platform/v4l2_fixture.h"

#include <stdexcept>

using namespace quillora;
using namespace std::chrono_literals;
using tests::waitUntil;

namespace {

using BadCamera = tests::V4l2VideoCapTest;

} // namespace

TEST_F(BadCamera, ABusyCameraCannotBeOpened)
{
    script.set("video0", "busy");
    camera.deviceCount();
    EXPECT_THROW(camera.setConnected(true), std::runtime_error);
    EXPECT_FALSE(camera.connected());
    camera.setPreview(true);
    EXPECT_FALSE(frames.take(frame) && !frame.empty());
}

TEST_F(BadCamera, AnUnpluggedCameraIsConnectedNoMore)
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

TEST_F(BadCamera, AnUnpluggedCameraLeavesTheDialogWithoutSettings)
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

TEST_F(BadCamera, ACameraThatHangsWhenItIsAskedDoesNotHideTheOthers)
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

TEST_F(BadCamera, ACameraThatHangsWhenItIsStartedIsGivenUp)
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

TEST_F(BadCamera, ACameraThatOpensLaterShowsItsPicturesThen)
{
    script.set("video0", "stalled-start");
    impatient.deviceCount();
    EXPECT_THROW(impatient.setConnected(true), std::runtime_error);
    impatient.setPreview(true);
    EXPECT_FALSE(impatient.connected());
    script.set("video0", "present");
    EXPECT_TRUE(waitForPicture());
    EXPECT_TRUE(impatient.connected());
}

TEST_F(BadCamera, ACameraThatOpensAfterItWasSwitchedOffIsClosed)
{
    script.set("video0", "stalled-start");
    impatient.deviceCount();
    EXPECT_THROW(impatient.setConnected(true), std::runtime_error);
    impatient.setPreview(true);
    impatient.setConnected(false);
    script.set("video0", "present");
    EXPECT_TRUE(waitUntil([&] { return wasSet("video0", "stop"); }));
    EXPECT_FALSE(impatient.connected());
    EXPECT_FALSE(frames.take(frame) && !frame.empty());
}

TEST_F(BadCamera, DamagedPicturesAreLeftOut)
{
    connect(0);
    ASSERT_TRUE(waitForPicture());
    script.set("video0", "damaged");
    std::this_thread::sleep_for(150ms);
    frames.take(frame);
    std::this_thread::sleep_for(250ms);
    EXPECT_FALSE(frames.take(frame));
    EXPECT_TRUE(camera.connected());
    script.set("video0", "present");
    EXPECT_TRUE(waitForPicture());
}

TEST_F(BadCamera, ACameraThatSendsNoMorePicturesStopsNothing)
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

TEST_F(BadCamera, ACameraThatHangsInASettingKeepsNobodyWaiting)
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

TEST_F(BadCamera, OrdersThatWaitForASlowCameraDoNotAddUp)
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

TEST_F(BadCamera, ClosingInTheMiddleOfOpeningEndsIt)
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

TEST_F(BadCamera, GoesAwayWhileACameraHangs)
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
