#include "audio/mixer_lines.h"

#include "audio/text_field.h"
#include "tests/support/fake_mixer.h"
#include "tests/support/fake_wave_input.h"
#include "tests/support/plain_message_queue.h"

#include <gtest/gtest.h>

#include <optional>

using namespace quillora::audio;
using namespace quillora::tests;

namespace {

using Calls = std::vector<std::string>;

class MixerLinesTest : public testing::Test {
  protected:
    /// Front microphone, line-in and rear microphone, of which the one of this number is in use.
    void useThreeLines(std::size_t inUse)
    {
        mixer.lines = {{"Front"}, {"Line", line_type::kLineIn}, {"Rear"}};
        mixer.items = {0, 0, 0};
        mixer.items[2 - inUse] = 1;
    }
    void openFirst()
    {
        ASSERT_TRUE(lines->SelectDevice(0));
        log.clear();
    }

    CallLog log;
    PlainMessageQueue queue;
    quillora::messages::MessageWindows windows{queue};
    FakeWaveInput input{log, windows};
    FakeMixer mixer{log};
    std::optional<MixerLines> lines{std::in_place, input, mixer};
};

} // namespace

TEST_F(MixerLinesTest, CountsAndNamesDevicesWithTheirPadding)
{
    input.devices = {"One", "Other"};
    EXPECT_EQ(lines->DeviceCount(), 2);
    EXPECT_EQ(lines->DeviceName(1), std::string("Other") + std::string(27, '\0'));
}

TEST_F(MixerLinesTest, HasNoDeviceAtFirst)
{
    EXPECT_EQ(lines->SelectedDevice(), -1);
    EXPECT_EQ(lines->MixerLineCount(), 0);
    EXPECT_EQ(lines->MixerLineName(0), "");
    EXPECT_FALSE(lines->SelectMixerLine(0));
    EXPECT_EQ(lines->SelectedMixerLine(), -1);
    EXPECT_EQ(lines->MixerLineType(), 0U);
    EXPECT_EQ(lines->MixerLineVolume(), 0U);
    lines->MixerLineVolume(7);
    EXPECT_TRUE(log.calls.empty());
}

TEST_F(MixerLinesTest, WithoutADeviceAsksTheMixerForTheVolumeOnly)
{
    lines->MixerLineCount();
    lines->MixerLineName(0);
    EXPECT_EQ(mixer.timesAskedForDestinations, 0);
    lines->MixerLineVolume();
    EXPECT_EQ(mixer.timesAskedForDestinations, 1);
}

TEST_F(MixerLinesTest, OpensTheMixerOfTheDevice)
{
    input.devices = {"One", "Other"};
    EXPECT_TRUE(lines->SelectDevice(1));
    EXPECT_EQ(lines->SelectedDevice(), 1);
    EXPECT_EQ(log.calls, Calls{"mixerOpen 1"});
}

TEST_F(MixerLinesTest, ClosesTheMixerBeforeItOpensAnother)
{
    input.devices = {"One", "Other"};
    lines->SelectDevice(0);
    lines->SelectDevice(1);
    EXPECT_EQ(log.calls, (Calls{"mixerOpen 0", "mixerClose", "mixerOpen 1"}));
}

TEST_F(MixerLinesTest, DeviceOutOfRangeLeavesThePreviousMixerOpen)
{
    openFirst();
    for (const int index : {-1, 1, 99}) {
        EXPECT_FALSE(lines->SelectDevice(index));
        EXPECT_EQ(lines->SelectedDevice(), 0);
    }
    EXPECT_TRUE(log.calls.empty());
    EXPECT_EQ(mixer.openMixers, 1);
}

TEST_F(MixerLinesTest, DeviceWhoseMixerDoesNotOpenLeavesNone)
{
    input.devices = {"One", "Other"};
    mixer.deadDevices = {1};
    lines->SelectDevice(0);
    EXPECT_FALSE(lines->SelectDevice(1));
    EXPECT_EQ(lines->SelectedDevice(), -1);
    EXPECT_EQ(mixer.openMixers, 0);
    EXPECT_EQ(lines->MixerLineCount(), 0);
    EXPECT_EQ(lines->MixerLineVolume(), 0U);
}

TEST_F(MixerLinesTest, ClosesTheMixerAtItsEnd)
{
    openFirst();
    lines.reset();
    EXPECT_EQ(log.calls, Calls{"mixerClose"});
}

TEST_F(MixerLinesTest, ClosesNothingAtItsEndWhenNothingIsOpen)
{
    lines.reset();
    EXPECT_TRUE(log.calls.empty());
}

TEST_F(MixerLinesTest, NamesTheSourcesOfTheWaveInputWithTheirPadding)
{
    useThreeLines(0);
    openFirst();
    EXPECT_EQ(lines->MixerLineCount(), 3);
    EXPECT_EQ(lines->MixerLineName(1), std::string("Line") + std::string(60, '\0'));
    EXPECT_EQ(lines->MixerLineName(3), "");
}

TEST_F(MixerLinesTest, WithoutAWaveInputThereAreNoLines)
{
    mixer.hasWaveIn = false;
    openFirst();
    EXPECT_EQ(lines->MixerLineCount(), 0);
    EXPECT_EQ(lines->SelectedMixerLine(), -1);
    EXPECT_EQ(lines->MixerLineName(0), "");
    EXPECT_EQ(lines->MixerLineType(0), 0U);
    EXPECT_EQ(lines->MixerLineVolume(), 0U);
    lines->MixerLineVolume(7);
    EXPECT_TRUE(log.calls.empty());
}

TEST_F(MixerLinesTest, LineZeroOfThreeIsItemTwo)
{
    useThreeLines(1);
    openFirst();
    EXPECT_EQ(lines->SelectedMixerLine(), 1);
    EXPECT_TRUE(lines->SelectMixerLine(0));
    EXPECT_EQ(mixer.items, (std::vector<std::uint32_t>{0, 0, 1}));
    EXPECT_EQ(lines->SelectedMixerLine(), 0);
    EXPECT_TRUE(lines->SelectMixerLine(2));
    EXPECT_EQ(mixer.items, (std::vector<std::uint32_t>{1, 0, 0}));
    EXPECT_EQ(lines->SelectedMixerLine(), 2);
}

TEST_F(MixerLinesTest, WritesTheItemOnceThoughTheLineHasTwoControls)
{
    useThreeLines(1);
    openFirst();
    lines->SelectMixerLine(0);
    EXPECT_EQ(log.calls, Calls{"set 9 0 0 1"});
}

TEST_F(MixerLinesTest, TheLastOfSeveralItemsInUseCounts)
{
    useThreeLines(1);
    mixer.items = {1, 1, 0};
    openFirst();
    EXPECT_EQ(lines->SelectedMixerLine(), 1);
}

TEST_F(MixerLinesTest, WithNoItemInUseTheLastLineCounts)
{
    useThreeLines(1);
    mixer.items = {0, 0, 0};
    openFirst();
    EXPECT_EQ(lines->SelectedMixerLine(), 2);
}

TEST_F(MixerLinesTest, WithoutAMultiplexerNoLineCanBeSelected)
{
    useThreeLines(1);
    mixer.hasMultiplexer = false;
    openFirst();
    EXPECT_FALSE(lines->SelectMixerLine(0));
    EXPECT_EQ(lines->SelectedMixerLine(), 2);
}

TEST_F(MixerLinesTest, WaveInputThatIsTheFirstDestinationSelectsNothingAndSucceeds)
{
    useThreeLines(1);
    mixer.waveIn = 0;
    openFirst();
    EXPECT_TRUE(lines->SelectMixerLine(0));
    EXPECT_TRUE(log.calls.empty());
    EXPECT_EQ(lines->SelectedMixerLine(), 2);
}

TEST_F(MixerLinesTest, WaveInputThatIsTheThirdDestinationIsWrittenTwice)
{
    useThreeLines(1);
    mixer.waveIn = 2;
    openFirst();
    EXPECT_TRUE(lines->SelectMixerLine(0));
    EXPECT_EQ(log.calls, (Calls{"set 9 0 0 1", "set 9 0 0 1"}));
}

TEST_F(MixerLinesTest, LineBeforeTheFirstWritesAnItemThatNoLineHas)
{
    useThreeLines(1);
    openFirst();
    EXPECT_TRUE(lines->SelectMixerLine(-1));
    EXPECT_EQ(log.calls, Calls{"set 9 0 0 0"});
}

TEST_F(MixerLinesTest, LineFarBeforeTheFirstWritesNothing)
{
    useThreeLines(1);
    openFirst();
    EXPECT_TRUE(lines->SelectMixerLine(-2));
    EXPECT_TRUE(log.calls.empty());
}

TEST_F(MixerLinesTest, LineBehindTheLastPutsAllOutOfUse)
{
    useThreeLines(1);
    openFirst();
    EXPECT_TRUE(lines->SelectMixerLine(3));
    EXPECT_EQ(log.calls, Calls{"set 9 0 0 0"});
}

TEST_F(MixerLinesTest, SelectingFailsWhenTheMixerStopsAnswering)
{
    useThreeLines(1);
    openFirst();
    mixer.dead = true;
    EXPECT_FALSE(lines->SelectMixerLine(0));
    EXPECT_EQ(lines->MixerLineCount(), 0);
    EXPECT_EQ(lines->SelectedMixerLine(), -1);
    EXPECT_EQ(lines->MixerLineVolume(), 0U);
    lines->MixerLineVolume(5);
    EXPECT_TRUE(log.calls.empty());
}

TEST_F(MixerLinesTest, TellsTheTypeOfALineAndOfTheOneInUse)
{
    useThreeLines(1);
    openFirst();
    EXPECT_EQ(lines->MixerLineType(), line_type::kLineIn);
    EXPECT_EQ(lines->MixerLineType(0), line_type::kMicrophone);
    EXPECT_EQ(lines->MixerLineType(3), 0U);
}

TEST_F(MixerLinesTest, ReadsTheFirstChannelOfTheLineInUse)
{
    useThreeLines(1);
    mixer.lines[1].volumes = {58981, 100};
    openFirst();
    EXPECT_EQ(lines->MixerLineVolume(), 58981U);
}

TEST_F(MixerLinesTest, WritesBothChannelsUnscaled)
{
    useThreeLines(1);
    openFirst();
    lines->MixerLineVolume(58982);
    EXPECT_EQ(log.calls, Calls{"set 21 58982 58982"});
    EXPECT_EQ(mixer.lines[1].volumes, (std::vector<std::uint32_t>{58982, 58982}));
}

TEST_F(MixerLinesTest, MonoLineHasOneValue)
{
    mixer.lines[0].volumes = {300};
    openFirst();
    EXPECT_EQ(lines->MixerLineVolume(), 300U);
    lines->MixerLineVolume(400);
    EXPECT_EQ(log.calls, Calls{"set 20 400"});
}

TEST_F(MixerLinesTest, LineOfFourChannelsIsReadAndWrittenInTwo)
{
    mixer.lines[0].volumes = {1, 2, 3, 4};
    openFirst();
    EXPECT_EQ(lines->MixerLineVolume(), 1U);
    lines->MixerLineVolume(9);
    EXPECT_EQ(log.calls, Calls{"set 20 9 9"});
}

TEST_F(MixerLinesTest, LineWithoutVolumeReadsAsZeroAndIsNotChanged)
{
    mixer.lines[0].hasVolume = false;
    openFirst();
    EXPECT_EQ(lines->MixerLineVolume(), 0U);
    lines->MixerLineVolume(9);
    EXPECT_TRUE(log.calls.empty());
    EXPECT_EQ(mixer.lines[0].volumes.front(), 65535U);
}

TEST(LineTypeWord, IsThatOfTheType)
{
    const std::pair<std::uint32_t, std::string> words[] = {{line_type::kLineIn, "Line-In"},
                                                           {line_type::kDigital, "Digital"},
                                                           {line_type::kCompactDisc, "Compact Disc"},
                                                           {line_type::kAnalog, "Analog"},
                                                           {line_type::kAuxiliary, "Auxiliary"},
                                                           {line_type::kMicrophone, "Microphone"},
                                                           {line_type::kPcSpeaker, "PC Speaker"},
                                                           {line_type::kSynthesizer, "Synthesizer"},
                                                           {line_type::kTelephone, "Telephone"},
                                                           {line_type::kUndefined, "Undefined"},
                                                           {line_type::kWaveOut, "WaveOut"},
                                                           {0, "Unknown"},
                                                           {0x1234, "Unknown"}};
    for (const auto& [type, word] : words)
        EXPECT_EQ(lineTypeWord(type), word);
}
