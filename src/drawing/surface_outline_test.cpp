#include "drawing/surface.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

} // namespace

TEST(SurfaceRoundRect, LeavesOutItsRightAndItsBottom)
{
    Surface surface(24, 16, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.RoundRect(2, 2, 22, 14, 10, 10);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........................
        ........................
        .....##############.....
        ....#oooooooooooooo#....
        ...#oooooooooooooooo#...
        ..#oooooooooooooooooo#..
        ..#oooooooooooooooooo#..
        ..#oooooooooooooooooo#..
        ..#oooooooooooooooooo#..
        ..#oooooooooooooooooo#..
        ..#oooooooooooooooooo#..
        ...#oooooooooooooooo#...
        ....#oooooooooooooo#....
        .....##############.....
        ........................
        ........................)"));
}

TEST(SurfaceRoundRect, TakesItsCornersInAnyOrder)
{
    Surface one(24, 16, kPaper);
    Surface other(24, 16, kPaper);
    one.RoundRect(2, 3, 21, 14, 10, 10);
    other.RoundRect(21, 14, 2, 3, 10, 10);
    EXPECT_EQ(one.Image(), other.Image());
}

TEST(SurfaceRoundRect, HasCornersOfTheSameSizeWhateverThePen)
{
    Surface surface(24, 16, kPaper);
    surface.DrawWidth = 3;
    surface.RoundRect(2, 2, 22, 14, 10, 10);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........................
        ....################....
        ...##################...
        ..####################..
        .#####............#####.
        .####..............####.
        .###................###.
        .###................###.
        .###................###.
        .###................###.
        .####..............####.
        .#####............#####.
        ..####################..
        ...##################...
        ....################....
        ........................)"));
}

TEST(SurfaceRoundRect, SmallerThanItsCornersIsAnEllipse)
{
    Surface rounded(12, 12, kPaper);
    Surface ellipse(12, 12, kPaper);
    rounded.RoundRect(2, 3, 9, 9, 10, 10);
    ellipse.Circle(5, 5.5, 3, 2.5 / 3);
    EXPECT_EQ(pixelGrid(rounded.Image()), pixelGrid(ellipse.Image()));
}

TEST(SurfaceRoundRect, OfNoWidthOrHeightDrawsNothing)
{
    Surface surface(8, 8, kPaper);
    surface.DrawWidth = 3;
    surface.RoundRect(2, 2, 2, 6, 10, 10);
    surface.RoundRect(2, 2, 6, 2, 10, 10);
    EXPECT_EQ(surface.Image(), RasterImage(8, 8, kPaper));
}

TEST(SurfaceRoundRect, WithoutCornersIsABox)
{
    Surface rounded(9, 8, kPaper);
    Surface box(9, 8, kPaper);
    rounded.RoundRect(1, 1, 8, 7, 0, 10);
    box.Line(1, 1, 7, 6, LineForm::box);
    EXPECT_EQ(rounded.Image(), box.Image());
}

TEST(SurfacePolygon, ClosesItselfAndIsFilled)
{
    Surface surface(12, 8, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.Polygon(std::vector<base::PixelPoint>{{1, 1}, {10, 1}, {1, 6}});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............
        .##########.
        .#oooooo##..
        .#oooo##....
        .#oo##......
        .###........
        .#..........
        ............)"));
}

TEST(SurfacePolygon, IsInsideInEverySecondRegionWhereItCrossesItself)
{
    Surface surface(24, 20, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.Polygon(std::vector<base::PixelPoint>{{12, 1}, {18, 18}, {2, 7}, {22, 7}, {6, 18}});
    EXPECT_EQ(surface.Point(12, 4), kPaint);
    EXPECT_EQ(surface.Point(6, 8), kPaint);
    EXPECT_EQ(surface.Point(12, 10), kPaper);
}

TEST(SurfacePolygon, OfOnePointOrNoneDrawsNothing)
{
    Surface surface(8, 8, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.DrawWidth = 5;
    surface.Polygon(std::vector<base::PixelPoint>{{4, 4}});
    surface.Polygon({});
    EXPECT_EQ(surface.Image(), RasterImage(8, 8, kPaper));
}

TEST(SurfacePolygon, CoversTheLinesThatItsPointsWereDrawnWith)
{
    const std::vector<base::PixelPoint> points{{5, 3}, {47, 11}, {40, 38}, {11, 33}, {20, 20}};
    for (int width = 1; width <= 8; ++width) {
        Surface surface(52, 44, kPaper);
        surface.DrawWidth = width;
        for (std::size_t index = 1; index < points.size(); ++index)
            surface.Line(points[index - 1].x, points[index - 1].y, points[index].x, points[index].y,
                         LineForm::line, kPaint);
        surface.Polygon(points);
        for (int y = 0; y < surface.height(); ++y)
            for (int x = 0; x < surface.width(); ++x)
                ASSERT_NE(surface.Point(x, y), kPaint) << x << ", " << y << " at width " << width;
    }
}

TEST(SurfacePolygon, HoldsTheSurfaceBetweenTheEndsOfTheIntegers)
{
    Surface surface(4, 3, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.Polygon(std::vector<base::PixelPoint>{
        {kLowest, kLowest}, {kHighest, kLowest}, {kHighest, kHighest}, {kLowest, kHighest}});
    EXPECT_EQ(surface.Image(), RasterImage(4, 3, kPaint));
}

TEST(SurfaceCurve, RunsFromItsFirstPointToItsLastAndIsPulledByTheOthers)
{
    Surface surface(40, 29, kPaper);
    surface.PolyBezier({{{2, 2}, {60, 6}, {-20, 24}, {36, 26}}});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ........................................
        ........................................
        ..#######...............................
        .........########.......................
        .................##.....................
        ...................##...................
        .....................###................
        ........................#...............
        ........................#...............
        ........................#...............
        .......................#................
        .......................#................
        ......................#.................
        ......................#.................
        .....................#..................
        ....................#...................
        ...................#....................
        ..................#.....................
        .................#......................
        ................#.......................
        ...............#........................
        ...............#........................
        ...............#........................
        ................##......................
        ..................##....................
        ....................#########...........
        .............................########...
        ........................................
        ........................................)"));
}

TEST(SurfaceCurve, OfFourPointsInALineIsThatLine)
{
    Surface surface(9, 3, kPaper);
    surface.PolyBezier({{{1, 1}, {3, 1}, {5, 1}, {7, 1}}});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .........
        .#######.
        .........)"));
}

TEST(SurfaceCurve, OfOnePointFourTimesIsADot)
{
    Surface surface(5, 5, kPaper);
    surface.DrawWidth = 3;
    surface.PolyBezier({{{2, 2}, {2, 2}, {2, 2}, {2, 2}}});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        .....
        .###.
        .###.
        .###.
        .....)"));
}

TEST(SurfaceCurve, PassesOverTheSurfaceFromTheEndsOfTheIntegers)
{
    Surface surface(20, 20, kPaper);
    surface.PolyBezier({{{kLowest, 10}, {-100, 10}, {100, 10}, {kHighest, 10}}});
    EXPECT_EQ(surface.Point(0, 10), kInk);
    EXPECT_EQ(surface.Point(19, 10), kInk);
    EXPECT_EQ(surface.Point(10, 9), kPaper);
}
