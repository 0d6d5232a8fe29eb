#include "drawing/filter_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace quillora::drawing {
namespace {

/// Three rows of three pixels, all channels of a pixel alike; the filters reckon the middle one.
struct Block {
    std::array<std::array<Channel, 12>, 3> rows{};

    explicit Block(const std::array<std::array<int, 3>, 3>& values)
    {
        for (int y = 0; y < 3; ++y) {
            for (int i = 0; i < 12; ++i)
                rows[y][i] = static_cast<Channel>(values[y][i / 4]);
        }
    }
    int filtered(RowFilter filter) const
    {
        std::array<std::uint8_t, 4> target{};
        filter({&rows[0][4], &rows[1][4], &rows[2][4]}, target.data(), 1);
        return target[0];
    }
};

/// To the nearest, a half to the even neighbour, by another road than the filters'.
int rounded(double value) { return static_cast<int>(std::nearbyint(value)); }

int centreOf(RowFilter filter, int previous, int here, int next)
{
    return Block({{{previous, 0, 0}, {0, here, 0}, {0, 0, next}}}).filtered(filter);
}

TEST(SoftBlur, IsTheBlockOverTen)
{
    EXPECT_EQ(Block({{{10, 20, 30}, {40, 50, 60}, {70, 80, 90}}}).filtered(softBlurRow), 45);
}

TEST(SoftBlur, DarkensWhiteByATenth)
{
    EXPECT_EQ(Block({{{255, 255, 255}, {255, 255, 255}, {255, 255, 255}}}).filtered(softBlurRow), 230);
}

TEST(SoftBlur, RoundsEverySumAHalfToTheEvenNeighbour)
{
    for (int sum = 0; sum <= 9 * 255; ++sum) {
        std::array<std::array<int, 3>, 3> values{};
        for (int i = 0; i < 9; ++i)
            values[i / 3][i % 3] = std::clamp(sum - i * 255, 0, 255);
        EXPECT_EQ(Block(values).filtered(softBlurRow), rounded(sum / 10.0)) << sum;
    }
}

TEST(SoftBlur, IsBlackWhereMostOfTheBlockIsMissing)
{
    EXPECT_EQ(Block({{{-1, -1, -1}, {-1, -1, -1}, {-1, -1, -1}}}).filtered(softBlurRow), 0);
}

TEST(Emboss, IsTheDifferenceFromBelowAndRightLess128WithoutItsSign)
{
    for (int here = -1; here <= 255; here += 4) {
        for (int next = -1; next <= 255; next += 4)
            EXPECT_EQ(centreOf(embossRow, 0, here, next), std::min(255, std::abs(here - next - 128)));
    }
}

TEST(Emboss, IsAMiddleGreyWhereThePictureIsEven) { EXPECT_EQ(centreOf(embossRow, 0, 77, 77), 128); }

TEST(Sharpen, AddsHalfTheDifferenceFromAboveAndLeft)
{
    for (int here = -1; here <= 255; ++here) {
        for (int previous = -1; previous <= 255; ++previous) {
            const int expected = std::min(255, std::abs(rounded(here + 0.5 * (here - previous))));
            ASSERT_EQ(centreOf(sharpenRow, previous, here, 0), expected) << here << " after " << previous;
        }
    }
}

TEST(StrongSharpen, AddsTwentyFourTimesTheDifference)
{
    for (int here = -1; here <= 255; here += 4) {
        for (int previous = -1; previous <= 255; previous += 4) {
            const int expected = std::min(255, std::abs(here + 24 * (here - previous)));
            ASSERT_EQ(centreOf(strongSharpenRow, previous, here, 0), expected);
        }
    }
}

} // namespace
} // namespace quillora::drawing
