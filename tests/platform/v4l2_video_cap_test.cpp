#include "stage/planar_scaler.h"
#include "tests/platform/v4l2_fixture.h"

#include <set>
#include <stdexcept>

using namespace quillora;
using namespace std::chrono_literals;
using stage::CameraSetting;
using tests::V4l2VideoCapTest;
using tests::waitUntil;

namespace {

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
