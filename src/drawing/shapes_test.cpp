#include "drawing/shapes.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

TEST(EllipseBetween, HasItsRadiusAlongTheLongerSide)
{
    const EllipseShape flat = ellipseBetween({10, 20}, {30, 30});
    EXPECT_EQ(flat.centreX, 20);
    EXPECT_EQ(flat.centreY, 25);
    EXPECT_EQ(flat.radius, 10);
    EXPECT_EQ(flat.aspect, 0.5);
    const EllipseShape tall = ellipseBetween({10, 20}, {20, 60});
    EXPECT_EQ(tall.radius, 20);
    EXPECT_EQ(tall.aspect, 4);
}

TEST(EllipseBetween, TouchesAllFourSidesOfEveryRectangle)
{
    for (int width = 1; width <= 40; ++width) {
        for (int height = 1; height <= 40; ++height) {
            Surface surface(44, 44, kPaper);
            const EllipseShape shape = ellipseBetween({1 + width, 2}, {1, 2 + height});
            surface.Circle(shape.centreX, shape.centreY, shape.radius, shape.aspect);
            base::PixelRectangle box;
            for (int y = 0; y < 44; ++y)
                for (int x = 0; x < 44; ++x)
                    if (surface.GetPixel(x, y) == kInk)
                        box = base::boundingBox(box, {x, y, 1, 1});
            ASSERT_EQ(box, (base::PixelRectangle{1, 2, width + 1, height + 1})) << width << " by " << height;
        }
    }
}

TEST(EllipseBetween, IsSafeAtTheEndsOfTheIntegers)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    Surface surface(8, 8, kPaper);
    const EllipseShape shape = ellipseBetween({lowest, lowest}, {highest, highest});
    EXPECT_EQ(shape.aspect, 1);
    surface.Circle(shape.centreX, shape.centreY, shape.radius, shape.aspect);
    EXPECT_EQ(surface.Image(), RasterImage(8, 8, kPaper));
}

TEST(ArrowHead, OfAnArrowToTheRightPointsBackAlongTheShaft)
{
    EXPECT_EQ(arrowHead({0, 50}, {40, 50}), (ArrowHead{{33, 43}, {33, 57}}));
}

TEST(ArrowHead, OfAnArrowToTheLeftPointsToTheRightOfItsTip)
{
    EXPECT_EQ(arrowHead({40, 50}, {0, 50}), (ArrowHead{{7, 57}, {7, 43}}));
}

TEST(ArrowHead, OfAVerticalArrowIsBuiltFromTheDirectionDown)
{
    EXPECT_EQ(arrowHead({50, 0}, {50, 40}), (ArrowHead{{57, 33}, {43, 33}}));
    EXPECT_EQ(arrowHead({50, 40}, {50, 0}), (ArrowHead{{43, 7}, {57, 7}}));
}

TEST(ArrowHead, OfASlantingArrowLiesOnEitherSideOfTheShaft)
{
    EXPECT_EQ(arrowHead({0, 0}, {30, 30}), (ArrowHead{{30, 20}, {20, 30}}));
    EXPECT_EQ(arrowHead({30, 0}, {0, 30}), (ArrowHead{{10, 30}, {0, 20}}));
}

TEST(ArrowHead, OfAnArrowWithoutLengthHasNone)
{
    EXPECT_EQ(arrowHead({7, 9}, {7, 9}), (ArrowHead{{7, 9}, {7, 9}}));
}

TEST(ArrowHead, BeyondSixteenBitsIsAFailure)
{
    EXPECT_EQ(arrowHead({0, 0}, {32767, 0}).first.x, 32760);
    EXPECT_THROW(arrowHead({40000, 0}, {32767, 0}), std::overflow_error);
    EXPECT_THROW(arrowHead({0, 0}, {0, std::numeric_limits<int>::min()}), std::overflow_error);
}

TEST(Arrow, IsAShaftAndTwoStrokesOfTenPixels)
{
    Surface surface(28, 17, kPaper);
    drawArrow(surface, {25, 8}, {3, 8});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ............................
        ............................
        .........#..................
        ........#...................
        .......#....................
        ......#.....................
        .....#......................
        ....#.......................
        ...#######################..
        ....#.......................
        .....#......................
        ......#.....................
        .......#....................
        ........#...................
        .........#..................
        ............................
        ............................)"));
}

TEST(Arrow, DrawnTwiceByExclusiveOrIsGone)
{
    for (int width = 1; width <= 8; ++width) {
        Surface surface(60, 60, kPaper);
        surface.DrawMode = RasterOperation::xorPen;
        surface.DrawWidth = width;
        surface.ForeColor = kPaint;
        drawArrow(surface, {5, 11}, {48, 40});
        EXPECT_NE(surface.Image(), RasterImage(60, 60, kPaper));
        drawArrow(surface, {5, 11}, {48, 40});
        EXPECT_EQ(surface.Image(), RasterImage(60, 60, kPaper));
    }
}

TEST(Arrow, WhoseHeadFailsHasItsShaft)
{
    Surface surface(20, 1, kPaper);
    EXPECT_THROW(drawArrow(surface, {0, 0}, {40000, 0}), std::overflow_error);
    EXPECT_EQ(surface.Image(), RasterImage(20, 1, kInk));
}
