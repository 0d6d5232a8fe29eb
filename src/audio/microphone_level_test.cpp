#include "audio/microphone_level.h"

#include "tests/support/fake_microphone_controls.h"
#include "tests/support/fake_mixer.h"
#include "tests/support/fake_wave_input.h"
#include "tests/support/hooked_windows.h"

#include <gtest/gtest.h>

using namespace quillora::audio;
using namespace quillora::tests;

namespace {

using List = MicrophoneControls::List;
using Texts = std::vector<std::string>;

class MicrophoneLevelTest : public testing::Test {
  protected:
    MicrophoneLevelTest()
    {
        form.onClick = [this](List list) {
            if (list == List::cboDev)
                dialog.cboDev_Click();
            else
                dialog.cboRecLine_Click();
        };
        input.devices = {"Webcam", "Headset"};
        mixer.lines = {{"Front microphone"}, {"Line", line_type::kLineIn}};
        mixer.items = {0, 1};
    }

    HookedWindows world;
    FakeWaveInput input{world.log, world.windows};
    FakeMixer mixer{world.log};
    FakeMicrophoneControls form;
    int recorders = 0;
    MicrophoneLevel dialog{{.form = form, .boxes = world.boxes, .newRecorder = [this] {
                                ++recorders;
                                return std::make_unique<WaveInRecorder>(
                                    WaveInRecorder::Ports{input, mixer, world.windows, world.ports()});
                            }}};
};

} // namespace

TEST_F(MicrophoneLevelTest, LoadsOnlyWhenItIsAskedFor)
{
    EXPECT_EQ(recorders, 0);
    dialog.load();
    dialog.load();
    dialog.lblVolPer();
    EXPECT_EQ(recorders, 1);
}

TEST_F(MicrophoneLevelTest, LoadShowsDevicesLinesAndTheVolumeOfTheLineInUse)
{
    mixer.lines[0].volumes = {32768, 32768};
    dialog.load();
    EXPECT_EQ(form.items(List::cboDev), (Texts{"Webcam", "Headset"}));
    EXPECT_EQ(form.listIndex(List::cboDev), 0);
    EXPECT_EQ(form.items(List::cboRecLine), (Texts{"Front microphone", "Line"}));
    EXPECT_EQ(form.listIndex(List::cboRecLine), 0);
    EXPECT_EQ(form.slider, 32768);
    EXPECT_EQ(form.label, "50%");
    EXPECT_EQ(form.devices, MicrophoneControls::Devices::some);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(MicrophoneLevelTest, ReadingTheLabelLoads)
{
    mixer.lines[0].volumes = {58981, 58981};
    EXPECT_EQ(dialog.lblVolPer(), "89%");
}

TEST_F(MicrophoneLevelTest, LoadWritesWhatItReadBackToBothChannels)
{
    mixer.lines[0].volumes = {40000, 50000};
    dialog.load();
    EXPECT_EQ(mixer.lines[0].volumes, (std::vector<std::uint32_t>{40000, 40000}));
}

TEST_F(MicrophoneLevelTest, PercentIsCutOff)
{
    dialog.load();
    const std::pair<int, std::string> cases[] = {
        {0, "0%"}, {655, "0%"}, {656, "1%"}, {58981, "89%"}, {58982, "90%"}, {65534, "99%"}, {65535, "100%"}};
    for (const auto& [value, text] : cases) {
        form.slider = value;
        dialog.sldVol_Scroll();
        EXPECT_EQ(form.label, text);
        EXPECT_EQ(mixer.lines[0].volumes, std::vector<std::uint32_t>(2, static_cast<std::uint32_t>(value)));
    }
}

TEST_F(MicrophoneLevelTest, ClickOnTheSliderDoesWhatScrollingDoes)
{
    dialog.load();
    form.slider = 1000;
    dialog.sldVol_Click();
    EXPECT_EQ(form.label, "1%");
    EXPECT_EQ(mixer.lines[0].volumes[0], 1000U);
}

TEST_F(MicrophoneLevelTest, ChoosingALineUsesItAndShowsItsVolume)
{
    mixer.lines[1].volumes = {6554, 6554};
    dialog.load();
    form.setListIndex(List::cboRecLine, 1);
    EXPECT_EQ(mixer.items, (std::vector<std::uint32_t>{1, 0}));
    EXPECT_EQ(form.slider, 6554);
    EXPECT_EQ(form.label, "10%");
}

TEST_F(MicrophoneLevelTest, ChoosingADeviceRefillsTheLines)
{
    dialog.load();
    mixer.lines = {{"Boom"}};
    mixer.items = {1};
    form.setListIndex(List::cboDev, 1);
    EXPECT_EQ(world.log.count("mixerOpen 1"), 1);
    EXPECT_EQ(form.items(List::cboRecLine), Texts{"Boom"});
    EXPECT_EQ(form.listIndex(List::cboRecLine), 0);
}

TEST_F(MicrophoneLevelTest, SaysWhenADeviceCannotBeSelected)
{
    dialog.load();
    form.slider = 777;
    form.label = "1%";
    mixer.deadDevices = {1};
    form.setListIndex(List::cboDev, 1);
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].text, "Couldn't select device!");
    EXPECT_EQ(world.boxes.shown[0].title, "Quillora");
    EXPECT_EQ(world.boxes.shown[0].icon, quillora::base::BoxIcon::warning);
    EXPECT_EQ(world.boxes.shown[0].buttons, quillora::base::BoxButtons::ok);
    EXPECT_TRUE(form.items(List::cboRecLine).empty());
    EXPECT_EQ(form.slider, 777);
    EXPECT_EQ(form.label, "1%");
}

TEST_F(MicrophoneLevelTest, KeepsItsDesignedTextWhenTheMixerDoesNotOpen)
{
    mixer.deadDevices = {0};
    EXPECT_EQ(dialog.lblVolPer(), "100%");
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(dialog.lblVolPer(), "100%");
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

TEST_F(MicrophoneLevelTest, SaysWhenALineCannotBeSelectedAndGoesOn)
{
    mixer.hasMultiplexer = false;
    mixer.lines[1].volumes = {65535, 65535};
    dialog.load();
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].text, "Couldn't select mixer line!");
    EXPECT_EQ(world.boxes.shown[0].title, "Quillora");
    EXPECT_EQ(world.boxes.shown[0].icon, quillora::base::BoxIcon::warning);
    EXPECT_EQ(world.boxes.shown[0].buttons, quillora::base::BoxButtons::ok);
    EXPECT_EQ(form.label, "100%");
    EXPECT_EQ(form.slider, 65535);
}

TEST_F(MicrophoneLevelTest, DeviceWithoutLinesHasNoLevel)
{
    mixer.hasWaveIn = false;
    dialog.load();
    EXPECT_TRUE(form.items(List::cboRecLine).empty());
    EXPECT_EQ(form.listIndex(List::cboRecLine), -1);
    EXPECT_EQ(form.label, "0%");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(MicrophoneLevelTest, SaysThatTheLineCannotBeSelectedWhenTheDeviceStopsAnswering)
{
    dialog.load();
    mixer.dead = true;
    form.setListIndex(List::cboRecLine, 1);
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].text, "Couldn't select mixer line!");
    EXPECT_EQ(form.label, "0%");
}

TEST_F(MicrophoneLevelTest, MachineWithoutADeviceHasEmptyListsAndKeepsTheText)
{
    input.devices = {};
    EXPECT_EQ(dialog.lblVolPer(), "100%");
    EXPECT_EQ(form.devices, MicrophoneControls::Devices::none);
    EXPECT_TRUE(form.items(List::cboDev).empty());
    EXPECT_TRUE(form.items(List::cboRecLine).empty());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(MicrophoneLevelTest, FindsADeviceThatIsPluggedInLater)
{
    input.devices = {};
    dialog.load();
    input.devices = {"Webcam"};
    mixer.lines[0].volumes = {0, 0};
    EXPECT_EQ(dialog.lblVolPer(), "0%");
    EXPECT_EQ(form.devices, MicrophoneControls::Devices::some);
    EXPECT_EQ(form.items(List::cboDev), Texts{"Webcam"});
}

TEST_F(MicrophoneLevelTest, SeesAVolumeThatIsChangedElsewhereOnlyWhenALineIsChosenAgain)
{
    dialog.load();
    mixer.lines[0].volumes = {0, 0};
    EXPECT_EQ(dialog.lblVolPer(), "100%");
    form.setListIndex(List::cboRecLine, 0);
    EXPECT_EQ(dialog.lblVolPer(), "0%");
}

TEST_F(MicrophoneLevelTest, DeviceThatGoesAwayGivesAWarningWhenItIsChosenAgain)
{
    dialog.load();
    input.devices = {"Webcam"};
    form.setListIndex(List::cboDev, 1);
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].text, "Couldn't select device!");
}
