#include "audio/platform/pulse/pulse_server.h"

#include "audio/mixer_lines.h"
#include "audio/platform/pulse/pulse_wave_input.h"
#include "audio/source_mixer.h"
#include "audio/text_field.h"
#include "tests/support/plain_message_queue.h"
#include "tests/support/private_sound_server.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillora::audio;
using namespace quillora::tests;
using namespace std::chrono_literals;

namespace {

constexpr const char* kQuiet = "module-null-source source_name=quiet description=\"Quiet room\" channels=2";
constexpr const char* kMono = "module-null-source source_name=mono channels=1";

/// Longer than any one call may take, for the sake of a busy machine.
constexpr auto kGenerous = 5s;

std::vector<std::string> idsOf(const std::optional<std::vector<SoundInput>>& inputs)
{
    std::vector<std::string> ids;
    for (const SoundInput& input : inputs.value())
        ids.push_back(input.id);
    return ids;
}

class PulseServerTest : public testing::Test {
  protected:
    PrivateSoundServer server{{kQuiet, kMono, PrivateSoundServer::kNullSink}};
    PulseServer pulse{server.address()};
};

/// The lines of the real server's inputs.
class PulseLinesTest : public PulseServerTest {
  protected:
    PlainMessageQueue queue;
    InputNumbers numbers{pulse};
    PulseWaveInput input{numbers, queue, server.address()};
    SourceMixer mixer{pulse, numbers};
    MixerLines lines{input, mixer};
};

} // namespace

TEST_F(PulseServerTest, ListsTheDefaultInputFirstAndNoMonitors)
{
    EXPECT_EQ(idsOf(pulse.inputs()), (std::vector<std::string>{"quiet", "mono"}));
    ASSERT_TRUE(server.control({"set-default-source", "mono"}));
    EXPECT_EQ(idsOf(pulse.inputs()), (std::vector<std::string>{"mono", "quiet"}));
}

TEST_F(PulseServerTest, ListsAMonitorThatIsTheDefaultInput)
{
    ASSERT_TRUE(server.control({"set-default-source", "null.monitor"}));
    const auto inputs = pulse.inputs();
    EXPECT_EQ(idsOf(inputs), (std::vector<std::string>{"null.monitor", "quiet", "mono"}));
    EXPECT_TRUE(inputs->front().monitor);
    EXPECT_FALSE(inputs->back().monitor);
}

TEST_F(PulseServerTest, TellsNameChannelsVolumeAndMute)
{
    const auto quiet = pulse.input("quiet");
    ASSERT_TRUE(quiet);
    EXPECT_EQ(quiet->description, "Quiet room");
    EXPECT_EQ(quiet->volumes, (std::vector<std::uint32_t>{65536, 65536}));
    EXPECT_FALSE(quiet->muted);
    EXPECT_TRUE(quiet->ports.empty());
    EXPECT_EQ(pulse.input("mono")->volumes.size(), 1U);
}

TEST_F(PulseServerTest, KnowsNoInputThatIsNot)
{
    EXPECT_FALSE(pulse.input("nothing"));
    EXPECT_FALSE(pulse.setMuted("nothing", true));
    EXPECT_FALSE(pulse.setVolumes("nothing", {65536}));
    EXPECT_FALSE(pulse.setPort("quiet", "nothing"));
    EXPECT_TRUE(pulse.input("quiet"));
}

TEST_F(PulseServerTest, SetsVolumesAndMute)
{
    EXPECT_TRUE(pulse.setVolumes("quiet", {100, 65537}));
    EXPECT_TRUE(pulse.setMuted("quiet", true));
    const auto quiet = pulse.input("quiet");
    EXPECT_EQ(quiet->volumes, (std::vector<std::uint32_t>{100, 65537}));
    EXPECT_TRUE(quiet->muted);
}

TEST_F(PulseServerTest, SeesInputsComeAndGo)
{
    ASSERT_TRUE(pulse.inputs());
    ASSERT_TRUE(server.control({"load-module", "module-null-source", "source_name=new"}));
    EXPECT_EQ(idsOf(pulse.inputs()).size(), 3U);
    ASSERT_TRUE(server.control({"unload-module", "module-null-source"}));
    EXPECT_FALSE(pulse.input("quiet"));
}

TEST_F(PulseServerTest, FailsWithoutAServerAndFindsOneThatStartsLater)
{
    server.kill();
    EXPECT_FALSE(pulse.inputs());
    server.restart();
    EXPECT_TRUE(pulse.inputs());
}

TEST_F(PulseServerTest, FindsAServerAgainThatWasStartedAnew)
{
    ASSERT_TRUE(pulse.inputs());
    server.restart();
    EXPECT_TRUE(pulse.input("quiet"));
}

TEST_F(PulseServerTest, GivesUpOnAServerThatHangsAndDoesNotWaitForItTwentyTimes)
{
    ASSERT_TRUE(pulse.inputs());
    server.freeze();
    const auto begun = std::chrono::steady_clock::now();
    for (int call = 0; call < 20; ++call)
        EXPECT_FALSE(pulse.input("quiet"));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, kGenerous);
    server.thaw();
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!pulse.input("quiet"))
        ASSERT_LT(std::chrono::steady_clock::now(), deadline);
}

TEST_F(PulseServerTest, GivesUpOnAServerThatHangsFromTheStart)
{
    server.freeze();
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_FALSE(pulse.inputs());
    EXPECT_FALSE(pulse.setMuted("quiet", true));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, kGenerous);
    server.thaw();
}

TEST(PulseServerWithoutAMicrophone, OffersWhatItsOutputPlays)
{
    PrivateSoundServer server{{PrivateSoundServer::kNullSink}};
    PulseServer pulse{server.address()};
    const auto inputs = pulse.inputs();
    EXPECT_EQ(idsOf(inputs), std::vector<std::string>{"null.monitor"});
    EXPECT_TRUE(inputs->front().monitor);
}

TEST_F(PulseLinesTest, NamesDevicesAndTheirOneLine)
{
    ASSERT_EQ(lines.DeviceCount(), 2);
    EXPECT_EQ(fieldText(lines.DeviceName(0)), "Quiet room");
    ASSERT_TRUE(lines.SelectDevice(0));
    EXPECT_EQ(lines.MixerLineCount(), 1);
    EXPECT_EQ(fieldText(lines.MixerLineName(0)), "Quiet room");
    EXPECT_EQ(lines.SelectedMixerLine(), 0);
    EXPECT_TRUE(lines.SelectMixerLine(0));
}

TEST_F(PulseLinesTest, VolumesComeBackFromTheServerAsTheyWent)
{
    for (const int device : {0, 1}) {
        ASSERT_EQ(lines.DeviceCount(), 2);
        ASSERT_TRUE(lines.SelectDevice(device));
        for (std::uint32_t volume = 0; volume <= 65535; volume += 1285) {
            lines.MixerLineVolume(volume);
            ASSERT_EQ(lines.MixerLineVolume(), volume);
        }
    }
}

TEST_F(PulseLinesTest, SeesAndEndsAMuteByAnotherProgram)
{
    ASSERT_EQ(lines.DeviceCount(), 2);
    ASSERT_TRUE(lines.SelectDevice(0));
    ASSERT_TRUE(server.control({"set-source-mute", "quiet", "1"}));
    EXPECT_EQ(lines.MixerLineVolume(), 0U);
    lines.MixerLineVolume(60000);
    EXPECT_EQ(lines.MixerLineVolume(), 60000U);
    EXPECT_FALSE(pulse.input("quiet")->muted);
}

TEST_F(PulseLinesTest, SeesAVolumeThatAnotherProgramSets)
{
    ASSERT_EQ(lines.DeviceCount(), 2);
    ASSERT_TRUE(lines.SelectDevice(0));
    ASSERT_TRUE(server.control({"set-source-volume", "quiet", "50%"}));
    EXPECT_EQ(lines.MixerLineVolume(), 32768U);
}

TEST_F(PulseLinesTest, DeviceThatGoesAwayGivesFailures)
{
    ASSERT_EQ(lines.DeviceCount(), 2);
    ASSERT_TRUE(lines.SelectDevice(0));
    server.kill();
    EXPECT_EQ(lines.MixerLineCount(), 0);
    EXPECT_FALSE(lines.SelectMixerLine(0));
    EXPECT_EQ(lines.MixerLineVolume(), 0U);
    lines.MixerLineVolume(5);
    EXPECT_FALSE(lines.SelectDevice(1));
}
