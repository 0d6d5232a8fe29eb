#include "audio/source_mixer.h"

#include "audio/mixer_lines.h"
#include "audio/text_field.h"
#include "tests/support/fake_sound_inputs.h"
#include "tests/support/fake_wave_input.h"
#include "tests/support/plain_message_queue.h"

#include <gtest/gtest.h>

using namespace quillora::audio;
using namespace quillora::tests;

namespace {

using Calls = std::vector<std::string>;

SoundInput card()
{
    return {.id = "card",
            .description = "Built-in Audio",
            .volumes = {65536, 65536},
            .ports = {{"mic", "Microphone", line_type::kMicrophone},
                      {"line", "Line In", line_type::kLineIn},
                      {"rear", "Rear Microphone", line_type::kMicrophone}},
            .activePort = "line"};
}

/// The mixer as its one user drives it.
class SourceMixerTest : public testing::Test {
  protected:
    SourceMixerTest()
    {
        inputs.present = {card(), {.id = "webcam", .description = "Webcam", .volumes = {32768}}};
        numbers.refresh();
        devices.devices = {"card", "webcam"};
    }

    SoundInput& cardInput() { return inputs.present[0]; }
    const Calls& calls() const { return log.calls; }

    CallLog log;
    PlainMessageQueue queue;
    quillora::messages::MessageWindows windows{queue};
    FakeWaveInput devices{log, windows};
    FakeSoundInputs inputs{log};
    InputNumbers numbers{inputs};
    SourceMixer mixer{inputs, numbers};
    MixerLines lines{devices, mixer};
};

} // namespace

TEST_F(SourceMixerTest, PortsAreTheLines)
{
    ASSERT_TRUE(lines.SelectDevice(0));
    EXPECT_EQ(lines.MixerLineCount(), 3);
    EXPECT_EQ(fieldText(lines.MixerLineName(0)), "Microphone");
    EXPECT_EQ(fieldText(lines.MixerLineName(2)), "Rear Microphone");
    EXPECT_EQ(lines.MixerLineType(1), line_type::kLineIn);
    EXPECT_EQ(lines.SelectedMixerLine(), 1);
}

TEST_F(SourceMixerTest, InputWithoutPortsIsItsOneLine)
{
    ASSERT_TRUE(lines.SelectDevice(1));
    EXPECT_EQ(lines.MixerLineCount(), 1);
    EXPECT_EQ(fieldText(lines.MixerLineName(0)), "Webcam");
    EXPECT_EQ(lines.SelectedMixerLine(), 0);
    EXPECT_TRUE(lines.SelectMixerLine(0));
    EXPECT_EQ(lines.MixerLineType(), line_type::kUndefined);
    EXPECT_EQ(lines.MixerLineVolume(), 32768U);
    EXPECT_TRUE(calls().empty());
}

TEST_F(SourceMixerTest, MonitorIsALineOfWhatIsPlayed)
{
    inputs.present[1].monitor = true;
    lines.SelectDevice(1);
    EXPECT_EQ(lines.MixerLineType(), line_type::kWaveOut);
}

TEST_F(SourceMixerTest, SelectingALineChoosesItsPort)
{
    lines.SelectDevice(0);
    EXPECT_TRUE(lines.SelectMixerLine(0));
    EXPECT_TRUE(lines.SelectMixerLine(2));
    EXPECT_EQ(calls(), (Calls{"setPort card mic", "setPort card rear"}));
    EXPECT_EQ(lines.SelectedMixerLine(), 2);
}

TEST_F(SourceMixerTest, SelectingTheLineInUseChangesNothing)
{
    lines.SelectDevice(0);
    EXPECT_TRUE(lines.SelectMixerLine(1));
    EXPECT_TRUE(calls().empty());
}

TEST_F(SourceMixerTest, SelectingNoLineChangesNothing)
{
    lines.SelectDevice(0);
    lines.SelectMixerLine(-1);
    lines.SelectMixerLine(3);
    EXPECT_TRUE(calls().empty());
}

TEST_F(SourceMixerTest, WithoutAnActivePortTheLastLineCounts)
{
    cardInput().activePort.clear();
    lines.SelectDevice(0);
    EXPECT_EQ(lines.SelectedMixerLine(), 2);
}

TEST_F(SourceMixerTest, VolumeComesBackAsItWasSet)
{
    lines.SelectDevice(0);
    for (const std::uint32_t volume : {0U, 1U, 32767U, 32768U, 58981U, 58982U, 65534U, 65535U}) {
        lines.MixerLineVolume(volume);
        EXPECT_EQ(lines.MixerLineVolume(), volume);
    }
}

TEST_F(SourceMixerTest, WritingWhatWasReadChangesNothing)
{
    cardInput().volumes = {50000, 50000};
    lines.SelectDevice(0);
    lines.MixerLineVolume(lines.MixerLineVolume());
    EXPECT_TRUE(calls().empty());
}

TEST_F(SourceMixerTest, LookingAtAnInputThatIsRaisedLeavesItSo)
{
    cardInput().volumes = {99000, 99000};
    lines.SelectDevice(0);
    EXPECT_EQ(lines.MixerLineVolume(), 65535U);
    lines.MixerLineVolume(65535);
    EXPECT_TRUE(calls().empty());
    lines.MixerLineVolume(65534);
    EXPECT_EQ(calls(), Calls{"setVolumes card 65534 65534"});
}

TEST_F(SourceMixerTest, SetsBothChannels)
{
    cardInput().volumes = {40000, 50000};
    lines.SelectDevice(0);
    lines.MixerLineVolume(lines.MixerLineVolume());
    EXPECT_EQ(calls(), Calls{"setVolumes card 40000 40000"});
}

TEST_F(SourceMixerTest, SetsAllChannelsOfAnInputWithMore)
{
    cardInput().volumes = {1, 2, 3, 4};
    lines.SelectDevice(0);
    EXPECT_EQ(lines.MixerLineVolume(), 1U);
    lines.MixerLineVolume(65535);
    EXPECT_EQ(calls(), Calls{"setVolumes card 65536 65536 65536 65536"});
}

TEST_F(SourceMixerTest, MutedLineHasNoVolume)
{
    cardInput().muted = true;
    lines.SelectDevice(0);
    EXPECT_EQ(lines.MixerLineVolume(), 0U);
    lines.MixerLineVolume(0);
    EXPECT_TRUE(calls().empty());
}

TEST_F(SourceMixerTest, SettingAVolumeUnmutes)
{
    cardInput().muted = true;
    lines.SelectDevice(0);
    lines.MixerLineVolume(65535);
    EXPECT_EQ(calls(), Calls{"setMuted card off"});
    EXPECT_EQ(lines.MixerLineVolume(), 65535U);
}

TEST_F(SourceMixerTest, InputThatIsPulledFails)
{
    lines.SelectDevice(0);
    inputs.present.erase(inputs.present.begin());
    EXPECT_EQ(lines.MixerLineCount(), 0);
    EXPECT_FALSE(lines.SelectMixerLine(0));
    EXPECT_EQ(lines.MixerLineVolume(), 0U);
    EXPECT_FALSE(lines.SelectDevice(0));
    EXPECT_EQ(lines.SelectedDevice(), -1);
    EXPECT_TRUE(lines.SelectDevice(1));
}

TEST_F(SourceMixerTest, KnowsNoHandleThatIsClosed)
{
    const MixerHandle handle = mixer.mixerOpen(0);
    EXPECT_NE(handle, 0U);
    EXPECT_EQ(mixer.mixerGetDestinations(handle), 2);
    mixer.mixerClose(handle);
    EXPECT_EQ(mixer.mixerGetDestinations(handle), 0);
    EXPECT_NE(mixer.mixerOpen(0), handle);
    EXPECT_EQ(mixer.mixerOpen(2), 0U);
    EXPECT_EQ(mixer.mixerOpen(-1), 0U);
}

TEST_F(SourceMixerTest, FindsLinesOnlyWhereTheyAre)
{
    const MixerHandle handle = mixer.mixerOpen(0);
    MixerLine line{.dwDestination = 0};
    EXPECT_TRUE(mixer.mixerGetLineInfo(handle, line, LineQuery::byDestination));
    EXPECT_EQ(line.dwComponentType, line_type::kSpeakers);
    EXPECT_EQ(line.cConnections, 0U);
    line = {.dwDestination = 2};
    EXPECT_FALSE(mixer.mixerGetLineInfo(handle, line, LineQuery::byDestination));
    line = {.dwDestination = 0, .dwSource = 0};
    EXPECT_FALSE(mixer.mixerGetLineInfo(handle, line, LineQuery::bySource));
    line = {.dwDestination = 1, .dwSource = 3};
    EXPECT_FALSE(mixer.mixerGetLineInfo(handle, line, LineQuery::bySource));
    line = {.dwComponentType = line_type::kLineIn};
    EXPECT_TRUE(mixer.mixerGetLineInfo(handle, line, LineQuery::byComponentType));
    EXPECT_EQ(line.dwSource, 1U);
    line = {.dwComponentType = line_type::kCompactDisc};
    EXPECT_FALSE(mixer.mixerGetLineInfo(handle, line, LineQuery::byComponentType));
}

TEST_F(SourceMixerTest, HasNoControlsBesideMultiplexerAndVolumes)
{
    const MixerHandle handle = mixer.mixerOpen(0);
    MixerLine waveIn{.dwComponentType = line_type::kWaveIn};
    mixer.mixerGetLineInfo(handle, waveIn, LineQuery::byComponentType);
    MixerControl control;
    const auto get = [&](std::uint32_t line, std::uint32_t type) {
        return mixer.mixerGetLineControls(handle, line, type, {&control, 1});
    };
    EXPECT_TRUE(get(waveIn.dwLineID, control_type::kMultiplexer));
    EXPECT_EQ(control.cMultipleItems, 3U);
    EXPECT_FALSE(get(waveIn.dwLineID, control_type::kVolume));
    EXPECT_FALSE(get(12345, control_type::kVolume));
    EXPECT_FALSE(mixer.mixerGetLineControls(handle, waveIn.dwLineID, control_type::kMultiplexer, {}));
    std::uint32_t value = 0;
    EXPECT_FALSE(mixer.mixerGetControlDetails(handle, {12345, 1, 0, {&value, 1}}));
    EXPECT_FALSE(mixer.mixerSetControlDetails(handle, {12345, 1, 0, {&value, 1}}));
    EXPECT_FALSE(mixer.mixerSetControlDetails(handle, {10, 1, 0, {}}));
}
