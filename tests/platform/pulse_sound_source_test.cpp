#include "capture/platform/pulse/pulse_sound_source.h"

#include "tests/platform/heard_sound.h"
#include "tests/support/private_sound_server.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

using namespace quillora::capture;
using namespace quillora::tests;
using namespace std::chrono_literals;

namespace {

/// Longer than any promise of the source, for the sake of a busy machine.
constexpr auto kGenerous = 3s;

/// What the server's sine source plays at.
constexpr double kToneAmplitude = 0.5;

template <typename Operation>
std::chrono::steady_clock::duration timeOf(const Operation& operation)
{
    const auto start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::steady_clock::now() - start;
}

class PulseSoundSourceTest : public testing::Test {
  protected:
    /// The default source is the one of the first module.
    PrivateSoundServer server{{PrivateSoundServer::kToneSource}};
    HeardSound heard;
    PulseSoundSource source{server.address()};

    /// The last second of what was heard.
    std::vector<float> lastSecond() const
    {
        const std::vector<float> samples = heard.samples();
        return {samples.end() - std::min<std::ptrdiff_t>(kSoundRate, std::ssize(samples)), samples.end()};
    }
};

} // namespace

TEST_F(PulseSoundSourceTest, HearsTheDefaultInput)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(2));
    source.stop();
    EXPECT_NEAR(amplitudeAt(440, lastSecond()), kToneAmplitude, 0.02);
    EXPECT_LT(amplitudeAt(1000, lastSecond()), 0.02);
}

/// An input that comes in real time, as a sound card's does; there is nothing to be heard on it.
class PulseStampsTest : public testing::Test {
  protected:
    PulseStampsTest()
    {
        source.start(heard);
        EXPECT_TRUE(heard.has(3));
        source.stop();
        pieces = heard.pieces();
    }

    PrivateSoundServer server{{PrivateSoundServer::kNullSink}};
    HeardSound heard;
    PulseSoundSource source{server.address()};
    std::vector<HeardSound::Piece> pieces{};
};

TEST_F(PulseStampsTest, ComeWithShortPieces)
{
    EXPECT_GT(pieces.size(), 30U);
    for (const HeardSound::Piece& piece : pieces)
        EXPECT_LE(piece.length, 4096U);
}

TEST_F(PulseStampsTest, AdvanceAsTheSamplesDo)
{
    std::size_t samples = 0;
    for (const HeardSound::Piece& piece : pieces) {
        const std::chrono::duration<double> stamped = piece.firstSample - pieces.front().firstSample;
        EXPECT_NEAR(stamped.count(), static_cast<double>(samples) / kSoundRate, 0.1);
        samples += piece.length;
    }
}

TEST_F(PulseStampsTest, LieShortlyBeforeTheArrival)
{
    for (const HeardSound::Piece& piece : pieces) {
        const std::chrono::duration<double> length(static_cast<double>(piece.length) / kSoundRate);
        EXPECT_LE(piece.firstSample + length, piece.arrival);
        EXPECT_GT(piece.firstSample + length, piece.arrival - 500ms);
    }
}

TEST(PulseSoundSourceWithBrokenInput, DeliversSilenceForWhatIsNoNumber)
{
    const PrivateSoundServer server(
        {"module-null-sink sink_name=null norewinds=1 format=float32le rate=44100 channels=1"});
    const TemporaryFolder folder(TemporaryFolder::Name::plain);
    const std::string file = folder.path() / "broken";
    {
        constexpr float nan = std::numeric_limits<float>::quiet_NaN();
        constexpr float infinity = std::numeric_limits<float>::infinity();
        std::ofstream sound(file, std::ios::binary);
        for (int sample = 0; sample < kSoundRate; ++sample) {
            const float value = sample % 4 == 0 ? nan : sample % 4 == 1 ? infinity : 0.25F;
            sound.write(reinterpret_cast<const char*>(&value), sizeof value);
        }
    }
    HeardSound heard;
    PulseSoundSource source(server.address());
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    ASSERT_EQ(
        runToEnd({"pacat", "--playback", "--raw", "--format=float32le", "--rate=44100", "--channels=1", file},
                 server.environment()),
        0);
    source.stop();
    const std::vector<float> samples = heard.samples();
    EXPECT_GT(std::count(samples.begin(), samples.end(), 0.25F), kSoundRate / 4);
    EXPECT_TRUE(
        std::all_of(samples.begin(), samples.end(), [](float sample) { return std::isfinite(sample); }));
}

TEST_F(PulseSoundSourceTest, DeliversNothingAfterStop)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    source.stop();
    const std::size_t count = heard.samples().size();
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(heard.samples().size(), count);
}

TEST_F(PulseSoundSourceTest, CanBeStartedAgain)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    source.stop();
    heard.forget();
    source.start(heard);
    EXPECT_TRUE(heard.has(0.2));
}

TEST_F(PulseSoundSourceTest, DeliversToTheLastSinkOnlyWhenItIsStartedTwice)
{
    HeardSound second;
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    source.start(second);
    const std::size_t count = heard.samples().size();
    EXPECT_TRUE(second.has(0.2));
    EXPECT_EQ(heard.samples().size(), count);
    source.stop(); // before the sink ends that it delivers to
}

TEST_F(PulseSoundSourceTest, StopIsHarmlessWhenNothingWasStarted)
{
    source.stop();
    source.stop();
    source.start(heard);
    EXPECT_TRUE(heard.has(0.2));
}

TEST_F(PulseSoundSourceTest, HearsAgainWhenTheServerComesBack)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    server.kill();
    std::this_thread::sleep_for(500ms);
    heard.forget();
    server.restart();
    ASSERT_TRUE(heard.has(1.5));
    source.stop();
    EXPECT_NEAR(amplitudeAt(440, lastSecond()), kToneAmplitude, 0.02);
}

TEST_F(PulseSoundSourceTest, KeepsNoDescriptorsOfConnectionsThatItLost)
{
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const auto before = descriptors();
    source.start(heard);
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(heard.has(0.2));
        server.restart();
        heard.forget();
    }
    ASSERT_TRUE(heard.has(0.2));
    source.stop();
    EXPECT_EQ(descriptors(), before);
}

TEST_F(PulseSoundSourceTest, HearsAServerThatStartsLater)
{
    server.kill();
    source.start(heard);
    std::this_thread::sleep_for(300ms);
    EXPECT_TRUE(heard.samples().empty());
    server.restart();
    EXPECT_TRUE(heard.has(0.2));
}

TEST_F(PulseSoundSourceTest, HearsAnotherInputWhenTheFirstGoesAway)
{
    ASSERT_TRUE(server.control({"load-module", "module-null-sink", "sink_name=null", "norewinds=1"}));
    ASSERT_TRUE(server.control({"set-default-source", "null.monitor"}));
    source.start(heard);
    ASSERT_TRUE(heard.has(0.5));
    EXPECT_EQ(peakOf(heard.samples()), 0);
    ASSERT_TRUE(server.control({"unload-module", "module-null-sink"}));
    heard.forget();
    ASSERT_TRUE(heard.has(1.5));
    source.stop();
    EXPECT_NEAR(amplitudeAt(440, lastSecond()), kToneAmplitude, 0.02);
}

TEST_F(PulseSoundSourceTest, HearsAnInputThatIsPluggedInAfterAllWereGone)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    ASSERT_TRUE(server.control({"unload-module", "module-sine-source"}));
    std::this_thread::sleep_for(500ms);
    heard.forget();
    ASSERT_TRUE(server.control({"load-module", "module-sine-source", "source_name=new", "frequency=1000"}));
    ASSERT_TRUE(heard.has(1.5));
    source.stop();
    EXPECT_NEAR(amplitudeAt(1000, lastSecond()), kToneAmplitude, 0.02);
}

TEST_F(PulseSoundSourceTest, FollowsTheDefaultInput)
{
    ASSERT_TRUE(server.control({"load-module", "module-sine-source", "source_name=other", "frequency=1000"}));
    ASSERT_TRUE(server.control({"set-default-source", "other"}));
    source.start(heard);
    ASSERT_TRUE(heard.has(1.5));
    source.stop();
    EXPECT_NEAR(amplitudeAt(1000, lastSecond()), kToneAmplitude, 0.02);
}

TEST_F(PulseSoundSourceTest, StopsInTimeWhenTheServerStopsAnswering)
{
    source.start(heard);
    ASSERT_TRUE(heard.has(0.2));
    server.freeze();
    EXPECT_LT(timeOf([&] { source.stop(); }), kGenerous);
    source.start(heard);
    std::this_thread::sleep_for(200ms);
    EXPECT_LT(timeOf([&] { source.stop(); }), kGenerous);
    EXPECT_LT(timeOf([&] { EXPECT_TRUE(source.inputNames().empty()); }), kGenerous);
}

TEST_F(PulseSoundSourceTest, NamesTheInputsWithTheDefaultFirst)
{
    ASSERT_TRUE(server.control({"load-module", "module-null-sink", "sink_name=speaker"}));
    ASSERT_TRUE(server.control({"load-module", "module-sine-source", "source_name=other", "frequency=1000"}));
    EXPECT_EQ(source.inputNames(),
              (std::vector<std::string>{"Sine source at 440 Hz", "Sine source at 1000 Hz"}));
    ASSERT_TRUE(server.control({"set-default-source", "other"}));
    EXPECT_EQ(source.inputNames(),
              (std::vector<std::string>{"Sine source at 1000 Hz", "Sine source at 440 Hz"}));
    ASSERT_TRUE(server.control({"set-default-source", "speaker.monitor"}));
    EXPECT_EQ(source.inputNames().size(), 3U);
}

TEST(PulseSoundSourceWithoutServer, HasNoInputsAndStopsQuickly)
{
    const TemporaryFolder folder(TemporaryFolder::Name::plain);
    PulseSoundSource source("unix:" + (folder.path() / "nothing").string());
    EXPECT_TRUE(source.inputNames().empty());
    HeardSound heard;
    source.start(heard);
    std::this_thread::sleep_for(200ms);
    EXPECT_LT(timeOf([&] { source.stop(); }), kGenerous);
    EXPECT_TRUE(heard.samples().empty());
}
