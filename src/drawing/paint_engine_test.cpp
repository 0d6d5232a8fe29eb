#include "tests/support/drawing_board.h"

#include <cmath>
#include <limits>

namespace quillora::drawing {
namespace {

using PaintEngineTest = tests::DrawingBoard;

// The state, as the board is made ready.

TEST(DrawingFields, BeginAsTold)
{
    const DrawingFields fields;
    EXPECT_EQ(fields.currentTool, 4);
    EXPECT_EQ(fields.filterId, 2);
    EXPECT_EQ(fields.brushShape, 0);
    EXPECT_EQ(fields.dotIndex, 0);
    EXPECT_EQ(fields.penStyle, 0);
    EXPECT_EQ(fields.fillMode, 0);
    EXPECT_EQ(fields.fillPattern, 0);
    EXPECT_EQ(fields.startX, 0);
    EXPECT_EQ(fields.startY, 0);
    EXPECT_EQ(fields.endX, 0);
    EXPECT_EQ(fields.endY, 0);
    EXPECT_FALSE(fields.pointerDown);
    EXPECT_FALSE(fields.polygonOpen);
    EXPECT_TRUE(fields.polygonPoints.empty());
    EXPECT_FALSE(fields.handleDragging);
    EXPECT_EQ(fields.handleGrabX, 0);
    EXPECT_EQ(fields.handleGrabY, 0);
    EXPECT_FALSE(fields.selectionFresh);
    EXPECT_FALSE(fields.selectionDragging);
    EXPECT_FALSE(fields.canvasResized);
}

TEST(DrawingCanvas, ComesUpHiddenAsItWasDesigned)
{
    const DrawingCanvas canvas(747, 420);
    EXPECT_FALSE(canvas.picPaint.Visible);
    EXPECT_EQ(canvas.picPaint.Width.value, 11200);
    EXPECT_EQ(canvas.picPaint.Height.value, 6300);
    EXPECT_EQ(canvas.surface().BackColor(), rgb(201, 198, 255));
    EXPECT_EQ(canvas.surface().ScaleMode, ScaleUnit::pixels);
    EXPECT_EQ(canvas.lblForeColor, rgb(0, 0, 0));
    EXPECT_EQ(canvas.lblFillColor, rgb(255, 255, 192));
    EXPECT_FALSE(canvas.picSelect.Visible);
    EXPECT_FALSE(canvas.txtText.Visible);
    for (const auto& handle : canvas.imgBezier)
        EXPECT_FALSE(handle.Visible);
    for (int i = 0; i < kColourCells; ++i)
        EXPECT_EQ(canvas.lblColor[i], kColourPalette[i].BackColor);
}

TEST_F(PaintEngineTest, IsReadyWithThePencilTwoPixelsWideWhateverTheGridShowed)
{
    engine.fraOptDot_MouseDown({kLeftButton, 0, 325, 900});
    choose(Tool::polygon);
    click(2, 2);
    engine.DrawPrepare();
    EXPECT_EQ(fields.currentTool, toolId(Tool::pencil));
    EXPECT_EQ(fields.dotIndex, 1);
    EXPECT_FALSE(fields.polygonOpen);
    EXPECT_EQ(canvas.widthGrid.lblDot, (TwipsPosition{75, 645}));
    EXPECT_EQ(canvas.picPaint.MousePointer, kCustomCursor);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "draw.cur");
    press(5, 5);
    EXPECT_EQ(surface.DrawWidth, 2);
}

TEST_F(PaintEngineTest, ShowsCellOneChosenAndCellFourWhiteInsideWhenItIsReady)
{
    engine.fraOptDot_MouseDown({kLeftButton, 0, 325, 900});
    engine.DrawPrepare();
    for (int i = 0; i < WidthGrid::kCells; ++i) {
        EXPECT_EQ(canvas.widthGrid.shpDot[i].FillColor, i == 1 || i == 4 ? kWhite : kBlack) << i;
        EXPECT_EQ(canvas.widthGrid.shpDot[i].BorderColor, i == 1 ? kWhite : kBlack) << i;
    }
}

TEST_F(PaintEngineTest, StartsWithABorderTheDialogsFlagsAndTheFontOfTheTextBox)
{
    canvas.picPaint.BorderStyle = 0;
    canvas.dialogs.cdlOpen.Flags = 0;
    canvas.txtText.Font = {.name = "Carlito",
                           .sizePoints = 20,
                           .bold = true,
                           .italic = true,
                           .underline = true,
                           .strikethru = true};
    engine.StartPaointer();
    EXPECT_EQ(canvas.picPaint.BorderStyle, 1);
    EXPECT_EQ(canvas.dialogs.cdlOpen.Flags, 4100);
    EXPECT_EQ(surface.Font, canvas.txtText.Font);
    EXPECT_EQ(fields.dotIndex, 0);
}

TEST_F(PaintEngineTest, KeepsTheDrawingTheColoursAndTheSnapshotsWhenItIsMadeReadyAnew)
{
    canvas.lblForeColor = kRed;
    press(5, 5);
    TakeSnapshot(canvas);
    engine.DrawPrepare();
    EXPECT_EQ(surface.Point(5, 5), kRed);
    EXPECT_EQ(canvas.lblForeColor, kRed);
    EXPECT_EQ(canvas.ring.bufferNewest, 0);
    EXPECT_TRUE(canvas.ring.picBuffer[1].has_value());
}

TEST_F(PaintEngineTest, LetsAMissingCursorThroughWhenItIsMadeReady)
{
    assets.missing = {"draw.cur"};
    fields.dotIndex = 5;
    EXPECT_THROW(engine.DrawPrepare(), std::runtime_error);
    EXPECT_EQ(fields.dotIndex, 5);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "draw.cur");
}

TEST_F(PaintEngineTest, NotesAResize)
{
    engine.picPaint_Resize();
    EXPECT_TRUE(fields.canvasResized);
}

// Choosing a tool.

TEST_F(PaintEngineTest, PutsAToolInForceByALeftPressOnly)
{
    engine.SelectTool(toolId(Tool::line), kRightButton);
    EXPECT_EQ(fields.currentTool, toolId(Tool::pencil));
    EXPECT_FALSE(canvas.picPaint.Visible);
    engine.SelectTool(toolId(Tool::line), kLeftButton);
    EXPECT_EQ(fields.currentTool, toolId(Tool::line));
    EXPECT_TRUE(canvas.picPaint.Visible);
    EXPECT_EQ(focus.focused, "canvas");
}

TEST_F(PaintEngineTest, ShowsTheOptionsOfAToolAndHidesNoneAgain)
{
    EXPECT_FALSE(canvas.fraOptDotVisible);
    choose(Tool::fill);
    EXPECT_FALSE(canvas.fraOptDotVisible);
    choose(Tool::brush);
    EXPECT_TRUE(canvas.fraOptDotVisible);
    EXPECT_FALSE(canvas.fraOptFillVisible);
    choose(Tool::ellipse);
    EXPECT_TRUE(canvas.fraOptFillVisible);
    choose(Tool::hand);
    EXPECT_TRUE(canvas.fraOptDotVisible);
    EXPECT_TRUE(canvas.fraOptFillVisible);
}

TEST_F(PaintEngineTest, ShowsTheCursorOfEachTool)
{
    for (int tool = 0; tool < kToolCount; ++tool) {
        engine.SelectTool(tool, kLeftButton);
        const bool arrow = tool == toolId(Tool::selectArea) || tool == toolId(Tool::curve);
        EXPECT_EQ(canvas.picPaint.MousePointer, arrow ? kSystemArrow : kCustomCursor) << tool;
        EXPECT_EQ(canvas.picPaint.MouseIcon, kTools[tool].cursor) << tool;
    }
    engine.SelectTool(18, kLeftButton);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "cross.cur");
}

TEST_F(PaintEngineTest, KeepsTheOldCursorWhereTheToolsIsMissingAndTakesTheFocus)
{
    assets.missing = {"fill.cur"};
    choose(Tool::fill);
    EXPECT_EQ(canvas.picPaint.MouseIcon, "draw.cur");
    EXPECT_EQ(fields.currentTool, toolId(Tool::fill));
    EXPECT_EQ(focus.focused, "canvas");
    EXPECT_THROW(engine.ApplyToolCursor(), std::runtime_error);
}

// The option grids.

TEST_F(PaintEngineTest, TakesAWidthFromTheGrid)
{
    engine.fraOptDot_MouseDown({kLeftButton, 0, 400, 700});
    EXPECT_EQ(fields.dotIndex, 5);
    EXPECT_EQ(surface.DrawWidth, 6);
    EXPECT_EQ(canvas.widthGrid.lblDot, (TwipsPosition{325, 650}));
    EXPECT_EQ(canvas.widthGrid.shpDot[5], (OptionShape{kWhite, kWhite}));
    EXPECT_EQ(canvas.widthGrid.shpDot[4], (OptionShape{kBlack, kBlack}));
}

TEST_F(PaintEngineTest, LeavesEveryDotBlackAfterARightPressOnTheGrid)
{
    fields.dotIndex = 3;
    engine.fraOptDot_MouseDown({kRightButton, 0, 400, 700});
    EXPECT_EQ(fields.dotIndex, 3);
    for (const auto& dot : canvas.widthGrid.shpDot)
        EXPECT_EQ(dot, (OptionShape{kBlack, kBlack}));
}

TEST_F(PaintEngineTest, ShowsTheOldWidthAgainAfterAPressBesideTheCells)
{
    engine.fraOptDot_MouseDown({kLeftButton, 0, 400, 700});
    surface.DrawWidth = 1;
    engine.fraOptDot_MouseDown({kLeftButton, 0, 10, 10});
    EXPECT_EQ(fields.dotIndex, 5);
    EXPECT_EQ(canvas.widthGrid.lblDot, (TwipsPosition{325, 650}));
    EXPECT_EQ(canvas.widthGrid.shpDot[5], (OptionShape{kWhite, kWhite}));
    EXPECT_EQ(surface.DrawWidth, 6);
}

TEST_F(PaintEngineTest, TakesAFillModeFromTheColumnByTheLeftButton)
{
    engine.fraOptFill_MouseDown({kLeftButton, 0, 5000, 500});
    EXPECT_EQ(fields.fillMode, 1);
    EXPECT_EQ(canvas.fillColumn.lblFillTop, 580);
    engine.fraOptFill_MouseDown({kRightButton, 0, 0, 900});
    EXPECT_EQ(fields.fillMode, 1);
    engine.fraOptFill_MouseDown({kLeftButton, 0, 0, 760});
    EXPECT_EQ(fields.fillMode, 1);
    engine.fraOptFill_MouseDown({kLeftButton, 0, 0, 900});
    EXPECT_EQ(fields.fillMode, 2);
    EXPECT_EQ(canvas.fillColumn.shpRect[2].BorderColor, kWhite);
}

// Colours.

TEST_F(PaintEngineTest, TakesThePenColourByTheLeftButtonAndSetsUpTheBand)
{
    engine.lblColor_MouseDown(5, kLeftButton);
    EXPECT_EQ(canvas.lblForeColor, kRed);
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.ForeColor, kBack ^ kRed);
}

TEST_F(PaintEngineTest, TakesTheFillColourByTheRightButtonAndNothingElse)
{
    const auto mode = surface.DrawMode;
    engine.lblColor_MouseDown(5, kRightButton);
    EXPECT_EQ(canvas.lblFillColor, kRed);
    EXPECT_EQ(canvas.lblForeColor, kBlack);
    EXPECT_EQ(surface.DrawMode, mode);
}

TEST_F(PaintEngineTest, IgnoresACellThatIsNotThereAndAnyOtherButton)
{
    for (const int index : {-1, kColourCells, std::numeric_limits<int>::max()})
        engine.lblColor_MouseDown(index, kLeftButton);
    engine.lblColor_MouseDown(5, 4);
    EXPECT_EQ(canvas.lblForeColor, kBlack);
}

TEST_F(PaintEngineTest, TakesThePenColourFromTheDialogAsFromACell)
{
    cdlColor.choice = rgb(1, 2, 3);
    engine.lblForeColor_DblClick();
    EXPECT_EQ(canvas.lblForeColor, rgb(1, 2, 3));
    EXPECT_EQ(surface.ForeColor, kBack ^ rgb(1, 2, 3));
    EXPECT_EQ(cdlColor.shown, 1);
}

TEST_F(PaintEngineTest, TakesTheFillColourFromTheDialogAlone)
{
    cdlColor.choice = rgb(1, 2, 3);
    engine.lblFillColor_DblClick();
    EXPECT_EQ(canvas.lblFillColor, rgb(1, 2, 3));
    EXPECT_EQ(canvas.lblForeColor, kBlack);
}

TEST_F(PaintEngineTest, TakesTheColourThatACancelledDialogHad)
{
    cdlColor.Color = kRed;
    engine.lblForeColor_DblClick();
    EXPECT_EQ(canvas.lblForeColor, kRed);
    engine.lblFillColor_DblClick();
    EXPECT_EQ(canvas.lblFillColor, kRed);
}

// Clearing, and the backgrounds.

TEST_F(PaintEngineTest, ClearsTheDrawingAndKeepsTheBackground)
{
    engine.chooseBackground(Sheet::grid);
    press(1, 1);
    press(9, 9);
    engine.Command2_Click();
    EXPECT_EQ(surface.Point(1, 1), rgb(0, 255, 0));
    EXPECT_EQ(surface.Point(9, 9), kBack);
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(PaintEngineTest, LaysASheetBehindTheDrawingWhichIsGoneWithIt)
{
    press(9, 9);
    engine.chooseBackground(Sheet::squares);
    EXPECT_EQ(assets.loaded.back(), "squares.jpg");
    EXPECT_EQ(surface.Point(1, 1), rgb(0, 255, 0));
    EXPECT_EQ(surface.Point(9, 9), kBack);
    EXPECT_EQ(snapshots(), 0);
    engine.chooseBackground(Sheet::xyAxis);
    EXPECT_EQ(assets.loaded.back(), "xy.gif");
    engine.chooseBackground(Sheet::blank);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(PaintEngineTest, KeepsTheDrawingWhereTheSheetIsMissing)
{
    press(9, 9);
    assets.missing = {"grid.gif"};
    EXPECT_THROW(engine.chooseBackground(Sheet::grid), std::runtime_error);
    EXPECT_EQ(surface.Point(9, 9), kBlack);
}

TEST_F(PaintEngineTest, ShowsTheTopLeftOfAHugeSheet)
{
    assets.picture = RasterImage(5000, 3000, kRed);
    engine.chooseBackground(Sheet::grid);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kRed));
}

} // namespace
} // namespace quillora::drawing
