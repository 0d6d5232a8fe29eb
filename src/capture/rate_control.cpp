#include "capture/rate_control.h"

#include <algorithm>

namespace quillora::capture {

namespace {

/// Savings are worth at most this much time: a long still lecture must not be followed by a minute at ten
/// times the bitrate, which a player on the network could not follow.
constexpr double kMostSavedSeconds = 10;
/// What an isolated change may owe: the first slide of a recording, with nothing saved yet, takes up to 180
/// KB.
constexpr double kMostOwedSeconds = 2.5;
/// How fast savings are spent, and debts paid, while pictures go on changing.
constexpr double kSpreadSeconds = 3;
/// How far motion at the coarsest quantiser may overdraw before frames are left out: coarse motion is better
/// to watch than a picture that stands still, but what is overdrawn stays overdrawn at a recording's end.
constexpr double kMostOverdrawnSeconds = 0.4;
/// Motion is aimed a little below the bitrate, since the estimate is wrong on either side.
constexpr double kAim = 0.97;

/// Bits a pixel at quantiser 1 of a typical slide; measured on real decks it is 3 to 7.
constexpr double kFirstDensity = 6;
constexpr double kLowestDensity = 0.2;
constexpr double kHighestDensity = 60;
/// A correction takes about half of what encoding the same step from nothing takes.
constexpr double kRefinementShare = 0.5;
/// The second correction at the finest quantiser still catches what exceeded the range in the first.
constexpr int kMostRefinements = 2;
/// What a frame takes when nothing in it has changed.
constexpr double kEmptyFrameBitsPerPixel = 0.016;
/// Less work than this tells nothing about the density: the empty frame's share outweighs it.
constexpr double kLeastInstructiveShare = 0.02;

} // namespace

RateControl::RateControl(double bitsPerSecond, double framesPerSecond, std::int64_t pixels)
    : m_bitsPerFrame(bitsPerSecond / framesPerSecond),
      m_framesPerSecond(framesPerSecond),
      m_pixels(double(pixels)),
      m_density(kFirstDensity)
{}

double RateControl::work(std::int64_t changedPixels, int quantiser) const
{
    const double fromNothing = double(changedPixels) / quantiser;
    const double correction = std::max(0.0, 1.0 / quantiser - 1.0 / m_shownQuantiser);
    return fromNothing + kRefinementShare * (m_pixels - double(changedPixels)) * correction;
}

std::optional<int> RateControl::fitting(std::int64_t changedPixels, int finest) const
{
    const bool moving = m_motion > 0.5;
    const double spread =
        moving ? 1 + kSpreadSeconds * m_framesPerSecond * std::min(1.0, (m_motion - 0.5) / 2.5) : 1;
    const double owed = moving ? 0 : kMostOwedSeconds * m_bitsPerFrame * m_framesPerSecond;
    const double affordable =
        std::max(kAim * m_bitsPerFrame + (m_savings + owed) / spread, 0.25 * m_bitsPerFrame);

    const double overhead = kEmptyFrameBitsPerPixel * m_pixels;
    for (int quantiser = inMotion() ? std::max(finest, kFinestForMotion) : finest; quantiser <= kCoarsest;
         ++quantiser)
        if (m_density * work(changedPixels, quantiser) + overhead <= affordable)
            return quantiser;
    return m_savings < -kMostOverdrawnSeconds * m_bitsPerFrame * m_framesPerSecond ? std::nullopt
                                                                                   : std::optional(kCoarsest);
}

std::optional<int> RateControl::forStill() const
{
    if (m_shownQuantiser == kFinestForStill && m_refinements >= kMostRefinements)
        return std::nullopt;
    const double owed = kMostOwedSeconds * m_bitsPerFrame * m_framesPerSecond;
    const double affordable = (m_savings + owed) / (1 + 2 * std::max(0.0, m_motion - 1.5));
    // Many small steps would cost more than one that waits: each must better the picture visibly.
    const int worthwhile = std::max(kFinestForStill, m_shownQuantiser * 2 / 3);
    for (int quantiser = kFinestForStill; quantiser <= worthwhile; ++quantiser)
        if (m_density * work(0, quantiser) <= affordable)
            return quantiser;
    return std::nullopt;
}

bool RateControl::affordsKeyFrame() const
{
    return m_savings >= 1.5 * m_density * m_pixels / kFinestForKeyFrame;
}

void RateControl::encodedChange(std::int64_t bits, int quantiser, std::int64_t changedPixels)
{
    learn(bits, work(changedPixels, quantiser));
    m_shownQuantiser = quantiser;
    m_refinements = 0;
    pass(bits, double(changedPixels) / m_pixels);
}

void RateControl::encodedStill(std::int64_t bits, int quantiser)
{
    m_refinements = quantiser == kFinestForStill ? m_refinements + 1 : 0;
    m_shownQuantiser = quantiser;
    pass(bits, 0);
}

void RateControl::repeated(std::int64_t bits) { pass(bits, 0); }

void RateControl::leftOut(std::int64_t bits, std::int64_t changedPixels)
{
    pass(bits, double(changedPixels) / m_pixels);
}

void RateControl::pass(std::int64_t bits, double changedShare)
{
    const double most = kMostSavedSeconds * m_bitsPerFrame * m_framesPerSecond;
    m_savings = std::min(m_savings + m_bitsPerFrame - double(bits), most);
    // Motion that has stopped is forgotten sooner than its pauses between two frames.
    m_motion = changedShare > 0 ? m_motion * (1 - 1 / m_framesPerSecond) + changedShare : m_motion * 0.85;
}

void RateControl::learn(std::int64_t bits, double workDone)
{
    if (workDone < kLeastInstructiveShare * m_pixels / kFinestForChange)
        return;
    const double overhead = kEmptyFrameBitsPerPixel * m_pixels;
    const double seen = std::max(0.0, double(bits) - overhead) / workDone;
    m_density = std::clamp((m_density + seen) / 2, kLowestDensity, kHighestDensity);
}

} // namespace quillora::capture
