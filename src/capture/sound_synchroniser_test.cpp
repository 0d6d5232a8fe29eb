#include "capture/sound_synchroniser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

using namespace quillora::capture;
using namespace std::chrono_literals;

namespace {

const CaptureClock::time_point kNoon{CaptureClock::duration(12h)};

CaptureClock::time_point at(double seconds)
{
    return kNoon + std::chrono::duration_cast<CaptureClock::duration>(std::chrono::duration<double>(seconds));
}

/// A sound card with its own idea of 44100, in a room where it sounds as the test says at each moment. Chunks
/// of 25 ms come with stamps that jitter.
class SoundCard {
  public:
    using Room = std::function<float(double seconds)>;

    SoundCard(double partsPerMillionFast, Room room)
        : m_rate(kSoundRate * (1 + partsPerMillionFast * 1e-6)), m_room(room)
    {}

    void setJitter(double seconds) { m_jitter = seconds; }

    /// Delivers what is heard from where it is up to @p until.
    void deliver(double until, const SegmentClock& clock, SoundSynchroniser& synchroniser,
                 std::vector<float>& out)
    {
        constexpr int chunk = kSoundRate / 40;
        for (; m_now + chunk / m_rate <= until; m_now += chunk / m_rate) {
            std::vector<float> samples(chunk);
            for (int i = 0; i < chunk; ++i)
                samples[std::size_t(i)] = m_room(m_now + i / m_rate);
            std::uniform_real_distribution<double> jitter(-m_jitter, m_jitter);
            synchroniser.take(clock, at(m_now + jitter(m_generator)), samples, out);
        }
    }
    /// Is deaf until then.
    void skip(double until) { m_now = until; }

  private:
    double m_rate;
    Room m_room;
    double m_jitter = 0;
    double m_now = 0;
    std::mt19937 m_generator{11};
};

/// Silence but for a click of 2 ms at each full second.
float clicks(double seconds) { return seconds - std::floor(seconds) < 0.002 && seconds > 0.5 ? 0.9F : 0.0F; }

float tone(double seconds) { return 0.5F * float(std::sin(seconds * 440 * 2 * 3.14159265358979)); }

/// Moments at which the recording clicks.
std::vector<double> clicksIn(const std::vector<float>& sound)
{
    std::vector<double> moments;
    for (std::size_t i = 1; i < sound.size(); ++i)
        if (sound[i] > 0.45F && sound[i - 1] <= 0.45F)
            moments.push_back(double(i) / kSoundRate);
    return moments;
}

/// The largest step between neighbours: a click where there should be none.
float largestStep(const std::vector<float>& sound)
{
    float step = 0;
    for (std::size_t i = 1; i < sound.size(); ++i)
        step = std::max(step, std::abs(sound[i] - sound[i - 1]));
    return step;
}

} // namespace

TEST(SoundSynchroniser, PassesOnWhatComesInTimeUnchanged)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    SoundCard(0, tone).deliver(2, clock, synchroniser, out);
    ASSERT_GT(out.size(), std::size_t(1.9 * kSoundRate));
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_NEAR(out[i], tone(double(i) / kSoundRate), 0.001) << i;
}

TEST(SoundSynchroniser, KeepsSoundInPlaceOnACardThatRunsFastOrSlow)
{
    for (const double partsPerMillion : {-300.0, 100.0, 300.0}) {
        SegmentClock clock;
        clock.resume(kNoon);
        SoundSynchroniser synchroniser;
        SoundCard card(partsPerMillion, clicks);
        card.setJitter(0.005);
        std::vector<float> out;
        card.deliver(400, clock, synchroniser, out);
        EXPECT_NEAR(double(out.size()) / kSoundRate, 400, 0.1) << partsPerMillion;
        const auto heard = clicksIn(out);
        ASSERT_EQ(heard.size(), 399U) << partsPerMillion;
        for (std::size_t i = 0; i < heard.size(); ++i)
            ASSERT_NEAR(heard[i], double(i + 1), 0.02) << partsPerMillion;
    }
}

TEST(SoundSynchroniser, StretchesWithoutAClickAndBarelyAudibly)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    SoundCard card(300, tone);
    card.setJitter(0.01);
    std::vector<float> out;
    for (int second = 1; second <= 120; ++second) {
        card.deliver(second, clock, synchroniser, out);
        EXPECT_LT(std::abs(synchroniser.stretch()), 0.005);
    }
    // The steepest that the tone itself gets.
    EXPECT_LT(largestStep(out), 0.5F * 440 * 2 * 3.1416F / kSoundRate * 1.1F);
}

TEST(SoundSynchroniser, LearnsTheCardsDrift)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    SoundCard card(-200, tone);
    std::vector<float> out;
    card.deliver(120, clock, synchroniser, out);
    EXPECT_NEAR(synchroniser.stretch(), 200e-6, 20e-6);
}

TEST(SoundSynchroniser, FillsAHoleWithSilenceOfItsLength)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    SoundCard card(0, [](double) { return 0.5F; });
    std::vector<float> out;
    card.deliver(2, clock, synchroniser, out);
    card.skip(5);
    card.deliver(7, clock, synchroniser, out);
    ASSERT_GT(out.size(), std::size_t(6.9 * kSoundRate));
    EXPECT_NEAR(double(std::ranges::count(out, 0.0F)) / kSoundRate, 3, 0.06);
    EXPECT_EQ(out[std::size_t(3.5 * kSoundRate)], 0);
    EXPECT_FLOAT_EQ(out[std::size_t(1.5 * kSoundRate)], 0.5F);
    EXPECT_FLOAT_EQ(out[std::size_t(5.5 * kSoundRate)], 0.5F);
}

TEST(SoundSynchroniser, IsSilentUntilSoundComes)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    SoundCard card(0, clicks);
    card.skip(1.5);
    std::vector<float> out;
    card.deliver(4.5, clock, synchroniser, out);
    const auto heard = clicksIn(out);
    ASSERT_EQ(heard.size(), 3U);
    EXPECT_NEAR(heard[0], 2, 0.001);
}

TEST(SoundSynchroniser, DropsWhatComesAfterItsTimeWasFilled)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    synchroniser.fillUntil(2500ms, out);
    EXPECT_EQ(out.size(), std::size_t(2.5 * kSoundRate));
    SoundCard card(0, clicks);
    card.deliver(4.5, clock, synchroniser, out);
    const auto heard = clicksIn(out);
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_NEAR(heard[0], 3, 0.001);
    EXPECT_NEAR(heard[1], 4, 0.001);
}

TEST(SoundSynchroniser, NeverFillsWhatIsThere)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    SoundCard(0, tone).deliver(2, clock, synchroniser, out);
    const auto size = out.size();
    synchroniser.fillUntil(1s, out);
    EXPECT_EQ(out.size(), size);
    EXPECT_EQ(std::int64_t(size), synchroniser.produced());
}

TEST(SoundSynchroniser, FollowsALeapOfTheStamps)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    // Another source: its stamps are 100 ms off the first one's, too much to stretch away.
    double shift = 0;
    SoundCard card(0, [&](double seconds) { return clicks(seconds - shift); });
    card.deliver(10.5, clock, synchroniser, out);
    card.skip(10.6);
    card.deliver(20.5, clock, synchroniser, out);
    const auto heard = clicksIn(out);
    ASSERT_GE(heard.size(), 19U);
    EXPECT_NEAR(heard.back(), 20, 0.02);
}

TEST(SoundSynchroniser, CutsPausesOutWhereThePictureCutsThem)
{
    SegmentClock clock;
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    // It clicks a quarter of a second into each segment, and midway through each pause.
    constexpr double period = 2;
    constexpr double recordedPart = 0.777;
    SoundCard card(150, [](double seconds) {
        const double phase = std::fmod(seconds, period);
        return (phase >= 0.25 && phase < 0.252) || (phase >= 1.4 && phase < 1.402) ? 0.9F : 0.0F;
    });
    card.setJitter(0.004);
    for (int i = 0; i < 51; ++i) {
        clock.resume(at(i * period));
        // Sound arrives late: that of a segment's end when the pause has long begun.
        card.deliver(i * period + recordedPart - 0.1, clock, synchroniser, out);
        clock.pause(at(i * period + recordedPart));
        card.deliver((i + 1) * period, clock, synchroniser, out);
    }
    synchroniser.fillUntil(clock.recordedAt(at(51 * period)), out);
    EXPECT_NEAR(double(out.size()) / kSoundRate, 51 * recordedPart, 0.001);
    const auto heard = clicksIn(out);
    ASSERT_EQ(heard.size(), 51U);
    for (std::size_t i = 0; i < heard.size(); ++i)
        EXPECT_NEAR(heard[i], double(i) * recordedPart + 0.25, 0.02) << i;
}

TEST(SoundSynchroniser, TakesChunksOfAnySize)
{
    SegmentClock clock;
    clock.resume(kNoon);
    SoundSynchroniser synchroniser;
    std::vector<float> out;
    std::mt19937 generator(2);
    double now = 0;
    while (now < 5) {
        std::vector<float> samples(generator() % 4000);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = tone(now + double(i) / kSoundRate);
        synchroniser.take(clock, at(now), samples, out);
        now += double(samples.size()) / kSoundRate;
        for (int single = 0; single < 3; ++single, now += 1.0 / kSoundRate)
            synchroniser.take(clock, at(now), std::vector<float>{tone(now)}, out);
    }
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_NEAR(out[i], tone(double(i) / kSoundRate), 0.002) << i;
}
