#include "session/platform/pulse/pulse_beeper.h"

#include "capture/platform/pulse/pulse_sound_source.h"
#include "session/platform/pulse/tone.h"
#include "tests/platform/heard_sound.h"
#include "tests/support/private_sound_server.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillora::session;
using namespace quillora::tests;
using namespace std::chrono_literals;
using quillora::capture::kSoundRate;

namespace {

/// Longer than the promised second, for the sake of a busy machine.
constexpr auto kGenerous = 3s;

std::chrono::steady_clock::duration timeOfBeep(const std::string& server)
{
    PulseBeeper beeper(server);
    const auto start = std::chrono::steady_clock::now();
    beeper.Beep(900, 200ms);
    return std::chrono::steady_clock::now() - start;
}

} // namespace

TEST(Tone, IsASineOfTheFrequencyAndTheDuration)
{
    const std::vector<float> samples = tone(900, 200ms, kSoundRate);
    ASSERT_EQ(samples.size(), 8820U);
    EXPECT_NEAR(amplitudeAt(900, samples), 0.5, 0.03);
    EXPECT_LE(peakOf(samples), 0.5);
}

TEST(Tone, RisesAndFallsGently)
{
    const std::vector<float> samples = tone(900, 200ms, kSoundRate);
    EXPECT_EQ(samples.front(), 0.0F);
    EXPECT_EQ(samples.back(), 0.0F);
    EXPECT_LT(peakOf(std::span(samples).first(44)), 0.15);
    EXPECT_LT(peakOf(std::span(samples).last(44)), 0.15);
}

TEST(Tone, IsEmptyWithoutFrequencyOrDuration)
{
    EXPECT_TRUE(tone(0, 200ms, kSoundRate).empty());
    EXPECT_TRUE(tone(900, 0ms, kSoundRate).empty());
    EXPECT_TRUE(tone(-900, -1ms, kSoundRate).empty());
}

TEST(PulseBeeper, IsHeardForItsDurationAndOverWhenItReturns)
{
    const PrivateSoundServer server({PrivateSoundServer::kNullSink});
    quillora::capture::PulseSoundSource listener(server.address());
    HeardSound heard;
    listener.start(heard);
    ASSERT_TRUE(heard.has(0.2));

    PulseBeeper(server.address()).Beep(900, 200ms);
    const auto over = std::chrono::steady_clock::now();
    const double heardAtReturn = static_cast<double>(heard.samples().size()) / kSoundRate;
    ASSERT_TRUE(heard.has(heardAtReturn + 1));
    listener.stop();

    const std::vector<float> samples = heard.samples();
    const auto loud = [](float sample) { return std::abs(sample) > 0.02F; };
    const auto first = std::find_if(samples.begin(), samples.end(), loud);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), loud).base();
    ASSERT_LT(first, last);
    EXPECT_NEAR(static_cast<double>(last - first) / kSoundRate, 0.2, 0.02);
    EXPECT_NEAR(amplitudeAt(900, std::span(first, last)), 0.5, 0.05);
    EXPECT_LT(heard.timeOf(static_cast<std::size_t>(last - samples.begin())), over + 20ms);
}

TEST(PulseBeeper, TakesAtLeastTheDuration)
{
    const PrivateSoundServer server({PrivateSoundServer::kNullSink});
    EXPECT_GE(timeOfBeep(server.address()), 200ms);
}

TEST(PulseBeeper, IsSilentAndQuickWithoutAServer)
{
    const TemporaryFolder folder(TemporaryFolder::Name::plain);
    EXPECT_LT(timeOfBeep("unix:" + (folder.path() / "nothing").string()), 150ms);
}

TEST(PulseBeeper, GivesUpOnAServerThatStopsAnswering)
{
    PrivateSoundServer server({PrivateSoundServer::kNullSink});
    server.freeze();
    EXPECT_LT(timeOfBeep(server.address()), kGenerous);
}

TEST(PulseBeeper, GivesUpWhereThereIsNoOutput)
{
    const PrivateSoundServer server({PrivateSoundServer::kToneSource});
    EXPECT_LT(timeOfBeep(server.address()), kGenerous);
}
