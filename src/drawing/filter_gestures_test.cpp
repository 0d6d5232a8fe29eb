#include "tests/support/drawing_board.h"

namespace quillora::drawing {
namespace {

/// The filter brush, and the filters of the menu.
using FilterGestures = tests::DrawingBoard;

TEST_F(FilterGestures, LightenOnePixelByTwoEachTimeUnderTheFilterBrush)
{
    choose(Tool::filterBrush);
    press(4, 4);
    EXPECT_EQ(surface.Point(4, 4), rgb(203, 200, 255));
    EXPECT_EQ(surface.Point(5, 4), kBack);
    move(4, 4);
    EXPECT_EQ(surface.Point(4, 4), rgb(205, 202, 255));
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(FilterGestures, FilterASquareThatGrowsWithThePen)
{
    fields.dotIndex = 2;
    fields.filterId = static_cast<int>(Filter::blackAndWhite);
    choose(Tool::filterBrush);
    surface.Line(0, 0, kWidth, kHeight, LineForm::filledBox, kRed ^ 1);
    press(6, 5);
    fields.filterId = 0;
    EXPECT_EQ(surface.Point(4, 3), kWhite);
    EXPECT_EQ(surface.Point(8, 7), kWhite);
    EXPECT_EQ(surface.Point(3, 3), kRed ^ 1);
    EXPECT_EQ(surface.Point(9, 7), kRed ^ 1);
}

TEST_F(FilterGestures, FilterNothingWhereTheSquareLiesWhollyLeftOrAbove)
{
    fields.dotIndex = 2;
    choose(Tool::filterBrush);
    press(-3, 4);
    press(4, -3);
    press(-1e30F, 1e30F);
    press(1e30F, 1e30F);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    press(-2, 4);
    EXPECT_NE(surface.Point(0, 4), kBack);
}

TEST_F(FilterGestures, SkipAFilterThatFailsUnderAPressAndLeaveItsDrawMode)
{
    fields.dotIndex = 3;
    fields.filterId = static_cast<int>(Filter::sharpen);
    choose(Tool::filterBrush);
    surface.DrawMode = RasterOperation::xorPen;
    EXPECT_NO_THROW(press(1, 1));
    EXPECT_EQ(surface.DrawMode, RasterOperation::copyPen);
    EXPECT_THROW(move(1, 1), std::out_of_range);
}

TEST_F(FilterGestures, FilterTheCanvasUnderTheBrushEvenWithASelection)
{
    choose(Tool::selectArea);
    drag(2, 1, 7, 6);
    fields.currentTool = toolId(Tool::filterBrush);
    press(10, 8);
    EXPECT_EQ(surface.Point(10, 8), rgb(203, 200, 255));
    EXPECT_TRUE(canvas.picSelect.Visible);
}

TEST_F(FilterGestures, FilterTheWholeSelectionUnderAnyOtherTool)
{
    choose(Tool::selectArea);
    drag(2, 1, 7, 6);
    const auto before = surface.Image();
    engine.ApplyFilterAt(static_cast<int>(Filter::blackAndWhite), 3, 3);
    EXPECT_EQ(canvas.picSelect.surface.Image(), RasterImage(4, 4, kWhite));
    EXPECT_EQ(surface.Image(), before);
    EXPECT_EQ(snapshots(), 0);
    EXPECT_FALSE(fields.selectionFresh);
}

TEST_F(FilterGestures, FilterTheWholeCanvasAtMinusOneAndTakeASnapshot)
{
    choose(Tool::filterBrush);
    engine.ApplyFilterAt(static_cast<int>(Filter::blackAndWhite), -1, -1);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kWhite));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(FilterGestures, ReplaceThePenColourByTheFillColour)
{
    surface.SetPixel(4, 4, kBlack);
    surface.SetPixel(5, 4, kRed);
    engine.ApplyFilterAt(static_cast<int>(Filter::replaceColour), -1, -1);
    EXPECT_EQ(surface.Point(4, 4), kFillColour);
    EXPECT_EQ(surface.Point(5, 4), kRed);
}

} // namespace
} // namespace quillora::drawing
