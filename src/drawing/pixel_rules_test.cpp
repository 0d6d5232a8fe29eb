#include "drawing/pixel_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace quillora::drawing {
namespace {

Colour made(PixelRule rule, Colour colour, const PixelRuleSettings& settings = {})
{
    rule({&colour, 1}, settings);
    return colour;
}

constexpr Colour grey(int value) { return rgb(value, value, value); }

TEST(SplitColor, GivesRedGreenAndBlue) { EXPECT_EQ(SplitColor(rgb(1, 2, 3)), (Channels{1, 2, 3})); }

TEST(SplitColor, GivesMinusOneAsTheRedOfNoColour) { EXPECT_EQ(SplitColor(kNoColour), (Channels{-1, 0, 0})); }

TEST(HeldColour, HoldsChannelsAbove255There) { EXPECT_EQ(heldColour(256, 255, 1000), rgb(255, 255, 255)); }

TEST(BlackAndWhite, IsWhiteWhereAnyChannelIsAtLeast192)
{
    EXPECT_EQ(made(blackAndWhiteRow, rgb(192, 0, 0)), rgb(255, 255, 255));
    EXPECT_EQ(made(blackAndWhiteRow, rgb(0, 192, 0)), rgb(255, 255, 255));
    EXPECT_EQ(made(blackAndWhiteRow, rgb(0, 0, 192)), rgb(255, 255, 255));
    EXPECT_EQ(made(blackAndWhiteRow, rgb(191, 191, 191)), rgb(0, 0, 0));
}

TEST(Brighten, AddsThirtyTwoToEachChannelOfAPicture)
{
    EXPECT_EQ(made(brightenRow, rgb(0, 10, 200)), rgb(32, 42, 232));
}

TEST(Brighten, AddsTwoUnderABrush)
{
    EXPECT_EQ(made(brightenRow, rgb(0, 10, 200), {.small = true}), rgb(2, 12, 202));
}

TEST(Brighten, HoldsWhiteAtWhite) { EXPECT_EQ(made(brightenRow, grey(255)), grey(255)); }

TEST(Darken, TakesThirtyTwoFromEachChannelOfAPicture)
{
    EXPECT_EQ(made(darkenRow, rgb(32, 42, 232)), rgb(0, 10, 200));
}

TEST(Darken, TakesTwoUnderABrush)
{
    EXPECT_EQ(made(darkenRow, rgb(2, 12, 202), {.small = true}), rgb(0, 10, 200));
}

TEST(Darken, FoldsDarkChannelsBackUpward)
{
    EXPECT_EQ(made(darkenRow, grey(10)), grey(22));
    EXPECT_EQ(made(darkenRow, grey(1), {.small = true}), grey(1));
}

TEST(Grey, WeighsEachChannelWithThirtyTwoHundredths)
{
    EXPECT_EQ(made(greyRow, rgb(100, 0, 0)), grey(32));
    EXPECT_EQ(made(greyRow, rgb(0, 100, 0)), grey(32));
    EXPECT_EQ(made(greyRow, rgb(0, 0, 100)), grey(32));
}

TEST(Grey, MakesOfWhiteALightGrey) { EXPECT_EQ(made(greyRow, grey(255)), grey(245)); }

TEST(Grey, RoundsEverySumToTheNearest)
{
    for (int sum = 0; sum <= 765; ++sum) {
        const Colour colour = rgb(std::min(sum, 255), std::clamp(sum - 255, 0, 255), std::max(sum - 510, 0));
        EXPECT_EQ(made(greyRow, colour), grey(static_cast<int>(std::lround(sum * 0.32)))) << sum;
    }
}

TEST(ReplaceColour, ChangesPixelsOfThatColourAlone)
{
    const PixelRuleSettings settings{
        .replacement = {.replaceFrom = rgb(1, 2, 3), .replaceWith = rgb(4, 5, 6)}};
    EXPECT_EQ(made(replaceColourRow, rgb(1, 2, 3), settings), rgb(4, 5, 6));
    EXPECT_EQ(made(replaceColourRow, rgb(1, 2, 4), settings), rgb(1, 2, 4));
}

TEST(ComicGrey, IsAThirdOfThreeProductsOneBuiltOnTheOther)
{
    // r2 = |(90 - 60 + 90 + 80) * 80| / 256 = 62.5, to the even neighbour 62.
    // g2 = |(60 - 90 + 60 + 62) * 62| / 256 = 22.28 = 22. b2 = |(60 - 22 + 60 + 62) * 22| / 256 = 13.75 = 14.
    EXPECT_EQ(comicGrey(rgb(80, 90, 60)), grey(33));
    // Each of the three products is 0.
    EXPECT_EQ(comicGrey(rgb(0, 200, 0)), grey(0));
}

TEST(ComicGrey, TakesTheSignFromAProduct)
{
    // r2 = |(0 - 200 + 0 + 100) * 100| / 256 = 39.06 = 39. g2 = |(200 - 0 + 200 + 39) * 39| / 256 = 66.88
    // = 67. b2 = |(200 - 67 + 200 + 39) * 67| / 256 = 97.36 = 97. All three: 203 / 3 = 67.67 = 68.
    EXPECT_EQ(comicGrey(rgb(100, 0, 200)), grey(68));
}

TEST(ComicGrey, OverflowsAtAProductBeyondSixteenBits)
{
    EXPECT_NO_THROW(comicGrey(rgb(181, 0, 0)));
    EXPECT_THROW(comicGrey(rgb(182, 0, 0)), std::overflow_error);
    EXPECT_THROW(comicGrey(rgb(255, 255, 255)), std::overflow_error);
}

TEST(ComicGrey, LeavesNoColourWithoutAFailure) { EXPECT_EQ(comicGrey(kNoColour), grey(0)); }

} // namespace
} // namespace quillora::drawing
