#include "tests/support/drawing_board.h"

namespace quillora::drawing {
namespace {

using tests::FakeTextRasteriser;

struct TextTool : tests::DrawingBoard {
    DrawingTextBox& box = canvas.txtText;

    TextTool() { choose(Tool::text); }

    void open(std::string words = "ab")
    {
        click(2, 3);
        box.Text = std::move(words);
    }
};

TEST_F(TextTool, OpensAnEmptyBoxAtThePointerInTheColoursOfTheMoment)
{
    canvas.lblForeColor = kRed;
    box.Text = "old";
    click(2, 3);
    EXPECT_TRUE(box.Visible);
    EXPECT_EQ(box.Left, 2);
    EXPECT_EQ(box.Top, 3);
    EXPECT_EQ(box.Text, "");
    EXPECT_EQ(box.BackColor, kBack);
    EXPECT_EQ(box.ForeColor, kRed);
    EXPECT_EQ(box.Tag, "");
    EXPECT_EQ(focus.focused, "text");
}

TEST_F(TextTool, MovesAnOpenBoxAndKeepsItsWords)
{
    open("words");
    focus.focused = "canvas";
    click(7, 6);
    EXPECT_EQ(box.Left, 7);
    EXPECT_EQ(box.Top, 6);
    EXPECT_EQ(box.Text, "words");
    EXPECT_EQ(box.Tag, "moving");
    EXPECT_EQ(focus.focused, "text");
}

TEST_F(TextTool, PrintsNothingWhenAMoveTakesTheFocus)
{
    open();
    click(7, 6);
    engine.txtText_LostFocus();
    EXPECT_TRUE(box.Visible);
    EXPECT_EQ(box.Tag, "");
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
}

TEST_F(TextTool, PrintsWhenTheFocusGoesElsewhere)
{
    open();
    engine.txtText_LostFocus();
    EXPECT_FALSE(box.Visible);
    EXPECT_EQ(surface.Point(2, 3), kBlack);
    EXPECT_EQ(focus.focused, "canvas");
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(TextTool, LosesTheFocusWithoutAWordWhenTheBoxIsHidden)
{
    box.Tag = "moving";
    engine.txtText_LostFocus();
    EXPECT_EQ(box.Tag, "");
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(TextTool, PrintsThePenColourAtTheBoxOnEnter)
{
    open();
    canvas.lblForeColor = kRed;
    engine.txtText_KeyUp(kEnterKey);
    EXPECT_EQ(grid(), tests::expectedGrid(R"(
        ................
        ................
        ................
        ..rrr.rrr.......
        ..rrr.rrr.......
        ..rrr.rrr.......
        ..rrr.rrr.......
        ................
        ................
        ................
    )"));
    EXPECT_EQ(surface.CurrentX, 2);
    EXPECT_EQ(surface.CurrentY, 3);
    EXPECT_EQ(surface.ForeColor, kRed);
    EXPECT_FALSE(box.Visible);
    EXPECT_EQ(focus.focused, "canvas");
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(TextTool, PrintsOnADoubleClickOnTheBox)
{
    open();
    engine.txtText_DblClick();
    EXPECT_FALSE(box.Visible);
    EXPECT_EQ(text.lastText, "ab");
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(TextTool, PrintsInTheFontOfTheBox)
{
    open();
    engine.txtText_KeyUp(kEnterKey);
    EXPECT_EQ(text.lastFont, (TextFont{.name = "Verdana", .sizePoints = 14.25}));
}

TEST_F(TextTool, PrintsNothingOfAnEmptyBoxAndStillTakesASnapshot)
{
    open("");
    engine.txtText_KeyUp(kEnterKey);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(TextTool, PrintsWhatCanBeSeenOfAVeryLongText)
{
    open(std::string(10000, 'x'));
    engine.txtText_KeyDown();
    engine.txtText_KeyUp(kEnterKey);
    EXPECT_EQ(surface.Point(kWidth - 2, 3), kBlack);
    ASSERT_EQ(text.parts.size(), 1U);
    EXPECT_LE(text.parts[0].width, kWidth);
}

TEST_F(TextTool, LosesTheWordsOnEscape)
{
    open();
    engine.txtText_KeyUp(kEscapeKey);
    EXPECT_FALSE(box.Visible);
    EXPECT_EQ(surface.Image(), RasterImage(kWidth, kHeight, kBack));
    EXPECT_EQ(snapshots(), 0);
    EXPECT_EQ(focus.focused, "canvas");
    click(2, 3);
    EXPECT_EQ(box.Text, "");
}

TEST_F(TextTool, IsAsHighAsALabelWithALetterMoreInTheLabelsFont)
{
    open("words");
    engine.txtText_KeyDown();
    EXPECT_EQ(canvas.lblTextSize.Caption, "Mwords");
    EXPECT_EQ(text.lastFont, (TextFont{.name = "Arial", .sizePoints = 9.75}));
    EXPECT_EQ(box.Height, FakeTextRasteriser::kCellHeight);
    box.Height = 0;
    engine.txtText_KeyUp('A');
    EXPECT_EQ(canvas.lblTextSize.Caption, "Owords");
    EXPECT_EQ(box.Height, FakeTextRasteriser::kCellHeight);
    EXPECT_TRUE(box.Visible);
    EXPECT_EQ(focus.focused, "text");
}

TEST_F(TextTool, KeepsItsWidth) { EXPECT_EQ(DrawingTextBox::kWidth.value, 2025); }

TEST_F(TextTool, GivesTheFocusToTheCanvasAfterAKeyInAHiddenBox)
{
    focus.focused = "nothing";
    engine.txtText_KeyUp('A');
    EXPECT_EQ(focus.focused, "canvas");
}

} // namespace
} // namespace quillora::drawing
