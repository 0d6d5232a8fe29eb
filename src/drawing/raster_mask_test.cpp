#include "drawing/raster_mask.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace quillora;
using namespace quillora::drawing;

namespace {

std::string runsOf(const RasterMask& mask)
{
    std::string runs;
    mask.forEachRun([&](int y, int left, int end) {
        runs += std::to_string(y) + ":" + std::to_string(left) + "-" + std::to_string(end) + " ";
    });
    return runs;
}

} // namespace

TEST(RasterMask, IsEmptyAtFirst) { EXPECT_EQ(runsOf(RasterMask(200, 3)), ""); }

TEST(RasterMask, JoinsSpansThatOverlapOrMeet)
{
    RasterMask mask(200, 3);
    mask.addSpan(1, 10, 70);
    mask.addSpan(1, 60, 63);
    mask.addSpan(1, 71, 71);
    mask.addSpan(2, 0, 0);
    EXPECT_EQ(runsOf(mask), "1:10-72 2:0-1 ");
}

TEST(RasterMask, KeepsSpansApartAcrossItsWords)
{
    RasterMask mask(200, 1);
    mask.addSpan(0, 63, 64);
    mask.addSpan(0, 66, 127);
    mask.addSpan(0, 129, 199);
    EXPECT_EQ(runsOf(mask), "0:63-65 0:66-128 0:129-200 ");
}

TEST(RasterMask, FillsItsWholeWidth)
{
    for (const int width : {1, 63, 64, 65, 128}) {
        RasterMask mask(width, 1);
        mask.addSpan(0, 0, width - 1);
        EXPECT_EQ(runsOf(mask), "0:0-" + std::to_string(width) + " ");
    }
}

TEST(RasterMask, LeavesOutWhatLiesOutside)
{
    constexpr std::int64_t farthest = std::numeric_limits<std::int64_t>::max();
    RasterMask mask(100, 2);
    mask.addSpan(-1, 0, 10);
    mask.addSpan(2, 0, 10);
    mask.addSpan(0, 100, farthest);
    mask.addSpan(0, -farthest, -1);
    mask.addSpan(1, -farthest, farthest);
    EXPECT_EQ(runsOf(mask), "1:0-100 ");
}

TEST(RasterMask, TakesThePixelsBetweenEverySecondPairOfEdges)
{
    RasterMask mask(150, 2);
    for (const int edge : {-7, 3, 60, 130, 140, 400})
        mask.toggleFrom(1, edge);
    std::string between;
    mask.forEachRunBetweenEdges([&](int y, int left, int end) {
        between += std::to_string(y) + ":" + std::to_string(left) + "-" + std::to_string(end) + " ";
    });
    mask.settleEdges();
    EXPECT_EQ(between, runsOf(mask));
    EXPECT_EQ(runsOf(mask), "1:0-3 1:60-130 1:140-150 ");
}

TEST(RasterMask, LosesWhatIsSubtracted)
{
    RasterMask mask(100, 3);
    RasterMask other(100, 3);
    mask.addSpan(1, 10, 90);
    other.addSpan(0, 0, 99);
    other.addSpan(1, 20, 69);
    mask.subtract(other);
    EXPECT_EQ(runsOf(mask), "1:10-20 1:70-91 ");
}

TEST(RasterMask, IsEmptyAgainOnceItIsCleared)
{
    RasterMask mask(100, 3);
    mask.addSpan(1, 10, 90);
    mask.clear();
    EXPECT_EQ(runsOf(mask), "");
    mask.addSpan(2, 5, 6);
    EXPECT_EQ(runsOf(mask), "2:5-7 ");
}
