// sync_soak [MINUTES]
//
// An hour of recording in some seconds, on a simulated clock: a sound card that runs 300 parts in a million
// fast or slow, 51 pauses, and half a minute now and then in which no sound arrives. Something flashes and
// clicks once a second; told is how far flash and click of one moment are from each other in the recording.
// Wanted: at most 40 ms, everywhere.

#include "capture/frame_pacer.h"
#include "capture/segment_clock.h"
#include "capture/sound_synchroniser.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <vector>

using namespace quillora::capture;

namespace {

constexpr double kRate = 24;
/// Not a multiple of a frame's length, so that the click comes at every place between two frames.
constexpr double kClickInterval = 1.0037;
constexpr double kClickLength = 0.002;
constexpr double kWantedSeconds = 0.040;
constexpr int kPauses = 51;
constexpr int kGaps = 8;

CaptureClock::duration duration(double seconds)
{
    return std::chrono::duration_cast<CaptureClock::duration>(std::chrono::duration<double>(seconds));
}

CaptureClock::time_point at(double seconds) { return CaptureClock::time_point(duration(43200 + seconds)); }

double seconds(RecordedTime time) { return std::chrono::duration<double>(time).count(); }

struct Interval {
    double begin = 0;
    double end = 0;
};

/// Moments spread over the hour at random, each with a length of up to @p longest.
std::vector<Interval> intervals(int count, double total, double longest, std::mt19937& random)
{
    std::vector<Interval> found;
    const double each = total / (count + 1);
    for (int i = 1; i <= count; ++i) {
        const double begin = each * i + std::uniform_real_distribution<double>(0, each / 3)(random);
        found.push_back({begin, begin + std::uniform_real_distribution<double>(0.05, longest)(random)});
    }
    return found;
}

bool within(const std::vector<Interval>& all, double moment, double margin)
{
    return std::ranges::any_of(all, [&](const Interval& each) {
        return moment > each.begin - margin && moment < each.end + margin;
    });
}

struct Result {
    double worst = 0;
    int heard = 0;
    int missing = 0;
    double lengthError = 0;
};

class Simulation {
  public:
    Simulation(double minutes, double partsPerMillion)
        : m_total(minutes * 60),
          m_pauses(intervals(kPauses, m_total, 5, m_random)),
          m_gaps(intervals(kGaps, m_total, 30, m_random)),
          m_cardRate(kSoundRate * (1 + partsPerMillion * 1e-6))
    {}

    Result run()
    {
        m_clock.resume(at(0));
        std::size_t pause = 0;
        constexpr int chunk = kSoundRate / 40;
        std::vector<float> samples(chunk);
        for (double now = 0; now < m_total; now += chunk / m_cardRate) {
            const double arrival = now + chunk / m_cardRate;
            for (; pause < 2 * m_pauses.size() && edge(pause) < arrival; ++pause)
                turn(pause);
            if (!within(m_gaps, now, 0)) {
                for (int i = 0; i < chunk; ++i)
                    samples[std::size_t(i)] = clicksAt(now + i / m_cardRate) ? 0.9F : 0;
                std::normal_distribution<double> jitter(0, 0.003);
                m_synchroniser.take(m_clock, at(now + jitter(m_random)), samples, m_sound);
            }
            m_synchroniser.fillUntil(m_clock.recordedAt(at(arrival - 1)), m_sound);
            listen();
        }
        return judged();
    }

  private:
    static bool clicksAt(double moment) { return std::fmod(moment, kClickInterval) < kClickLength; }

    double edge(std::size_t number) const
    {
        const Interval& pause = m_pauses[number / 2];
        return number % 2 == 0 ? pause.begin : pause.end;
    }

    void turn(std::size_t number)
    {
        if (number % 2 == 0)
            m_clock.pause(at(edge(number)));
        else
            m_clock.resume(at(edge(number)));
        m_pacer.framesDue(m_clock, at(edge(number)));
    }

    void listen()
    {
        for (const float sample : m_sound) {
            if (sample > 0.45F && !m_loud)
                m_heard.insert(double(m_position) / kSoundRate);
            m_loud = sample > 0.45F;
            ++m_position;
        }
        m_sound.clear();
    }

    /// Where in the recording a flash of @p moment is first seen: in the first frame that is taken after it.
    static double seenAt(double recorded) { return std::ceil(recorded * kRate - 0.5) / kRate; }

    Result judged()
    {
        Result result;
        // Where sound comes back it finds its place within some seconds.
        constexpr double margin = 0.3;
        for (double moment = kClickInterval; moment < m_total - 2; moment += kClickInterval) {
            if (within(m_pauses, moment, margin) || within(m_gaps, moment, margin))
                continue;
            const double seen = seenAt(seconds(m_clock.recordedAt(at(moment))));
            const auto after = m_heard.lower_bound(seen);
            double distance = 1e9;
            if (after != m_heard.end())
                distance = *after - seen;
            if (after != m_heard.begin() && seen - *std::prev(after) < std::abs(distance))
                distance = *std::prev(after) - seen;
            if (std::abs(distance) > 0.3) {
                ++result.missing;
                continue;
            }
            ++result.heard;
            result.worst = std::max(result.worst, std::abs(distance));
        }
        const double recorded = seconds(m_clock.recordedAt(at(m_total)));
        result.lengthError = double(m_pacer.framesDue(m_clock, at(m_total))) / kRate - recorded;
        return result;
    }

    std::mt19937 m_random{3};
    double m_total;
    std::vector<Interval> m_pauses;
    std::vector<Interval> m_gaps;
    double m_cardRate;
    SegmentClock m_clock{};
    FramePacer m_pacer{kRate};
    SoundSynchroniser m_synchroniser{};
    std::vector<float> m_sound{};
    std::set<double> m_heard{};
    std::int64_t m_position = 0;
    bool m_loud = false;
};

} // namespace

int main(int count, char** arguments)
{
    const double minutes = count > 1 ? std::atof(arguments[1]) : 60;
    bool held = true;
    double worst = 0;
    for (const double drift : {-300.0, 0.0, 300.0}) {
        const Result result = Simulation(minutes, drift).run();
        std::printf("  %+.0f ppm: %d clicks, at most %.1f ms from their flash, %d lost, pictures %+.1f ms "
                    "longer than "
                    "what was recorded\n",
                    drift, result.heard, 1000 * result.worst, result.missing, 1000 * result.lengthError);
        worst = std::max(worst, result.worst);
        held = held && result.worst <= kWantedSeconds && result.missing == 0 && result.heard > minutes * 30 &&
               std::abs(result.lengthError) <= 1 / kRate;
    }
    std::printf("simulated %.0f minutes: sound at most %.1f ms from its picture (wanted: 40)\n", minutes,
                1000 * worst);
    return held ? 0 : 1;
}
