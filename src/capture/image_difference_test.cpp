#include "capture/image_difference.h"

#include <gtest/gtest.h>

#include <string>

using namespace quillora::capture;

namespace {

constexpr int kWidth = 6;
constexpr int kHeight = 4;

/// Compares grids of one byte a pixel.
PixelRectangle changed(const std::string& before, const std::string& after)
{
    const auto rows = [](const std::string& grid) {
        return PixelRows{reinterpret_cast<const std::uint8_t*>(grid.data()), kWidth};
    };
    return changedPart(rows(before), rows(after), kWidth, kHeight, 1);
}

const std::string kBlank(static_cast<std::size_t>(kWidth* kHeight), '.');

} // namespace

TEST(ChangedPart, IsEmptyWhereNothingDiffers) { EXPECT_TRUE(changed(kBlank, kBlank).empty()); }

TEST(ChangedPart, IsOnePixelWhereOneDiffers)
{
    EXPECT_EQ(changed(kBlank, "......"
                              "....#."
                              "......"
                              "......"),
              (PixelRectangle{4, 1, 1, 1}));
}

TEST(ChangedPart, BoundsAllDifferences)
{
    EXPECT_EQ(changed(kBlank, "......"
                              "...#.."
                              ".#...."
                              "....#."),
              (PixelRectangle{1, 1, 4, 3}));
}

TEST(ChangedPart, ReachesTheEdges)
{
    EXPECT_EQ(changed(kBlank, "#....."
                              "......"
                              "......"
                              ".....#"),
              (PixelRectangle{0, 0, 6, 4}));
}

TEST(ChangedPart, CountsAPixelOnceWhicheverOfItsBytesDiffers)
{
    const std::uint8_t before[12] = {};
    std::uint8_t after[12] = {};
    after[5] = 1;
    after[8] = 1;
    EXPECT_EQ(changedPart({before, 12}, {after, 12}, 3, 1, 4), (PixelRectangle{1, 0, 2, 1}));
}

TEST(ChangedPart, LooksAtNoPadding)
{
    const std::uint8_t before[8] = {};
    const std::uint8_t after[8] = {0, 0, 0, 9, 0, 0, 0, 9};
    EXPECT_TRUE(changedPart({before, 4}, {after, 4}, 3, 2, 1).empty());
}

TEST(ChangedPart, ComparesRowsOfDifferentStrides)
{
    const std::uint8_t before[8] = {1, 2, 0, 0, 3, 4, 0, 0};
    const std::uint8_t after[4] = {1, 2, 3, 5};
    EXPECT_EQ(changedPart({before, 4}, {after, 2}, 2, 2, 1), (PixelRectangle{1, 1, 1, 1}));
}

TEST(ChangedPart, IsEmptyInAPictureWithoutPixels) { EXPECT_TRUE(changedPart({}, {}, 0, 5, 4).empty()); }
