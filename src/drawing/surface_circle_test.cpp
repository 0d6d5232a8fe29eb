#include "drawing/surface.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

} // namespace

TEST(SurfaceCircle, IsRoundWithoutAnAspect)
{
    Surface surface(13, 13, kPaper);
    surface.Circle(6, 6, 5);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .............
        ....#####....
        ...#.....#...
        ..#.......#..
        .#.........#.
        .#.........#.
        .#.........#.
        .#.........#.
        .#.........#.
        ..#.......#..
        ...#.....#...
        ....#####....
        .............)"));
}

TEST(SurfaceCircle, HasItsRadiusAcrossWhereTheAspectIsBelowOne)
{
    Surface surface(23, 13, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.Circle(11, 6, 10, 0.5);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .......................
        .......#########.......
        ....###ooooooooo###....
        ...#ooooooooooooooo#...
        ..#ooooooooooooooooo#..
        .#ooooooooooooooooooo#.
        .#ooooooooooooooooooo#.
        .#ooooooooooooooooooo#.
        ..#ooooooooooooooooo#..
        ...#ooooooooooooooo#...
        ....###ooooooooo###....
        .......#########.......
        .......................)"));
}

TEST(SurfaceCircle, HasItsRadiusDownWhereTheAspectIsAboveOne)
{
    Surface surface(9, 15, kPaper);
    surface.Circle(4, 7, 6, 2);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .........
        ...###...
        ..#...#..
        ..#...#..
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        .#.....#.
        ..#...#..
        ..#...#..
        ...###...
        .........)"));
}

TEST(SurfaceCircle, TakesItsBrushUnderItsPenInTheirOwnColours)
{
    Surface surface(24, 23, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.DrawWidth = 5;
    surface.Circle(11, 11, 8);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........................
        ........#######.........
        ......###########.......
        .....#############......
        ....###############.....
        ...#################....
        ..########ooo########...
        ..######ooooooo######...
        .######ooooooooo######..
        .######ooooooooo######..
        .#####ooooooooooo#####..
        .#####ooooooooooo#####..
        .#####ooooooooooo#####..
        .######ooooooooo######..
        .######ooooooooo######..
        ..######ooooooo######...
        ..########ooo########...
        ...#################....
        ....###############.....
        .....#############......
        ......###########.......
        ........#######.........
        ........................)"));
}

TEST(SurfaceCircle, OfNoRadiusIsADot)
{
    Surface surface(3, 3, kPaper);
    surface.Circle(1, 1, 0);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ...
        .#.
        ...)"));
}

TEST(SurfaceCircle, IsALineWhereItsAspectLeavesNoHeightOrNoWidth)
{
    Surface surface(9, 7, kPaper);
    surface.Circle(4, 3, 3, 0);
    surface.Circle(4, 3, 2, kInfinity);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .........
        ....#....
        ....#....
        .#######.
        ....#....
        ....#....
        .........)"));
}

TEST(SurfaceCircle, DrawsNothingForARadiusOrAspectThatIsNone)
{
    Surface surface(9, 9, kPaper);
    surface.Circle(4, 4, -3);
    surface.Circle(4, 4, kNan);
    surface.Circle(4, 4, 3, -1);
    surface.Circle(4, 4, 3, kNan);
    EXPECT_EQ(surface.Image(), RasterImage(9, 9, kPaper));
}

TEST(SurfaceCircle, OfAnyRadiusShowsOnlyWhatReachesTheSurface)
{
    Surface surface(7, 3, kPaper);
    surface.Circle(3 - 400'000'000.0, 1, 400'000'000);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ...#...
        ...#...
        ...#...)"));
}

TEST(SurfacePoint, IsOnePixelWithAThinPenAndADotWithAWideOne)
{
    Surface surface(12, 6, kPaper);
    surface.PSet(1, 1);
    surface.DrawWidth = 2;
    surface.PSet(4, 2);
    surface.DrawWidth = 4;
    surface.PSet(9, 3);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............
        .#.##...##..
        ...##..####.
        .......####.
        ........##..
        ............)"));
}

TEST(SurfacePoint, IsReadWhereItWasSet)
{
    Surface surface(3, 3, kPaper);
    surface.ForeColor = rgb(1, 2, 3);
    surface.PSet(1, 2);
    EXPECT_EQ(surface.Point(1, 2), 0x030201u);
    EXPECT_EQ(surface.GetPixel(1, 2), 0x030201u);
    EXPECT_EQ(surface.Point(1.5, 1.5), kPaper);
}

TEST(SurfacePoint, IsNoColourOutside)
{
    const Surface surface(3, 3, kPaper);
    EXPECT_EQ(surface.Point(-1, 0), kNoColour);
    EXPECT_EQ(surface.Point(0, 3), kNoColour);
    EXPECT_EQ(surface.GetPixel(3, 0), kNoColour);
    EXPECT_EQ(surface.GetPixel(kLowest, kHighest), kNoColour);
    EXPECT_EQ(static_cast<std::int32_t>(surface.GetPixel(0, -1)), -1);
}

TEST(SurfacePixel, IsSetWhateverTheDrawMode)
{
    Surface surface(2, 1, kPaper);
    surface.DrawMode = RasterOperation::xorPen;
    surface.SetPixel(0, 0, kPaint);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid("o."));
}

TEST(SurfacePixel, IsNotSetOutside)
{
    Surface surface(2, 2, kPaper);
    surface.SetPixel(-1, 0, kInk);
    surface.SetPixel(2, 0, kInk);
    surface.SetPixel(0, kHighest, kInk);
    surface.PSet(-1, 0);
    surface.PSet(2, 1);
    EXPECT_EQ(surface.Image(), RasterImage(2, 2, kPaper));
}

TEST(SurfacePixel, KeepsNoMoreThanItsThreeChannels)
{
    Surface surface(2, 1, 0xFF102030);
    surface.SetPixel(0, 0, 0xFF00FF00);
    EXPECT_EQ(surface.GetPixel(0, 0), 0x00FF00u);
    EXPECT_EQ(surface.GetPixel(1, 0), 0x102030u);
    EXPECT_EQ(surface.BackColor(), 0x102030u);
}
