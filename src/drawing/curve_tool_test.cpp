#include "tests/support/drawing_board.h"

#include "drawing/curve_tool.h"

#include <limits>

namespace quillora::drawing {
namespace {

struct CurveTool : tests::DrawingBoard {
    /// Large enough for handles that stand a hundred apart.
    DrawingCanvas wide{160, 160};
    PaintEngine hand{wide, {text, random, assets, focus, cdlColor}};

    CurveTool() { hand.SelectTool(toolId(Tool::curve), kLeftButton); }

    void pressAt(float x, float y) { hand.picPaint_MouseDown(left(x, y)); }
    int handlesVisible() const
    {
        int count = 0;
        for (const auto& handle : wide.imgBezier)
            count += handle.Visible;
        return count;
    }
    int countOf(Colour colour) const
    {
        const auto& image = wide.surface().Image();
        return static_cast<int>(std::count(image.data(), image.data() + 160 * 160, colour));
    }
};

TEST_F(CurveTool, BringsFourHandlesUpAHundredPixelsApart)
{
    pressAt(80, 80);
    EXPECT_EQ(handlesVisible(), 4);
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Left, 30 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Top, 30 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[1].Left, 130 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[1].Top, 30 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[2].Left, 30 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[2].Top, 130 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[3].Left, 130 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[3].Top, 130 * 15);
}

TEST_F(CurveTool, PlacesHandlesPartlyOutsideNearTheEdge)
{
    pressAt(0, 0);
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Left, -50 * 15);
    EXPECT_EQ(handlesVisible(), 4);
}

TEST_F(CurveTool, GoesFromTheMiddleOfHandleZeroToTheMiddleOfHandleThree)
{
    pressAt(80, 80);
    EXPECT_EQ(wide.surface().DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(wide.surface().Point(32, 32), kBlack);
    EXPECT_EQ(wide.surface().Point(132, 132), kBlack);
    EXPECT_EQ(wide.surface().Point(82, 82), kBlack);
}

TEST_F(CurveTool, IsNotDrawnAgainByAFurtherPress)
{
    pressAt(80, 80);
    const auto before = wide.surface().Image();
    pressAt(60, 70);
    EXPECT_EQ(wide.surface().Image(), before);
    EXPECT_EQ(wide.start(), (base::PixelPoint{60, 70}));
}

TEST_F(CurveTool, FollowsThePointerAsAWhole)
{
    pressAt(80, 80);
    hand.picPaint_MouseMove(left(85, 70));
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Left, 35 * 15);
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Top, 20 * 15);
    EXPECT_EQ(wide.surface().Point(37, 22), kBlack);
    EXPECT_EQ(wide.surface().Point(32, 32), kBack);
    EXPECT_EQ(wide.start(), (base::PixelPoint{85, 70}));
}

TEST_F(CurveTool, LeavesNothingOfTheCurveWhenAHandleIsDraggedAwayAndBack)
{
    pressAt(80, 80);
    const auto before = wide.surface().Image();
    hand.imgBezier_MouseDown(1, {kLeftButton, 0, 20, 30});
    hand.imgBezier_MouseMove(1, {kLeftButton, 0, 320, -270});
    EXPECT_FLOAT_EQ(wide.imgBezier[1].Left, 130 * 15 + 300);
    EXPECT_FLOAT_EQ(wide.imgBezier[1].Top, 30 * 15 - 300);
    EXPECT_NE(wide.surface().Image(), before);
    hand.imgBezier_MouseMove(1, {kLeftButton, 0, -280, 330});
    EXPECT_EQ(wide.surface().Image(), before);
}

TEST_F(CurveTool, CountsInTwipsForTheLengthOfAHandleDrag)
{
    pressAt(80, 80);
    hand.imgBezier_MouseDown(0, {kLeftButton, 0, 20, 30});
    EXPECT_TRUE(wide.fields.handleDragging);
    EXPECT_EQ(wide.fields.handleGrabX, 20);
    EXPECT_EQ(wide.fields.handleGrabY, 30);
    hand.imgBezier_MouseMove(0, {kLeftButton, 0, 25, 30});
    EXPECT_EQ(wide.surface().ScaleMode, ScaleUnit::twips);
    hand.imgBezier_MouseUp(0, {kLeftButton, 0, 25, 30});
    EXPECT_FALSE(wide.fields.handleDragging);
    EXPECT_EQ(wide.surface().ScaleMode, ScaleUnit::pixels);
}

TEST_F(CurveTool, IgnoresAMoveOverAHandleThatIsNotDragged)
{
    pressAt(80, 80);
    hand.imgBezier_MouseMove(0, {kLeftButton, 0, 500, 500});
    EXPECT_FLOAT_EQ(wide.imgBezier[0].Left, 30 * 15);
}

TEST_F(CurveTool, IsFinishedInThePenColourWithTheHandlesHiddenAndASnapshot)
{
    wide.lblForeColor = kRed;
    pressAt(80, 80);
    hand.picPaint_DblClick();
    EXPECT_EQ(handlesVisible(), 0);
    EXPECT_EQ(wide.surface().DrawMode, RasterOperation::copyPen);
    EXPECT_EQ(wide.surface().Point(32, 32), kRed);
    EXPECT_EQ(wide.ring.bufferNewest, 1);
}

TEST_F(CurveTool, IsFinishedByEnterAndByAnotherTool)
{
    pressAt(80, 80);
    hand.picPaint_KeyUp(kEnterKey);
    EXPECT_EQ(handlesVisible(), 0);
    pressAt(80, 80);
    hand.SelectTool(toolId(Tool::pencil), kLeftButton);
    EXPECT_EQ(handlesVisible(), 0);
    EXPECT_EQ(wide.ring.bufferNewest, 2);
}

TEST_F(CurveTool, HasNothingToFinishWithTheHandlesHidden)
{
    hand.picPaint_DblClick();
    EXPECT_EQ(wide.ring.bufferNewest, 0);
}

TEST_F(CurveTool, TakesANewColourAtOnce)
{
    pressAt(80, 80);
    hand.lblColor_MouseDown(5, kLeftButton);
    EXPECT_EQ(wide.surface().Point(32, 32), kRed);
    EXPECT_EQ(countOf(kBlack), 0);
}

TEST_F(CurveTool, TakesANewWidthAtOnce)
{
    pressAt(80, 80);
    const int thin = countOf(kBlack);
    hand.fraOptDot_MouseDown({kLeftButton, 0, 325, 900});
    EXPECT_GT(countOf(kBlack), 4 * thin);
    hand.fraOptDot_MouseDown({kLeftButton, 0, 75, 150});
    EXPECT_EQ(countOf(kBlack), thin);
}

TEST_F(CurveTool, IsDrawnAgainByAColourEvenAfterItWasFinished)
{
    pressAt(80, 80);
    hand.picPaint_DblClick();
    hand.lblColor_MouseDown(5, kLeftButton);
    EXPECT_EQ(wide.surface().Point(32, 32), kBlack ^ kBack ^ kRed);
}

TEST_F(CurveTool, IsNotSeenBeforeItWasBegun)
{
    hand.lblColor_MouseDown(5, kLeftButton);
    EXPECT_EQ(countOf(kBack), 160 * 160);
}

TEST_F(CurveTool, IgnoresAHandleThatIsNotThere)
{
    for (const int index : {-1, 4, std::numeric_limits<int>::max()}) {
        hand.imgBezier_MouseDown(index, left(1, 1));
        hand.imgBezier_MouseMove(index, left(1, 1));
        hand.imgBezier_MouseUp(index, left(1, 1));
        EXPECT_FALSE(wide.fields.handleDragging);
    }
}

} // namespace
} // namespace quillora::drawing
