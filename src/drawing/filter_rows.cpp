#include "drawing/filter_rows.h"

#include <algorithm>

namespace quillora::drawing {
namespace {

// Whole numbers throughout, cut back to 16 bits after every step though the language reckons in int: only so
// does the compiler take eight channels at a time. Every value fits (the widest is 25 * 255).

constexpr Channel narrow(int value) { return static_cast<Channel>(value); }

constexpr Channel withoutSign(Channel value) { return std::max(value, narrow(-value)); }

constexpr std::uint8_t held(Channel value) { return static_cast<std::uint8_t>(value > 255 ? 255 : value); }

/// value / 2 to the nearest, a half to the even neighbour.
constexpr Channel halfOf(Channel value)
{
    const Channel below = narrow(value >> 1);
    return narrow(narrow(value + narrow(below & 1)) >> 1);
}

/// sum / 10 to the nearest, a half to the even neighbour; 0 where pixels that are not there made it negative.
constexpr std::uint8_t tenthOf(Channel sum)
{
    const Channel raised = narrow((sum < 0 ? narrow(0) : sum) + 5);
    const auto tenth = static_cast<std::uint16_t>((static_cast<std::uint16_t>(raised) * 6554U) >> 16U);
    const bool half = static_cast<std::uint16_t>(tenth * 10U) == static_cast<std::uint16_t>(raised);
    return static_cast<std::uint8_t>(tenth & (half ? 0xFFFEU : 0xFFFFU));
}

} // namespace

void softBlurRow(const SourceRows& source, std::uint8_t* target, int width)
{
    const Channel* const above = source.above;
    const Channel* const here = source.here;
    const Channel* const below = source.below;
    const auto column = [&](int i) { return narrow(narrow(above[i] + here[i]) + below[i]); };
    for (int i = 0; i < width * kChannelsPerPixel; ++i)
        target[i] = tenthOf(
            narrow(narrow(column(i - kChannelsPerPixel) + column(i)) + column(i + kChannelsPerPixel)));
}

void embossRow(const SourceRows& source, std::uint8_t* target, int width)
{
    const Channel* const here = source.here;
    const Channel* const next = source.below + kChannelsPerPixel;
    for (int i = 0; i < width * kChannelsPerPixel; ++i)
        target[i] = held(withoutSign(narrow(narrow(here[i] - next[i]) - 128)));
}

void sharpenRow(const SourceRows& source, std::uint8_t* target, int width)
{
    const Channel* const here = source.here;
    const Channel* const previous = source.above - kChannelsPerPixel;
    for (int i = 0; i < width * kChannelsPerPixel; ++i)
        target[i] = held(withoutSign(halfOf(narrow(narrow(3 * here[i]) - previous[i]))));
}

void strongSharpenRow(const SourceRows& source, std::uint8_t* target, int width)
{
    const Channel* const here = source.here;
    const Channel* const previous = source.above - kChannelsPerPixel;
    for (int i = 0; i < width * kChannelsPerPixel; ++i)
        target[i] = held(withoutSign(narrow(narrow(25 * here[i]) - narrow(24 * previous[i]))));
}

} // namespace quillora::drawing
