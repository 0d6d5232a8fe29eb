#include "tests/support/drawing_board.h"

namespace quillora::drawing {
namespace {

using base::PixelPoint;
using tests::expectedGrid;

struct PolygonTool : tests::DrawingBoard {
    PolygonTool() { choose(Tool::polygon); }

    void triangle()
    {
        click(2, 1);
        click(9, 1);
        click(2, 8);
    }
};

TEST_F(PolygonTool, BeginsWithThePressPointInExclusiveOr)
{
    surface.FillStyle = FillPattern::solid;
    press(3, 4);
    EXPECT_TRUE(fields.polygonOpen);
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{3, 4}}));
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.FillStyle, FillPattern::transparent);
    EXPECT_EQ(surface.ForeColor, kBack ^ kBlack);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(PolygonTool, DrawsTheNewSegmentOfEachFurtherPress)
{
    triangle();
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{2, 1}, {9, 1}, {2, 8}}));
    EXPECT_EQ(surface.Point(6, 1), kBlack);
    EXPECT_EQ(surface.Point(2, 5), kBack);
}

TEST_F(PolygonTool, MakesASecondPointOfADragFromTheFirst)
{
    press(2, 2);
    move(8, 2);
    move(2, 8);
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{2, 2}, {2, 8}}));
    EXPECT_EQ(surface.Point(5, 2), kBack);
    EXPECT_EQ(surface.Point(2, 5), kBlack);
}

TEST_F(PolygonTool, MovesTheEndOfTheLastSegmentAndLeavesItThereAtTheRelease)
{
    click(2, 2);
    press(8, 2);
    move(8, 6);
    release(12, 9);
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{2, 2}, {8, 6}}));
}

TEST_F(PolygonTool, IsClosedFromTheLastPointToTheFirst)
{
    triangle();
    engine.picPaint_DblClick();
    EXPECT_FALSE(fields.polygonOpen);
    EXPECT_EQ(surface.DrawMode, RasterOperation::copyPen);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ..########......
        ..#.....#.......
        ..#....#........
        ..#...#.........
        ..#..#..........
        ..#.#...........
        ..##............
        ..#.............
        ................
    )"));
}

TEST_F(PolygonTool, IsFilledInModeOneAndAllOfOneColourInModeTwo)
{
    fields.fillMode = 1;
    triangle();
    engine.picPaint_DblClick();
    EXPECT_EQ(surface.Point(3, 3), kFillColour);
    EXPECT_EQ(surface.Point(2, 3), kBlack);
    fields.fillMode = 2;
    triangle();
    engine.picPaint_DblClick();
    EXPECT_EQ(surface.Point(2, 3), kFillColour);
}

TEST_F(PolygonTool, IsRefreshedAndSnapshotWhenItIsClosed)
{
    triangle();
    screen.refreshes = 0;
    engine.picPaint_DblClick();
    EXPECT_EQ(screen.refreshes, 1);
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(PolygonTool, IsFinishedByEnterByAToolAndByAFilter)
{
    triangle();
    engine.picPaint_KeyUp(65);
    EXPECT_TRUE(fields.polygonOpen);
    engine.picPaint_KeyUp(kEnterKey);
    EXPECT_FALSE(fields.polygonOpen);
    triangle();
    choose(Tool::pencil);
    EXPECT_FALSE(fields.polygonOpen);
    choose(Tool::polygon);
    triangle();
    engine.ApplyFilterAt(9, 3, 3);
    EXPECT_FALSE(fields.polygonOpen);
}

TEST_F(PolygonTool, HasTheVerticesMadeSoFarAfterAClickAndADoubleClick)
{
    click(2, 2);
    doubleClick(8, 2);
    EXPECT_FALSE(fields.polygonOpen);
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{2, 2}, {8, 2}}));
}

TEST_F(PolygonTool, OfOnePointDrawsNothingAndIsSnapshotAllTheSame)
{
    doubleClick(4, 4);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(PolygonTool, IsFinishedOnce)
{
    triangle();
    engine.picPaint_DblClick();
    engine.picPaint_DblClick();
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(PolygonTool, BeginsAnewAfterItWasClosed)
{
    triangle();
    engine.picPaint_DblClick();
    press(12, 8);
    EXPECT_EQ(fields.polygonPoints, (std::vector<PixelPoint>{{12, 8}}));
}

TEST_F(PolygonTool, MovesNothingBeforeItsFirstPoint)
{
    fields.pointerDown = true;
    move(5, 5);
    EXPECT_TRUE(fields.polygonPoints.empty());
}

TEST_F(PolygonTool, LeavesNoTraceOfTheOldColourWhenAnotherIsChosen)
{
    triangle();
    engine.lblColor_MouseDown(5, kLeftButton);
    EXPECT_EQ(surface.Point(6, 1), kRed);
    int black = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x)
            black += surface.Point(x, y) == kBlack;
    }
    EXPECT_EQ(black, 0);
}

TEST_F(PolygonTool, TakesANewWidthAtOnceAndErasesWithTheOldOne)
{
    click(2, 4);
    click(12, 4);
    engine.fraOptDot_MouseDown({kLeftButton, 0, 75, 400});
    EXPECT_EQ(surface.DrawWidth, 3);
    EXPECT_EQ(surface.Point(6, 3), kBlack);
    EXPECT_EQ(surface.Point(6, 4), kBlack);
    EXPECT_EQ(surface.Point(6, 5), kBlack);
    engine.fraOptDot_MouseDown({kLeftButton, 0, 75, 150});
    EXPECT_EQ(surface.Point(6, 3), kBack);
    EXPECT_EQ(surface.Point(6, 4), kBlack);
}

} // namespace
} // namespace quillora::drawing
