#include "drawing/pixel_rules.h"

#include "base/rounding.h"
#include "drawing/sixteen_bits.h"

#include <algorithm>
#include <cstdlib>

namespace quillora::drawing {
namespace {

constexpr int kWhiteFrom = 192;
constexpr int kStep = 32;
constexpr int kSmallStep = 2;
constexpr float kGreyWeight = 0.32F;

template <typename Rule>
void eachPixel(std::span<Colour> row, Rule rule)
{
    for (Colour& pixel : row)
        pixel = rule(pixel);
}

void shiftRow(std::span<Colour> row, int step)
{
    eachPixel(row, [step](Colour pixel) {
        return heldColour(std::abs(redOf(pixel) + step), std::abs(greenOf(pixel) + step),
                          std::abs(blueOf(pixel) + step));
    });
}

int stepOf(const PixelRuleSettings& settings) { return settings.small ? kSmallStep : kStep; }

/// |factor * channel| / 256 to the nearest, the product in 16 bits.
int scaled(int factor, int channel)
{
    return base::roundToInt(std::abs(sixteenBits(sixteenBits(factor) * channel)) / 256.0);
}

} // namespace

Colour heldColour(int red, int green, int blue)
{
    return rgb(std::clamp(red, 0, 255), std::clamp(green, 0, 255), std::clamp(blue, 0, 255));
}

void blackAndWhiteRow(std::span<Colour> row, const PixelRuleSettings& /*settings*/)
{
    eachPixel(row, [](Colour pixel) {
        const bool light = std::max({redOf(pixel), greenOf(pixel), blueOf(pixel)}) >= kWhiteFrom;
        return light ? rgb(255, 255, 255) : rgb(0, 0, 0);
    });
}

void brightenRow(std::span<Colour> row, const PixelRuleSettings& settings)
{
    shiftRow(row, stepOf(settings));
}

void darkenRow(std::span<Colour> row, const PixelRuleSettings& settings) { shiftRow(row, -stepOf(settings)); }

void greyRow(std::span<Colour> row, const PixelRuleSettings& /*settings*/)
{
    // No sum of channels comes near a half, so adding one and cutting off rounds to the nearest.
    eachPixel(row, [](Colour pixel) {
        const int sum = redOf(pixel) + greenOf(pixel) + blueOf(pixel);
        const int grey = static_cast<int>(static_cast<float>(sum) * kGreyWeight + 0.5F);
        return static_cast<Colour>(grey | grey << 8 | grey << 16);
    });
}

void replaceColourRow(std::span<Colour> row, const PixelRuleSettings& settings)
{
    const auto from = settings.replacement.replaceFrom;
    const auto with = settings.replacement.replaceWith & kColourBits;
    eachPixel(row, [=](Colour pixel) { return pixel == from ? with : pixel; });
}

Colour comicGrey(Colour colour)
{
    const auto [red, green, blue] = SplitColor(colour);
    const int red2 = scaled(green - blue + green + red, red);
    const int green2 = scaled(blue - green + blue + red2, red2);
    const int blue2 = scaled(blue - green2 + blue + red2, green2);
    const auto [heldRed, heldGreen, heldBlue] = SplitColor(heldColour(red2, green2, blue2));
    const int grey = base::roundToInt((heldRed + heldGreen + heldBlue) / 3.0);
    return heldColour(grey, grey, grey);
}

} // namespace quillora::drawing
