#include "stage/camera_control.h"

#include "tests/support/fake_camera_panel.h"
#include "tests/support/fake_stage_surfaces.h"
#include "tests/support/fake_video_cap_x.h"
#include "tests/support/stage_world.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillora;
using stage::kBrightness;
using stage::kContrast;
using stage::kHue;
using Calls = std::vector<std::string>;
using Slider = tests::FakeCameraPanel::Slider;

namespace {

class CameraControlTest : public testing::Test {
  protected:
    CameraControlTest()
    {
        camera.names = {"Lecture Camera", "Document Camera"};
        camera.ranges = {
            {kBrightness, {-64, 64, 1, 10}}, {kContrast, {0, 95, 1, 32}}, {kHue, {20, 60, 2, 40}}};
    }

    Slider slider(int i) const { return panel.sliders.at(std::size_t(i)); }
    void moveSlider(int i, int value)
    {
        panel.sliders.at(std::size_t(i)).value = value;
        control.Slider1_Change(i);
    }
    void check(int i, bool checked)
    {
        panel.sliders.at(std::size_t(i)).checked = checked;
        control.Check1_Click(i);
    }
    void choose(int index)
    {
        panel.listIndex = index;
        control.Combo1_Click();
    }

    tests::CallLog log;
    session::SessionFields fields;
    tests::FakeVideoCapX camera{log};
    tests::FakeCameraPanel panel{log};
    tests::FakeStageSurfaces surfaces{log};
    stage::CameraControl control{{.fields = fields,
                                  .camera = camera,
                                  .VideoCap1_back = surfaces.VideoCap1_back,
                                  .panel = panel,
                                  .checkCamIcon = [this] { log.add("checkCamIcon"); }}};
};

/// The switch and the real stage.
class CameraOnTheStage : public tests::StageWorld {
  protected:
    CameraOnTheStage() { device.names = {"Lecture Camera"}; }

    tests::FakeVideoCapX device{log};
    tests::FakeCameraPanel panel{log};
    stage::StageLayout layoutOfDevice{{fields, stageFields, window, slides, pane, device, on.all}};
    stage::StageCommands buttons{
        {fields, stageFields, window, selection, layoutOfDevice, on.all, operations}};
    stage::CameraControl control{{.fields = fields,
                                  .camera = device,
                                  .VideoCap1_back = on.VideoCap1_back,
                                  .panel = panel,
                                  .checkCamIcon = [this] { layoutOfDevice.checkCamIcon(); }}};
};

} // namespace

TEST_F(CameraOnTheStage, InACorner_IsStoodInForByAPictureInTheMiddleOfItsFrameWhileItIsOff)
{
    control.Option6_Click();
    buttons.Picture22_Click();
    EXPECT_EQ(shown(), (Calls{"slide_img_back", "VideoCap1_back"}));
    control.Option5_Click();
    EXPECT_EQ(shown(), (Calls{"slide_img_back", "VideoCap1_back", "cam_icon_trans_s"}));
    EXPECT_EQ(on.cam_icon_trans_s.place, (base::TwipRectangle{{1025}, {4940}, {750}, {570}}));
    EXPECT_EQ(on.order.back(), "cam_icon_trans_s");
    control.Option6_Click();
    EXPECT_EQ(shown(), (Calls{"slide_img_back", "VideoCap1_back"}));
}

TEST_F(CameraControlTest, SwitchingOnWithTwoCamerasListsBothAndConnectsTheFirst)
{
    control.Option6_Click();
    EXPECT_EQ(panel.lines, (Calls{"Cam 1: Lecture Camera", "Cam 2: Document Camera"}));
    EXPECT_EQ(panel.listIndex, 0);
    EXPECT_TRUE(camera.isConnected);
    EXPECT_EQ(camera.deviceIndex, 0);
    EXPECT_TRUE(camera.preview);
    EXPECT_TRUE(surfaces.VideoCap1_back.shown);
    EXPECT_TRUE(control.camShapeVisible());
    EXPECT_TRUE(panel.settingsShown);
}

TEST_F(CameraControlTest, SwitchingOnKeepsItsOrder)
{
    control.Option6_Click();
    EXPECT_EQ(log.calls,
              (Calls{"Combo1 cleared", "Combo1 at 0", "camera.device 0", "camera.input 0",
                     "camera.standard 0", "camera.connect", "camera.preview on", "camera.preview on",
                     "VideoCap1_back shown", "Label14 shown", "checkCamIcon"}));
}

TEST_F(CameraControlTest, SwitchingOnAgainListsAnew)
{
    control.Option6_Click();
    camera.names = {"Other"};
    control.Option6_Click();
    EXPECT_EQ(panel.lines, Calls{"Cam 1: Other"});
}

TEST_F(CameraControlTest, SwitchingOffKeepsItsOrderAndLeavesTheFrameOnTheStage)
{
    control.Option6_Click();
    log.clear();
    control.Option5_Click();
    EXPECT_EQ(log.calls, (Calls{"camera.disconnect", "VideoCap1_back shown", "Combo1 cleared",
                                "Label14 hidden", "checkCamIcon"}));
    EXPECT_FALSE(camera.isConnected);
    EXPECT_FALSE(control.camShapeVisible());
    EXPECT_TRUE(surfaces.VideoCap1_back.shown);
    EXPECT_TRUE(panel.lines.empty());
}

TEST_F(CameraControlTest, ClosingShowsTheFrameEvenWhereTheModeHidesIt)
{
    control.CloseCam();
    EXPECT_TRUE(surfaces.VideoCap1_back.shown);
    EXPECT_EQ(log.count("checkCamIcon"), 0);
}

TEST_F(CameraControlTest, WithoutAnyDeviceTheSwitchSaysOnWhileNothingIsConnected)
{
    camera.names.clear();
    control.Option6_Click();
    EXPECT_TRUE(panel.lines.empty());
    EXPECT_EQ(panel.listIndex, -1);
    EXPECT_FALSE(camera.isConnected);
    EXPECT_EQ(log.count("camera.connect"), 0);
    EXPECT_TRUE(control.camShapeVisible());
    EXPECT_TRUE(panel.settingsShown);
    EXPECT_TRUE(surfaces.VideoCap1_back.shown);
    EXPECT_EQ(log.count("checkCamIcon"), 1);
}

TEST_F(CameraControlTest, DevicesThatCannotBeListedAreLikeNone)
{
    camera.failing.names = {"deviceCount"};
    control.Option6_Click();
    EXPECT_TRUE(panel.lines.empty());
    EXPECT_TRUE(panel.settingsShown);
}

TEST_F(CameraControlTest, ChoosingADeviceDisconnectsTheOneBefore)
{
    control.Option6_Click();
    log.clear();
    choose(1);
    EXPECT_EQ(log.calls, (Calls{"camera.disconnect", "camera.device 1", "camera.input 0", "camera.standard 0",
                                "camera.connect", "camera.preview on"}));
    EXPECT_EQ(camera.deviceIndex, 1);
}

TEST_F(CameraControlTest, ChoosingADeviceWhileNoneIsConnectedDisconnectsNothing)
{
    choose(1);
    EXPECT_EQ(log.count("camera.disconnect"), 0);
    EXPECT_EQ(log.count("camera.connect"), 1);
}

TEST_F(CameraControlTest, ADeviceThatCannotBeOpenedLeavesFrameAndPictureAsTheyAre)
{
    control.Option6_Click();
    log.clear();
    camera.failing.names = {"setConnected"};
    choose(1);
    EXPECT_FALSE(camera.isConnected);
    EXPECT_EQ(log.count("checkCamIcon"), 0);
    EXPECT_TRUE(log.startingWith("VideoCap1_back").empty());
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(slider(i).enabled) << i;
}

TEST_F(CameraControlTest, SlidersBeginAtZeroWhateverTheDevicesMinimum)
{
    control.Option6_Click();
    EXPECT_EQ(slider(kBrightness), (Slider{true, 0, 128, 74, false}));
    EXPECT_EQ(slider(kContrast), (Slider{true, 0, 95, 32, false}));
    EXPECT_EQ(slider(kHue), (Slider{true, 0, 40, 20, false}));
}

TEST_F(CameraControlTest, ConnectingSetsNoControlOfTheDevice)
{
    control.Option6_Click();
    EXPECT_TRUE(log.startingWith("camera.value").empty());
}

TEST_F(CameraControlTest, AControlThatTheDeviceLacksDisablesItsSliderOnly)
{
    camera.ranges.erase(kHue);
    control.Option6_Click();
    EXPECT_FALSE(slider(kHue).enabled);
    EXPECT_TRUE(slider(kBrightness).enabled);
    EXPECT_TRUE(slider(kContrast).enabled);
}

TEST_F(CameraControlTest, AControlThatComesBackEnablesItsSlider)
{
    camera.ranges.erase(kHue);
    control.Option6_Click();
    camera.ranges[kHue] = {0, 10, 1, 5};
    choose(1);
    EXPECT_EQ(slider(kHue), (Slider{true, 0, 10, 5, false}));
}

TEST_F(CameraControlTest, RangesThatCannotBeReadDisableTheSliders)
{
    camera.failing.names = {"videoControlRange"};
    control.Option6_Click();
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(slider(i).enabled) << i;
}

TEST_F(CameraControlTest, ARangeOfAllNumbersFitsTheSlider)
{
    camera.ranges[kHue] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 1, 0};
    control.Option6_Click();
    EXPECT_EQ(slider(kHue).maximum, std::numeric_limits<int>::max());
}

TEST_F(CameraControlTest, ChoosingADeviceClearsTheAutomaticBoxes)
{
    control.Option6_Click();
    check(kHue, true);
    camera.ranges.erase(kContrast);
    panel.sliders[kContrast].checked = true;
    choose(0);
    EXPECT_FALSE(slider(kHue).checked);
    EXPECT_FALSE(slider(kContrast).checked);
}

TEST_F(CameraControlTest, ASliderWritesItsPositionWithoutTheDevicesMinimum)
{
    control.Option6_Click();
    log.clear();
    moveSlider(kBrightness, 70);
    moveSlider(kHue, 5);
    EXPECT_EQ(log.calls, (Calls{"camera.value 0 70", "camera.value 2 5"}));
}

TEST_F(CameraControlTest, TheAutomaticModeIsAskedForByTheNegatedIndex)
{
    control.Option6_Click();
    log.clear();
    check(kContrast, true);
    check(kHue, true);
    EXPECT_EQ(log.calls, (Calls{"camera.value -1 0", "camera.value -2 0"}));
    EXPECT_FALSE(slider(kContrast).enabled);
    EXPECT_FALSE(slider(kHue).enabled);
}

TEST_F(CameraControlTest, TheAutomaticModeOfTheFirstControlSetsItToZero)
{
    control.Option6_Click();
    log.clear();
    check(kBrightness, true);
    EXPECT_EQ(log.calls, Calls{"camera.value 0 0"});
    EXPECT_FALSE(slider(kBrightness).enabled);
}

TEST_F(CameraControlTest, LeavingTheAutomaticModeRestoresTheDevicesValueFromTagAndSlider)
{
    control.Option6_Click();
    check(kBrightness, true);
    log.clear();
    check(kBrightness, false);
    EXPECT_EQ(log.calls, Calls{"camera.value 0 10"});
    EXPECT_TRUE(slider(kBrightness).enabled);
    check(kHue, false);
    EXPECT_EQ(log.calls.back(), "camera.value 2 40");
}

TEST_F(CameraControlTest, WithoutATagTheSliderAloneIsTheValue)
{
    panel.sliders[kHue].value = 7;
    check(kHue, false);
    EXPECT_EQ(log.calls, Calls{"camera.value 2 7"});
}

TEST_F(CameraControlTest, ADeviceThatRefusesTheAutomaticModeStillHasItsSliderFollowTheBox)
{
    control.Option6_Click();
    camera.failing.names = {"setVideoControlValue"};
    check(kContrast, true);
    EXPECT_FALSE(slider(kContrast).enabled);
    check(kContrast, false);
    EXPECT_TRUE(slider(kContrast).enabled);
}

TEST_F(CameraControlTest, SettingsAreShownExceptWhileRecording)
{
    control.Option6_Click();
    log.clear();
    fields.recordState = "record";
    control.Label14_Click();
    EXPECT_TRUE(log.calls.empty());
    for (const char* state : {"stop", "pause"}) {
        fields.recordState = state;
        control.Label14_Click();
    }
    EXPECT_EQ(log.count("camera.settings"), 2);
}

TEST_F(CameraControlTest, SettingsThatCannotBeShownEndTheCommandSilently)
{
    camera.failing.names = {"showSettings"};
    EXPECT_NO_THROW(control.Label14_Click());
}

TEST_F(CameraControlTest, ClosingAFailingCameraStillLeavesABlackFrameAndAnEmptyList)
{
    control.Option6_Click();
    surfaces.VideoCap1_back.failing.names = {"setVisible"};
    control.Option5_Click();
    EXPECT_TRUE(panel.lines.empty());
    EXPECT_FALSE(panel.settingsShown);
}

TEST_F(CameraControlTest, IsNotTouchedByARecording)
{
    control.Option6_Click();
    fields.recordState = "record";
    choose(1);
    moveSlider(kContrast, 4);
    EXPECT_TRUE(camera.preview);
    EXPECT_EQ(log.calls.back(), "camera.value 1 4");
    control.Option5_Click();
    EXPECT_FALSE(camera.isConnected);
}
