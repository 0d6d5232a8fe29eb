#include "drawing/brush_tools.h"

#include "tests/support/fake_random_numbers.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace quillora::drawing {
namespace {

using tests::expectedGrid;
using tests::kInk;
using tests::kPaint;
using tests::kPaper;
using tests::pixelGrid;

struct SprayTest : testing::Test {
    Surface surface{12, 12, kPaper};
    tests::FakeRandomNumbers random;
};

TEST_F(SprayTest, PutsFourDotsIntoASquareOfFourPixelsAtPenWidthOne)
{
    random.numbers = {0, 0, 0.75F, 0, 0, 0.75F, 0.75F, 0.75F};
    SprayDots(surface, random, 6, 6, 4);
    EXPECT_EQ(random.given, 2U * 4U);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............
        ............
        ............
        ............
        ....#..#....
        ............
        ............
        ....#..#....
        ............
        ............
        ............
        ............
    )"));
}

TEST_F(SprayTest, Puts256DotsIntoASquareOfThirtyTwoPixelsAtPenWidthEight)
{
    SprayDots(surface, random, 6, 6, 32);
    EXPECT_EQ(random.given, 2U * 256U);
}

TEST_F(SprayTest, DrawsOnePixelDotsAndGivesThePenItsWidthBack)
{
    surface.DrawWidth = 5;
    random.numbers = {0.5F};
    SprayDots(surface, random, 6, 6, 4);
    EXPECT_EQ(surface.DrawWidth, 5);
    EXPECT_EQ(surface.Point(6, 6), kInk);
    EXPECT_EQ(surface.Point(5, 6), kPaper);
}

TEST_F(SprayTest, SeedsItsChanceFromTheClockEachTime)
{
    SprayDots(surface, random, 6, 6, 4);
    SprayDots(surface, random, 6, 6, 4);
    EXPECT_EQ(random.reseeded, 2);
}

TEST_F(SprayTest, DrawsOnlyThePartOfTheSquareThatLiesOnTheSurface)
{
    random.numbers = {0, 0.5F, 0.9F, 0.5F};
    SprayDots(surface, random, 0, 6, 8);
    EXPECT_EQ(surface.Point(3, 6), kInk);
    int drawn = 0;
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x)
            drawn += surface.Point(x, y) == kInk;
    }
    EXPECT_EQ(drawn, 1);
}

TEST_F(SprayTest, FailsAtASizeWhoseSquareNeedsMoreThanSixteenBits)
{
    EXPECT_NO_THROW(SprayDots(surface, random, 6, 6, 181));
    surface.DrawWidth = 3;
    EXPECT_THROW(SprayDots(surface, random, 6, 6, 182), std::overflow_error);
    EXPECT_EQ(surface.DrawWidth, 1);
}

TEST_F(SprayTest, FailsAtAPlaceBeyondSixteenBits)
{
    EXPECT_THROW(SprayDots(surface, random, 32768, 0, 4), std::overflow_error);
    EXPECT_THROW(SprayDots(surface, random, 0, -1e30F, 4), std::overflow_error);
    EXPECT_NO_THROW(SprayDots(surface, random, std::nanf(""), 0, 4));
}

struct StampTest : testing::Test {
    Surface surface{9, 9, kPaper};

    /// A tip of pen width 1, three pixels to each side of the middle.
    std::string stamped(int shape)
    {
        surface.FillColor = kPaint;
        StampBrush(surface, FillPattern::solid, shape, 4, 4);
        return pixelGrid(surface.Image());
    }
};

TEST_F(StampTest, IsAFilledBoxInThePenColourForShapeZero)
{
    EXPECT_EQ(stamped(0), expectedGrid(R"(
        .........
        .#######.
        .#######.
        .#######.
        .#######.
        .#######.
        .#######.
        .#######.
        .........
    )"));
    EXPECT_EQ(surface.FillStyle, FillPattern::solid);
}

TEST_F(StampTest, IsAFilledDiscForShapeOne)
{
    EXPECT_EQ(stamped(1), expectedGrid(R"(
        .........
        ...###...
        ..#ooo#..
        .#ooooo#.
        .#ooooo#.
        .#ooooo#.
        ..#ooo#..
        ...###...
        .........
    )"));
}

TEST_F(StampTest, IsTheOutlineOfABoxForShapeTwo)
{
    EXPECT_EQ(stamped(2), expectedGrid(R"(
        .........
        .#######.
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        .#######.
        .........
    )"));
    EXPECT_EQ(surface.FillStyle, FillPattern::transparent);
}

TEST_F(StampTest, IsTheOutlineOfADiscForShapeThree)
{
    EXPECT_EQ(stamped(3), expectedGrid(R"(
        .........
        ...###...
        ..#...#..
        .#.....#.
        .#.....#.
        .#.....#.
        ..#...#..
        ...###...
        .........
    )"));
}

TEST_F(StampTest, IsAPlusForShapeFour)
{
    EXPECT_EQ(stamped(4), expectedGrid(R"(
        .........
        ....#....
        ....#....
        ....#....
        .######..
        ....#....
        ....#....
        .........
        .........
    )"));
}

TEST_F(StampTest, IsACrossForShapeFive)
{
    EXPECT_EQ(stamped(5), expectedGrid(R"(
        .........
        .#.......
        ..#...#..
        ...#.#...
        ....#....
        ...#.#...
        ..#...#..
        .#.......
        .........
    )"));
}

TEST_F(StampTest, IsARisingLineForShapeSix)
{
    EXPECT_EQ(stamped(6), expectedGrid(R"(
        .........
        .........
        ......#..
        .....#...
        ....#....
        ...#.....
        ..#......
        .#.......
        .........
    )"));
}

TEST_F(StampTest, IsAFallingLineForShapeSeven)
{
    EXPECT_EQ(stamped(7), expectedGrid(R"(
        .........
        .#.......
        ..#......
        ...#.....
        ....#....
        .....#...
        ......#..
        .........
        .........
    )"));
}

TEST_F(StampTest, IsALevelLineForShapeEight)
{
    EXPECT_EQ(stamped(8), expectedGrid(R"(
        .........
        .........
        .........
        .........
        .######..
        .........
        .........
        .........
        .........
    )"));
}

TEST_F(StampTest, IsAnUprightLineForShapeNine)
{
    EXPECT_EQ(stamped(9), expectedGrid(R"(
        .........
        ....#....
        ....#....
        ....#....
        ....#....
        ....#....
        ....#....
        .........
        .........
    )"));
}

TEST_F(StampTest, IsNothingForAShapeBeyondNine)
{
    for (const int shape : {10, 2147483647, -1})
        EXPECT_EQ(surface.Image(), (stamped(shape), RasterImage(9, 9, kPaper)));
}

TEST_F(StampTest, IsDrawnThinAndGivesThePenItsWidthBack)
{
    surface.DrawWidth = 2;
    EXPECT_EQ(stamped(9).find("##"), std::string::npos);
    EXPECT_EQ(surface.DrawWidth, 2);
}

TEST_F(StampTest, FailsAtAPenWhoseTipNeedsMoreThanSixteenBits)
{
    surface.DrawWidth = 10923;
    EXPECT_THROW(stamped(0), std::overflow_error);
    EXPECT_EQ(surface.DrawWidth, 1);
}

} // namespace
} // namespace quillora::drawing
