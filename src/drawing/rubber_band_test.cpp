#include "tests/support/drawing_board.h"

namespace quillora::drawing {
namespace {

using tests::expectedGrid;

using RubberBand = tests::DrawingBoard;

TEST_F(RubberBand, ShowsTheWantedColourOverTheBackgroundWhileItIsDragged)
{
    choose(Tool::line);
    press(2, 2);
    move(8, 2);
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.ForeColor, kBack ^ kBlack);
    EXPECT_EQ(surface.Point(5, 2), kBlack);
}

TEST_F(RubberBand, LeavesNothingOfItsEarlierPlaces)
{
    for (const auto tool :
         {Tool::line, Tool::rectangle, Tool::ellipse, Tool::arrow, Tool::roundedRectangle}) {
        choose(tool);
        press(3, 3);
        const auto before = surface.Image();
        for (const auto& [x, y] : {std::pair{9, 7}, {14, 2}, {1, 9}, {12, 5}})
            move(static_cast<float>(x), static_cast<float>(y));
        move(3, 3);
        EXPECT_EQ(surface.Image(), before) << toolId(tool);
        release(3, 3);
    }
}

TEST_F(RubberBand, LeavesAStrayOneWhereTheReleaseIsNotTheLastMove)
{
    choose(Tool::line);
    press(2, 2);
    move(8, 2);
    release(2, 8);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ..######........
        ..#.............
        ..#.............
        ..#.............
        ..#.............
        ..#.............
        ................
        ................
    )"));
}

TEST_F(RubberBand, EndsInCopyPenWithThePlainColours)
{
    for (const auto tool :
         {Tool::line, Tool::rectangle, Tool::ellipse, Tool::arrow, Tool::roundedRectangle}) {
        choose(tool);
        drag(2, 2, 8, 6);
        EXPECT_EQ(surface.DrawMode, RasterOperation::copyPen) << toolId(tool);
        EXPECT_EQ(surface.ForeColor, kBlack) << toolId(tool);
    }
}

TEST_F(RubberBand, TakesNoSnapshot)
{
    choose(Tool::rectangle);
    drag(2, 2, 8, 6);
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(RubberBand, DoesNothingWhileAnotherButtonIsHeldToo)
{
    choose(Tool::line);
    press(2, 2);
    const auto before = surface.Image();
    engine.picPaint_MouseMove({kLeftButton + kRightButton, 0, 9, 9});
    engine.picPaint_MouseMove({0, 0, 9, 9});
    EXPECT_EQ(surface.Image(), before);
}

TEST_F(RubberBand, StartsItsEndAtItsStart)
{
    choose(Tool::rectangle);
    fields.endX = 9;
    press(4, 5);
    EXPECT_EQ(canvas.start(), (base::PixelPoint{4, 5}));
    EXPECT_EQ(canvas.end(), (base::PixelPoint{4, 5}));
}

TEST_F(RubberBand, MarksThePressWithALineOfTheWidePenInWhateverColourItWasLeft)
{
    fields.dotIndex = 2;
    choose(Tool::line);
    surface.ForeColor = kRed;
    press(5, 5);
    EXPECT_EQ(surface.Point(5, 5), kRed);
    choose(Tool::rectangle);
    surface.ForeColor = kRed;
    surface.DrawMode = RasterOperation::copyPen;
    press(12, 5);
    EXPECT_EQ(surface.Point(12, 5), kBack);
}

TEST_F(RubberBand, DrawsALineWithoutItsLastPixel)
{
    choose(Tool::line);
    drag(2, 2, 6, 2);
    EXPECT_EQ(tests::pixelGrid(surface.Image(), {0, 1, 9, 3}, {{'.', kBack}, {'#', kBlack}}), expectedGrid(R"(
        .........
        ..####...
        .........
    )"));
}

TEST_F(RubberBand, DrawsALineFromThePointToItselfWhenNothingMoves)
{
    fields.dotIndex = 1;
    choose(Tool::line);
    click(4, 4);
    EXPECT_EQ(surface.Point(4, 4), kBlack);
}

TEST_F(RubberBand, HoldsALineUprightOrLevelUnderControl)
{
    choose(Tool::line);
    shift = kControlAlone;
    drag(2, 2, 9, 4);
    EXPECT_EQ(canvas.end(), (base::PixelPoint{9, 2}));
    drag(2, 2, 4, 9);
    EXPECT_EQ(canvas.end(), (base::PixelPoint{2, 9}));
}

TEST_F(RubberBand, DrawsTheOutlineOfARectangleInModeZero)
{
    choose(Tool::rectangle);
    drag(2, 2, 7, 6);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ..######........
        ..#....#........
        ..#....#........
        ..#....#........
        ..######........
        ................
        ................
        ................
    )"));
}

TEST_F(RubberBand, FillsARectangleInModeOne)
{
    fields.fillMode = 1;
    choose(Tool::rectangle);
    drag(7, 6, 2, 2);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ..######........
        ..#ffff#........
        ..#ffff#........
        ..#ffff#........
        ..######........
        ................
        ................
        ................
    )"));
}

TEST_F(RubberBand, DrawsOutlineAndInsideInTheFillColourInModeTwo)
{
    fields.fillMode = 2;
    choose(Tool::rectangle);
    drag(2, 2, 7, 6);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ..ffffff........
        ..ffffff........
        ..ffffff........
        ..ffffff........
        ..ffffff........
        ................
        ................
        ................
    )"));
}

TEST_F(RubberBand, ShowsTheFillColourWhileItIsDragged)
{
    fields.fillMode = 1;
    choose(Tool::rectangle);
    press(2, 2);
    move(7, 6);
    EXPECT_EQ(surface.Point(4, 4), kFillColour);
    EXPECT_EQ(surface.Point(2, 2), kBlack);
    EXPECT_EQ(surface.FillColor, kBack ^ kFillColour);
    EXPECT_EQ(surface.FillStyle, FillPattern::solid);
}

TEST_F(RubberBand, DrawsNoRectangleWhenNothingMoves)
{
    choose(Tool::rectangle);
    click(4, 4);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(RubberBand, DrawsAFreeRectangleUnderControlAndASquareUnderShift)
{
    choose(Tool::rectangle);
    shift = kControlAlone;
    drag(1, 1, 9, 4);
    EXPECT_EQ(canvas.end(), (base::PixelPoint{9, 4}));
    shift = kShiftAlone;
    drag(1, 1, 9, 4);
    EXPECT_EQ(canvas.end(), (base::PixelPoint{4, 4}));
}

TEST_F(RubberBand, DrawsAnEllipseThatTouchesAllFourSidesOfTheDrag)
{
    choose(Tool::ellipse);
    drag(2, 1, 12, 7);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        .....#####......
        ...##.....##....
        ..#.........#...
        ..#.........#...
        ..#.........#...
        ...##.....##....
        .....#####......
        ................
        ................
    )"));
}

TEST_F(RubberBand, DrawsNoEllipseStraightUpOrDown)
{
    choose(Tool::ellipse);
    drag(5, 2, 5, 8);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(RubberBand, DrawsAnEllipseOfNoHeightAsALevelLine)
{
    choose(Tool::ellipse);
    drag(3, 4, 9, 4);
    EXPECT_EQ(surface.Point(6, 4), kBlack);
    EXPECT_EQ(surface.Point(6, 3), kBack);
}

TEST_F(RubberBand, DrawsAnArrowWithItsHeadBackAlongTheShaft)
{
    // Strokes of ten pixels at 45 degrees: seven across and seven down.
    DrawingCanvas wide(24, 17);
    PaintEngine hand(wide, {text, random, assets, focus, cdlColor});
    hand.SelectTool(toolId(Tool::arrow), kLeftButton);
    wide.fields.dotIndex = 0;
    hand.picPaint_MouseDown(left(22, 8));
    hand.picPaint_MouseMove(left(2, 8));
    hand.picPaint_MouseUp(left(2, 8));
    EXPECT_EQ(gridOf(wide.surface().Image()), expectedGrid(R"(
        ........................
        ........................
        ........#...............
        .......#................
        ......#.................
        .....#..................
        ....#...................
        ...#....................
        ..#####################.
        ...#....................
        ....#...................
        .....#..................
        ......#.................
        .......#................
        ........#...............
        ........................
        ........................
    )"));
}

TEST_F(RubberBand, FailsAtAnArrowBeyondSixteenBitsOnMoveAndGoesOn)
{
    choose(Tool::arrow);
    press(2, 2);
    EXPECT_THROW(move(40000, 2), std::exception);
    EXPECT_NO_THROW(press(2, 2));
}

TEST_F(RubberBand, DrawsARoundedRectangleOneShortOfItsRightAndBottom)
{
    choose(Tool::roundedRectangle);
    drag(1, 0, 15, 10);
    const auto picture = surface.Image();
    EXPECT_EQ(picture.at(1, 5), kBlack);
    EXPECT_EQ(picture.at(14, 5), kBlack);
    EXPECT_EQ(picture.at(15, 5), kBack);
    EXPECT_EQ(picture.at(8, 0), kBlack);
    EXPECT_EQ(picture.at(8, 9), kBlack);
    EXPECT_EQ(picture.at(1, 0), kBack);
}

TEST_F(RubberBand, RefreshesARoundedRectangleOnMovesAndNotOnRelease)
{
    choose(Tool::roundedRectangle);
    press(1, 1);
    screen.refreshes = 0;
    move(9, 9);
    EXPECT_EQ(screen.refreshes, 1);
    screen.shown.clear();
    release(9, 9);
    EXPECT_EQ(screen.refreshes, 1);
    EXPECT_TRUE(screen.shown.empty());
}

} // namespace
} // namespace quillora::drawing
