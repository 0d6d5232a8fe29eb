#include "tests/support/drawing_board.h"

#include "drawing/selection.h"

#include <limits>

namespace quillora::drawing {
namespace {

using tests::expectedGrid;

struct SelectionTest : tests::DrawingBoard {
    SelectionSurface& picSelect = canvas.picSelect;
    RasterImage drawn;

    SelectionTest()
    {
        surface.Line(4, 3, 5, 4, LineForm::filledBox, kRed);
        drawn = surface.Image();
        choose(Tool::selectArea);
    }

    /// Lifts the pixels from (3, 2) to (6, 5).
    void lift() { drag(2, 1, 7, 6); }
    void dragSelection(int byX, int byY)
    {
        engine.picSelect_MouseDown(left(1, 1));
        engine.picSelect_MouseMove(left(static_cast<float>(1 + byX), static_cast<float>(1 + byY)));
        engine.picSelect_MouseUp(left(1, 1));
    }
};

TEST_F(SelectionTest, IsLiftedFromInsideTheDraggedBox)
{
    lift();
    EXPECT_TRUE(picSelect.Visible);
    EXPECT_EQ(picSelect.Left, 3);
    EXPECT_EQ(picSelect.Top, 2);
    EXPECT_EQ(picSelect.Width, 4);
    EXPECT_EQ(picSelect.Height, 4);
    EXPECT_TRUE(fields.selectionFresh);
    EXPECT_EQ(gridOf(picSelect.surface.Image()), expectedGrid(R"(
        ....
        .rr.
        .rr.
        ....
    )"));
}

TEST_F(SelectionTest, IsLiftedAlikeFromAnyCorner)
{
    drag(7, 6, 2, 1);
    EXPECT_EQ(picSelect.Left, 3);
    EXPECT_EQ(picSelect.Top, 2);
    EXPECT_EQ(picSelect.Width, 4);
    EXPECT_EQ(picSelect.Height, 4);
}

TEST_F(SelectionTest, IsMarkedByADottedBoxThatShowsBlackOnePixelOutside)
{
    lift();
    EXPECT_EQ(surface.DrawStyle, PenStyle::dotted);
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ..#...##........
        ..#....#........
        ....rr..........
        ....rr..........
        ................
        ..#...##........
        ................
        ................
        ................
    )"));
}

TEST_F(SelectionTest, GivesThePenItsWidthBackAtTheRelease)
{
    fields.dotIndex = 5;
    press(2, 1);
    EXPECT_EQ(surface.DrawWidth, 1);
    move(7, 6);
    release(7, 6);
    EXPECT_EQ(surface.DrawWidth, 6);
    click(2, 1);
    EXPECT_EQ(surface.DrawWidth, 6);
}

TEST_F(SelectionTest, IsNotMadeByADragOfOnePixelAndLeavesNoMarquee)
{
    drag(2, 1, 3, 6);
    EXPECT_FALSE(picSelect.Visible);
    EXPECT_EQ(surface.Image(), drawn);
    drag(2, 1, 8, 2);
    EXPECT_FALSE(picSelect.Visible);
    EXPECT_EQ(surface.Image(), drawn);
    click(5, 5);
    EXPECT_FALSE(picSelect.Visible);
    EXPECT_EQ(surface.Image(), drawn);
    EXPECT_FALSE(fields.selectionFresh);
}

TEST_F(SelectionTest, ChangesNothingWhenItIsLiftedAndCommitted)
{
    lift();
    engine.picPaint_DblClick();
    EXPECT_FALSE(picSelect.Visible);
    EXPECT_EQ(surface.Image(), drawn);
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(SelectionTest, ChangesNothingHoweverLongTheLiftWentToAndFro)
{
    press(2, 1);
    for (const auto& [x, y] : {std::pair{5, 5}, {2, 1}, {1, 9}, {14, 2}, {2, 7}, {7, 6}})
        move(static_cast<float>(x), static_cast<float>(y));
    release(7, 6);
    engine.picPaint_KeyUp(kEnterKey);
    EXPECT_EQ(surface.Image(), drawn);
}

TEST_F(SelectionTest, IsASquareUnderShiftDecidedOnRelease)
{
    press(2, 1);
    move(12, 6);
    shift = kShiftAlone;
    move(12, 6);
    release(12, 6);
    EXPECT_EQ(picSelect.Width, 4);
    EXPECT_EQ(picSelect.Height, 4);
}

TEST_F(SelectionTest, MovesWhatItHolds)
{
    lift();
    dragSelection(6, 2);
    EXPECT_EQ(picSelect.Left, 9);
    EXPECT_EQ(picSelect.Top, 4);
    engine.picPaint_DblClick();
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ................
        ................
        ................
        ..........rr....
        ..........rr....
        ................
        ................
        ................
    )"));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(SelectionTest, ClearsTheAreaUnderItAtTheFirstPress)
{
    lift();
    engine.picSelect_MouseDown(left(1, 1));
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_FALSE(fields.selectionFresh);
    EXPECT_TRUE(fields.selectionDragging);
    EXPECT_EQ(surface.DrawWidth, 1);
    EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen);
    EXPECT_EQ(surface.DrawStyle, PenStyle::dotted);
}

TEST_F(SelectionTest, CopiesUnderControl)
{
    lift();
    shift = kControlAlone;
    dragSelection(6, 2);
    shift = 0;
    engine.picPaint_DblClick();
    EXPECT_EQ(grid(), expectedGrid(R"(
        ................
        ................
        ................
        ....rr..........
        ....rr..........
        ..........rr....
        ..........rr....
        ................
        ................
        ................
    )"));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(SelectionTest, ClearsNothingByALaterPlainDragAfterACopy)
{
    lift();
    shift = kControlAlone;
    dragSelection(6, 2);
    EXPECT_FALSE(fields.selectionFresh);
    shift = 0;
    dragSelection(0, 1);
    engine.picPaint_DblClick();
    EXPECT_EQ(surface.Point(4, 3), kRed);
    EXPECT_EQ(surface.Point(10, 6), kRed);
}

TEST_F(SelectionTest, HasNoMarqueeWhileItIsDraggedAndOneWhenItIsLeft)
{
    lift();
    engine.picSelect_MouseDown(left(1, 1));
    engine.picSelect_MouseMove(left(5, 1));
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    engine.picSelect_MouseUp(left(5, 1));
    EXPECT_EQ(surface.Point(6, 1), kBlack);
    EXPECT_FALSE(fields.selectionDragging);
}

TEST_F(SelectionTest, LosesWhatIsDraggedOffTheCanvas)
{
    lift();
    dragSelection(-4, -3);
    engine.picPaint_DblClick();
    EXPECT_EQ(surface.Point(0, 0), kRed);
    EXPECT_EQ(surface.Point(1, 1), kRed);
    EXPECT_EQ(surface.Point(4, 3), kBack);
    lift();
    dragSelection(-1000, 0);
    engine.picPaint_DblClick();
    EXPECT_FALSE(picSelect.Visible);
}

TEST_F(SelectionTest, OfTheWholeCanvasCanBeDraggedOffIt)
{
    drag(-1, -1, kWidth, kHeight);
    EXPECT_EQ(picSelect.surface.Image(), drawn);
    dragSelection(kWidth, kHeight);
    engine.picPaint_DblClick();
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(SelectionTest, HoldsTheBackColourWhereItReachesPastTheCanvas)
{
    drag(12, 6, 20, 14);
    EXPECT_EQ(gridOf(picSelect.surface.Image()).find_first_not_of(".\n"), std::string::npos);
}

TEST_F(SelectionTest, IsCommittedByAPressOnTheCanvas)
{
    lift();
    dragSelection(6, 2);
    press(0, 0);
    EXPECT_FALSE(picSelect.Visible);
    EXPECT_EQ(surface.Point(10, 5), kRed);
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(SelectionTest, IsCommittedByAnotherTool)
{
    lift();
    choose(Tool::pencil);
    EXPECT_FALSE(picSelect.Visible);
}

TEST_F(SelectionTest, IsLeftAsItIsWhenSelectAreaIsChosenAfterTheBoardWasMadeReadyAnew)
{
    lift();
    engine.DrawPrepare();
    choose(Tool::selectArea);
    EXPECT_TRUE(picSelect.Visible);
    engine.DrawPrepare();
    choose(Tool::line);
    EXPECT_FALSE(picSelect.Visible);
}

TEST_F(SelectionTest, StaysUnderRightButtonsAndStrangeOnes)
{
    lift();
    const auto before = surface.Image();
    engine.picSelect_MouseDown({kRightButton, 0, 1, 1});
    engine.picSelect_MouseMove({kRightButton, 0, 5, 5});
    engine.picSelect_MouseUp({kRightButton, 0, 5, 5});
    EXPECT_EQ(surface.Image(), before);
    EXPECT_EQ(picSelect.Left, 3);
}

TEST_F(SelectionTest, DoesNotMoveWithoutAPress)
{
    lift();
    engine.picSelect_MouseMove(left(5, 5));
    EXPECT_EQ(picSelect.Left, 3);
}

TEST_F(SelectionTest, HasItsMarqueeToggledWithThePenKept)
{
    lift();
    surface.DrawMode = RasterOperation::copyPen;
    surface.DrawWidth = 4;
    ToggleMarquee(canvas);
    EXPECT_EQ(surface.Image(), drawn);
    EXPECT_EQ(surface.DrawMode, RasterOperation::copyPen);
    EXPECT_EQ(surface.DrawWidth, 4);
    EXPECT_EQ(surface.DrawStyle, PenStyle::solid);
    EXPECT_FALSE(fields.selectionFresh);
}

TEST_F(SelectionTest, HasNoMarqueeToToggleWhenThereIsNone)
{
    surface.DrawStyle = PenStyle::dotted;
    ToggleMarquee(canvas);
    CommitSelection(canvas);
    EXPECT_EQ(surface.Image(), drawn);
    EXPECT_EQ(surface.DrawStyle, PenStyle::dotted);
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(SelectionTest, FailsLargerThanAnyScreenAndGoesOn)
{
    press(0, 0);
    EXPECT_THROW(release(1e9F, 1e9F), std::length_error);
    press(0, 0);
    EXPECT_THROW(release(32000, 32000), std::length_error);
    lift();
    EXPECT_TRUE(picSelect.Visible);
}

TEST_F(SelectionTest, BearsADragToTheEndOfTheNumbers)
{
    lift();
    for (const float far : {1e30F, -1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        engine.picSelect_MouseDown(left(1, 1));
        engine.picSelect_MouseMove(left(far, far));
        engine.picSelect_MouseMove(left(far, far));
        engine.picSelect_MouseUp(left(far, far));
    }
    engine.picPaint_DblClick();
    EXPECT_FALSE(picSelect.Visible);
}

} // namespace
} // namespace quillora::drawing
