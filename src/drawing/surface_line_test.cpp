#include "drawing/surface.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

TEST(SurfaceLine, DrawsItsFirstPixelAndNotItsLast)
{
    Surface surface(8, 3, kPaper);
    surface.Line(1, 1, 6, 1);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        .#####..
        ........)"));
}

TEST(SurfaceLine, LeavesOutTheLastPixelInEveryDirection)
{
    Surface surface(9, 9, kPaper);
    const int ends[8][2] = {{4, 1}, {7, 1}, {7, 4}, {7, 7}, {4, 7}, {1, 7}, {1, 4}, {1, 1}};
    for (const auto& [x, y] : ends)
        surface.Line(4, 4, x, y);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .........
        .........
        ..#.#.#..
        ...###...
        ..#####..
        ...###...
        ..#.#.#..
        .........
        .........)"));
}

TEST(SurfaceLine, TakesOnePixelAColumnOrARowWhereItIsSteeper)
{
    Surface surface(12, 9, kPaper);
    surface.Line(1, 1, 9, 4);
    surface.Line(0, 1, 3, 8);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............
        ###.........
        #..##.......
        .#...###....
        .#......#...
        ..#.........
        ..#.........
        ...#........
        ............)"));
}

TEST(SurfaceLine, IsNothingFromAPointToItselfWithAThinPen)
{
    Surface surface(3, 3, kPaper);
    surface.Line(1, 1, 1, 1);
    EXPECT_EQ(surface.Image(), RasterImage(3, 3, kPaper));
}

TEST(SurfaceLine, IsADotFromAPointToItselfWithAWidePen)
{
    Surface surface(5, 5, kPaper);
    surface.DrawWidth = 3;
    surface.Line(2, 2, 2, 2);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .....
        .###.
        .###.
        .###.
        .....)"));
}

TEST(SurfaceLine, HasRoundEndsRoundBothPointsWithAWidePen)
{
    Surface surface(20, 8, kPaper);
    surface.DrawWidth = 6;
    surface.Line(4, 4, 15, 4);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ....................
        ..###############...
        .#################..
        .#################..
        .#################..
        .#################..
        ..###############...
        ....................)"));
}

TEST(SurfaceLine, KeepsItsWidthWhenItRunsAslant)
{
    Surface surface(20, 12, kPaper);
    surface.DrawWidth = 4;
    surface.Line(4, 4, 15, 8);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ....................
        ....................
        ...###..............
        ..######............
        ..#########.........
        ...###########......
        .....###########....
        ........#########...
        ...........######...
        .............###....
        ....................
        ....................)"));
}

TEST(SurfaceLine, IsTheSameFromEitherEndWithAWidePen)
{
    Surface one(40, 40, kPaper);
    Surface other(40, 40, kPaper);
    one.DrawWidth = other.DrawWidth = 5;
    one.Line(4, 30, 33, 11);
    other.Line(33, 11, 4, 30);
    EXPECT_EQ(one.Image(), other.Image());
}

TEST(SurfaceLine, TakesTheExplicitColourForThisCallAlone)
{
    Surface surface(4, 2, kPaper);
    surface.Line(0, 0, 4, 0, LineForm::line, kPaint);
    surface.Line(0, 1, 4, 1);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        oooo
        ####)"));
}

TEST(SurfaceLine, RoundsItsPointsHalfToTheEvenNeighbour)
{
    Surface surface(6, 6, kPaper);
    surface.Line(0.5, 2.5, 3.5, 2.5);
    surface.Line(1.5, 3.5000001, 2.4999, 3.6);
    surface.Line(1.5, 4.5, 4, 4.5);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ......
        ......
        ####..
        ......
        ..##..
        ......)"));
}

TEST(SurfaceLine, CutsOffShowsThePixelsThatItShowsUncut)
{
    Surface whole(60, 50, kPaper);
    whole.Line(0, 3, 60, 47);
    Surface cut(11, 9, kPaper);
    cut.Line(-25, 3 - 20, 60 - 25, 47 - 20);
    EXPECT_EQ(pixelGrid(cut.Image()), pixelGrid(whole.Image(), {25, 20, 11, 9}));
}

TEST(SurfaceLine, CrossesTheSurfaceFromOneEndOfTheIntegersToTheOther)
{
    constexpr double farthest = std::numeric_limits<int>::max();
    Surface surface(5, 5, kPaper);
    surface.Line(-farthest, -farthest, farthest, farthest);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        #....
        .#...
        ..#..
        ...#.
        ....#)"));
}

TEST(SurfaceLine, TakesNoNumberForZero)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    Surface surface(4, 2, kPaper);
    surface.Line(nan, nan, 3, nan);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ###.
        ....)"));
}

TEST(SurfaceLine, IsDottedInThreesAlongItsWay)
{
    Surface surface(16, 8, kPaper);
    surface.DrawStyle = PenStyle::dotted;
    surface.Line(1, 1, 15, 1);
    surface.Line(1, 3, 15, 6);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ................
        .###...###...##.
        ................
        .###............
        .......#........
        ........##......
        .............##.
        ................)"));
}

TEST(SurfaceLine, IsOnePixelWideWhereItIsDotted)
{
    Surface surface(8, 3, kPaper);
    surface.DrawStyle = PenStyle::dotted;
    surface.DrawWidth = 8;
    surface.Line(1, 1, 8, 1);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        .###...#
        ........)"));
}

TEST(SurfaceLine, IsAtLeastOnePixelWide)
{
    Surface surface(4, 3, kPaper);
    surface.DrawWidth = -7;
    surface.Line(0, 1, 3, 1);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ....
        ###.
        ....)"));
}

TEST(SurfaceBox, HoldsBothOfItsCorners)
{
    Surface surface(8, 5, kPaper);
    surface.Line(1, 1, 6, 3, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        .######.
        .#....#.
        .######.
        ........)"));
}

TEST(SurfaceBox, TakesItsCornersInAnyOrder)
{
    Surface expected(8, 7, kPaper);
    expected.Line(1, 1, 6, 5, LineForm::box);
    const int corners[3][4] = {{6, 5, 1, 1}, {1, 5, 6, 1}, {6, 1, 1, 5}};
    for (const auto& [x1, y1, x2, y2] : corners) {
        Surface surface(8, 7, kPaper);
        surface.Line(x1, y1, x2, y2, LineForm::box);
        EXPECT_EQ(surface.Image(), expected.Image());
    }
}

TEST(SurfaceBox, FillsItsInsideWithTheBrush)
{
    Surface surface(8, 6, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.Line(6, 4, 1, 1, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        .######.
        .#oooo#.
        .#oooo#.
        .######.
        ........)"));
}

TEST(SurfaceBox, KeepsTheBrushWhenTheOutlineTakesAnExplicitColour)
{
    Surface surface(4, 3, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kInk;
    surface.Line(0, 0, 3, 2, LineForm::box, kPaint);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        oooo
        o##o
        oooo)"));
}

TEST(SurfaceBox, FromAPointToItselfIsOneDotOfThePen)
{
    Surface surface(12, 7, kPaper);
    surface.Line(1, 3, 1, 3, LineForm::box);
    surface.DrawWidth = 5;
    surface.Line(7, 3, 7, 3, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............
        ......###...
        .....#####..
        .#...#####..
        .....#####..
        ......###...
        ............)"));
}

TEST(SurfaceBox, HasRoundCornersWithAWidePen)
{
    Surface surface(16, 14, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.DrawWidth = 4;
    surface.Line(4, 4, 12, 10, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ................
        ................
        ...##########...
        ..############..
        ..############..
        ..############..
        ..####oooo####..
        ..####oooo####..
        ..############..
        ..############..
        ..############..
        ...##########...
        ................
        ................)"));
}

TEST(SurfaceBox, IsDottedOnAllFourSides)
{
    Surface surface(12, 10, kPaper);
    surface.DrawStyle = PenStyle::dotted;
    surface.Line(0, 0, 11, 9, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ###...###...
        #..........#
        #..........#
        ............
        ............
        ............
        #..........#
        #..........#
        #..........#
        ###...###...)"));
}

TEST(SurfaceFilledBox, IsThePenAllOver)
{
    Surface surface(8, 5, kPaper);
    surface.FillStyle = FillPattern::transparent;
    surface.Line(6, 3, 2, 1, LineForm::filledBox);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        ..#####.
        ..#####.
        ..#####.
        ........)"));
}

TEST(SurfaceFilledBox, TakesTheExplicitColourOutsideAndIn)
{
    Surface surface(5, 3, kPaper);
    surface.Line(0, 0, 4, 2, LineForm::filledBox, kPaint);
    EXPECT_EQ(surface.Image(), RasterImage(5, 3, kPaint));
}

TEST(SurfaceFilledBox, LargerThanTheSurfaceFillsIt)
{
    constexpr double farthest = std::numeric_limits<double>::infinity();
    Surface surface(5, 3, kPaper);
    surface.Line(-farthest, -farthest, farthest, farthest, LineForm::filledBox);
    EXPECT_EQ(surface.Image(), RasterImage(5, 3, kInk));
}

TEST(SurfaceScale, CountsInTwipsWhereItIsToldTo)
{
    Surface surface(8, 5, kPaper);
    surface.ScaleMode = ScaleUnit::twips;
    EXPECT_EQ(surface.ScaleWidth(), 120);
    EXPECT_EQ(surface.ScaleHeight(), 75);
    surface.Line(15, 15, 90, 45, LineForm::box);
    surface.ScaleMode = ScaleUnit::pixels;
    EXPECT_EQ(surface.ScaleWidth(), 8);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........
        .######.
        .#....#.
        .######.
        ........)"));
}
