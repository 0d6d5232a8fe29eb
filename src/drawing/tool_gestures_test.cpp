#include "tests/support/drawing_board.h"

#include <limits>

namespace quillora::drawing {
namespace {

using tests::expectedGrid;

using ToolGestures = tests::DrawingBoard;

// The steps that all tools share.

TEST_F(ToolGestures, BeginWithThePressPointAndThePenOfTheGrid)
{
    fields.dotIndex = 6;
    surface.DrawStyle = PenStyle::dotted;
    press(3.5F, 4.5F);
    EXPECT_TRUE(fields.pointerDown);
    EXPECT_EQ(canvas.start(), (base::PixelPoint{4, 4}));
    EXPECT_EQ(surface.DrawStyle, PenStyle::solid);
    EXPECT_EQ(surface.DrawWidth, 7);
}

TEST_F(ToolGestures, BeginWithAThinDottedPenForSelectArea)
{
    fields.dotIndex = 6;
    choose(Tool::selectArea);
    press(3, 4);
    EXPECT_EQ(surface.DrawStyle, PenStyle::dotted);
    EXPECT_EQ(surface.DrawWidth, 1);
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.FillStyle, FillPattern::transparent);
}

TEST_F(ToolGestures, DoNothingUnderAnyOtherButton)
{
    for (int tool = 0; tool < kToolCount; ++tool) {
        fields.currentTool = tool;
        for (const int button : {0, kRightButton, 3, 4}) {
            engine.picPaint_MouseDown({button, 0, 5, 5});
            engine.picPaint_MouseMove({button, 0, 8, 8});
            engine.picPaint_MouseUp({button, 0, 8, 8});
        }
    }
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_FALSE(fields.pointerDown);
}

TEST_F(ToolGestures, DoNothingBeforeAPress)
{
    for (int tool = 0; tool < kToolCount; ++tool) {
        fields.currentTool = tool;
        move(5, 5);
        release(8, 8);
    }
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_EQ(canvas.end(), (base::PixelPoint{0, 0}));
}

TEST_F(ToolGestures, LeaveThePointerDownAfterTheRelease)
{
    for (int tool = 0; tool < kToolCount; ++tool) {
        fields.currentTool = tool;
        fields.pointerDown = false;
        click(5, 5);
        EXPECT_EQ(fields.pointerDown, tool != toolId(Tool::zoom)) << tool;
    }
}

TEST_F(ToolGestures, EndAtTheReleaseWithNoConstraint)
{
    shift = kShiftAlone;
    press(1, 1);
    release(8, 3);
    EXPECT_EQ(canvas.end(), (base::PixelPoint{8, 3}));
}

TEST_F(ToolGestures, AreNothingForANumberThatNoToolHas)
{
    for (const int tool : {-1, 18, std::numeric_limits<int>::max()}) {
        fields.currentTool = tool;
        drag(2, 2, 7, 7);
        engine.picPaint_DblClick();
    }
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

// Pick Color.

TEST_F(ToolGestures, PickThePenColourByTheLeftButtonAndTheFillColourByTheRight)
{
    choose(Tool::pickColor);
    surface.SetPixel(4, 4, kRed);
    surface.SetPixel(5, 5, kWhite);
    press(4, 4);
    EXPECT_EQ(canvas.lblForeColor, kRed);
    EXPECT_EQ(canvas.lblFillColor, kFillColour);
    engine.picPaint_MouseDown({kRightButton, 0, 5, 5});
    EXPECT_EQ(canvas.lblFillColor, kWhite);
    EXPECT_EQ(canvas.lblForeColor, kRed);
}

TEST_F(ToolGestures, PickNothingOutsideTheCanvas)
{
    choose(Tool::pickColor);
    press(-1, 4);
    engine.picPaint_MouseDown({kRightButton, 0, 99, 5});
    EXPECT_EQ(canvas.lblForeColor, kBlack);
    EXPECT_EQ(canvas.lblFillColor, kFillColour);
}

// Eraser.

TEST_F(ToolGestures, EraseInBoxesUpAndToTheRightOfThePointer)
{
    surface.Line(0, 0, kWidth, kHeight, LineForm::filledBox, kRed);
    fields.dotIndex = 1;
    choose(Tool::eraser);
    press(4, 6);
    // Two pixels across and two up, in a pen two wide.
    for (const auto& [x, y] : {std::pair{4, 6}, {6, 6}, {4, 4}, {6, 4}})
        EXPECT_EQ(surface.Point(x, y), kBack);
    EXPECT_EQ(surface.Point(9, 6), kRed);
    EXPECT_EQ(surface.ForeColor, kBack);
    move(11, 6);
    EXPECT_EQ(surface.Point(12, 6), kBack);
}

// Fill.

TEST_F(ToolGestures, FillTheAreaOfOneColourWithThePenColour)
{
    surface.Line(5, 0, 5, 10);
    canvas.lblForeColor = kRed;
    choose(Tool::fill);
    press(2, 2);
    EXPECT_EQ(grid(), expectedGrid(R"(
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
        rrrrr#..........
    )"));
    EXPECT_EQ(surface.FillStyle, FillPattern::solid);
    EXPECT_EQ(surface.FillColor, kRed);
}

TEST_F(ToolGestures, FillWithoutTellingTheScreen)
{
    choose(Tool::fill);
    screen.refreshes = 0;
    screen.shown.clear();
    press(2, 2);
    EXPECT_EQ(screen.refreshes, 0);
    EXPECT_TRUE(screen.shown.empty());
}

TEST_F(ToolGestures, FillNothingFromOutsideTheCanvas)
{
    choose(Tool::fill);
    press(-5, 2);
    press(1e30F, 1e30F);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

// Pencil.

TEST_F(ToolGestures, DrawADotOfThePencilAtThePress)
{
    press(4, 4);
    EXPECT_EQ(surface.Point(4, 4), kBlack);
    EXPECT_EQ(surface.Point(5, 4), kBack);
    fields.dotIndex = 2;
    press(10, 4);
    EXPECT_EQ(surface.Point(9, 4), kBlack);
    EXPECT_EQ(surface.Point(11, 4), kBlack);
}

TEST_F(ToolGestures, DrawAStrokeOfThePencilAsAChainOfSegments)
{
    press(2, 2);
    move(6, 2);
    EXPECT_EQ(canvas.start(), (base::PixelPoint{6, 2}));
    EXPECT_EQ(canvas.end(), (base::PixelPoint{2, 2}));
    move(6, 7);
    move(11, 7);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ..#####.........
        ......#.........
        ......#.........
        ......#.........
        ......#.........
        ......######....
        ................
        ................
    )"));
}

TEST_F(ToolGestures, DoNothingMoreByADoubleClickOfThePencil)
{
    doubleClick(4, 4);
    EXPECT_EQ(snapshots(), 0);
    surface.SetPixel(4, 4, kBack);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

// Air Brush.

TEST_F(ToolGestures, SprayFourTimesThePensWidthOnPressAndMove)
{
    choose(Tool::airBrush);
    canvas.lblForeColor = kRed;
    press(5, 5);
    EXPECT_EQ(random.given, 2U * 4U);
    EXPECT_EQ(surface.Point(5, 5), kRed);
    fields.dotIndex = 7;
    press(5, 5);
    EXPECT_EQ(random.given, 2U * (4U + 256U));
    move(9, 5);
    EXPECT_EQ(random.given, 2U * (4U + 256U + 256U));
    EXPECT_EQ(surface.Point(9, 5), kRed);
}

TEST_F(ToolGestures, SkipASprayBeyondSixteenBitsUnderAPressAndFailUnderAMove)
{
    choose(Tool::airBrush);
    EXPECT_NO_THROW(press(40000, 5));
    EXPECT_TRUE(fields.pointerDown);
    EXPECT_THROW(move(40000, 5), std::overflow_error);
}

// Zoom.

TEST_F(ToolGestures, OnlySetUpABandUnderTheZoom)
{
    fields.fillMode = 2;
    choose(Tool::zoom);
    drag(2, 2, 9, 9);
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.ForeColor, kBack ^ kFillColour);
    EXPECT_EQ(surface.FillColor, kBack ^ kFillColour);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(ToolGestures, LiftThePointerByTheZoomUnlessControlIsHeld)
{
    choose(Tool::zoom);
    shift = kControlAlone;
    click(2, 2);
    EXPECT_TRUE(fields.pointerDown);
    shift = 0;
    click(2, 2);
    EXPECT_FALSE(fields.pointerDown);
}

// Brush.

TEST_F(ToolGestures, StampTheBrushOnPressAndMove)
{
    choose(Tool::brush);
    press(4, 4);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        .#######........
        .#######........
        .#######........
        .#######........
        .#######........
        .#######........
        .#######........
        ................
        ................
    )"));
    canvas.lblForeColor = kRed;
    move(12, 4);
    EXPECT_EQ(surface.Point(12, 4), kRed);
    EXPECT_EQ(surface.FillColor, kRed);
}

// Hand.

TEST_F(ToolGestures, GrabTheCanvasByTheHandAndMoveNothing)
{
    canvas.picPaint.Left = {30};
    canvas.picPaint.Top = {45};
    choose(Tool::hand);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "handflat.cur");
    press(3, 4);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "handgrab.cur");
    EXPECT_EQ(surface.ScaleMode, ScaleUnit::twips);
    EXPECT_EQ(canvas.start(), (base::PixelPoint{3 * 15 + 30, 4 * 15 + 45}));
    EXPECT_EQ(fields.handleGrabX, 30);
    EXPECT_EQ(fields.handleGrabY, 45);
    EXPECT_TRUE(fields.handleDragging);
    screen.refreshes = 0;
    move(100, 100);
    EXPECT_EQ(screen.refreshes, 1);
    release(100, 100);
    EXPECT_FALSE(fields.handleDragging);
    EXPECT_EQ(surface.ScaleMode, ScaleUnit::pixels);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "handflat.cur");
    EXPECT_EQ(canvas.picPaint.Left.value, 30);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(ToolGestures, KeepTheOldCursorWhereTheHandsIsMissing)
{
    choose(Tool::hand);
    assets.missing = {"handgrab.cur"};
    press(3, 4);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "handflat.cur");
    EXPECT_TRUE(fields.handleDragging);
}

TEST_F(ToolGestures, DoNotRefreshUnderAHandThatHoldsNothing)
{
    choose(Tool::hand);
    press(3, 4);
    release(3, 4);
    screen.refreshes = 0;
    move(5, 5);
    EXPECT_EQ(screen.refreshes, 0);
}

} // namespace
} // namespace quillora::drawing
