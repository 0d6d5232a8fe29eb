#include "tests/forms/text_board_fixture.h"

#include "tests/support/file_contents.h"

#include <QTextBlock>

#include <stdexcept>

using namespace quillora;
using panels::Alignment;
using tests::TextBoardFormTest;

TEST_F(TextBoardFormTest, BeginsEmptyInItsLook)
{
    EXPECT_EQ(widget.Text(), "");
    EXPECT_EQ(widget.SelFontSize(), 26.25);
    EXPECT_EQ(widget.SelColor(), base::rgb(0, 0, 0));
    EXPECT_EQ(widget.SelBold(), false);
    EXPECT_EQ(widget.SelItalic(), false);
    EXPECT_EQ(widget.SelUnderline(), false);
    EXPECT_EQ(widget.SelAlignment(), Alignment::left);
    EXPECT_EQ(widget.SelBullet(), false);
    EXPECT_EQ(contents(), panels::RichText());
}

TEST_F(TextBoardFormTest, ShowsNothingButWhiteWhereThereIsNoText)
{
    ASSERT_TRUE(shown);
    // Without the focus there is no caret.
    panel.findChild<QWidget*>("text1_TB_bold")->setFocus();
    EXPECT_TRUE(tests::waitUntil([&] { return grab() == tests::plainPicture({747, 420}, Qt::white); }));
}

TEST_F(TextBoardFormTest, APointIsFourThirdsOfAPixelWhateverTheDesktopSays)
{
    EXPECT_EQ(widget.viewport()->logicalDpiX(), 96);
    EXPECT_EQ(widget.viewport()->logicalDpiY(), 96);
    widget.setText("Measure");
    settle();
    // 26.25 points are 35 pixels, and the font's line is 1.149 times as high.
    EXPECT_NEAR(widget.document()->firstBlock().layout()->lineAt(0).height(), 35 * 1.149, 1.2);
}

TEST_F(TextBoardFormTest, UsesAFontOfTheSameWidths)
{
    widget.setText("x");
    const QFont font = widget.document()->firstBlock().begin().fragment().charFormat().font();
    EXPECT_EQ(font.families().front(), "Times New Roman");
    EXPECT_TRUE(font.families().contains("Liberation Serif"));
}

TEST_F(TextBoardFormTest, TakesWhatIsTyped)
{
    ASSERT_TRUE(shown);
    type("two words");
    key("Return");
    type("and more");
    EXPECT_EQ(widget.Text(), "two words\r\nand more");
    key("shift+Return");
    type("x");
    EXPECT_EQ(widget.Text(), "two words\r\nand more\vx");
    key("Tab");
    EXPECT_EQ(widget.Text(), "two words\r\nand more\vx\t");
}

TEST_F(TextBoardFormTest, FormatsByTheKeyboardWithAltAloneAndTypesNothing)
{
    ASSERT_TRUE(shown);
    type("word");
    key("ctrl+a");
    for (const char* keys : {"alt+b", "alt+i", "alt+u", "alt+c"})
        key(keys);
    EXPECT_EQ(widget.Text(), "word");
    EXPECT_EQ(widget.SelBold(), true);
    EXPECT_EQ(widget.SelItalic(), true);
    EXPECT_EQ(widget.SelUnderline(), true);
    EXPECT_EQ(widget.SelAlignment(), Alignment::centre);
    key("alt+r");
    EXPECT_EQ(widget.SelAlignment(), Alignment::right);
    key("alt+r");
    EXPECT_EQ(widget.SelAlignment(), Alignment::left);
    for (const char* keys : {"ctrl+b", "alt+shift+b", "ctrl+alt+b"})
        key(keys);
    EXPECT_EQ(widget.SelBold(), true);
    key("alt+x");
    EXPECT_EQ(widget.Text(), "word");
}

TEST_F(TextBoardFormTest, EachButtonActsOnTheSelectionAndLeavesTheFocus)
{
    ASSERT_TRUE(shown);
    type("one two");
    select(0, 3);
    click("text1_TB_bold");
    click("text1_TB_italic");
    click("text1_TB_under");
    click("text1_TB_grow");
    click("Picture6");
    click("text2_TB_bullets");
    click("text2_TB_center");
    EXPECT_TRUE(widget.hasFocus());
    const panels::CharacterFormat marked{.font = "Times New Roman",
                                         .size = {605},
                                         .colour = base::rgb(0, 0, 192),
                                         .bold = true,
                                         .italic = true,
                                         .underline = true};
    const panels::Paragraph paragraph = contents().paragraphs.front();
    EXPECT_EQ(paragraph.alignment, Alignment::centre);
    EXPECT_TRUE(paragraph.bullet);
    EXPECT_EQ(paragraph.runs, (std::vector<panels::TextRun>{{"one", marked}, {" two", {}}}));
    click("text1_TB_shrink");
    EXPECT_EQ(widget.SelFontSize(), 26.25);
    click("text2_TB_left");
    click("text2_TB_bullets");
    EXPECT_EQ(widget.SelAlignment(), Alignment::left);
    EXPECT_EQ(widget.SelBullet(), false);
    click("text2_TB_right");
    EXPECT_EQ(widget.SelAlignment(), Alignment::right);
}

TEST_F(TextBoardFormTest, ASwatchWithoutASelectionColoursWhatIsTypedNext)
{
    ASSERT_TRUE(shown);
    const std::pair<const char*, base::Colour> swatches[] = {{"Picture8", base::rgb(255, 0, 0)},
                                                             {"Picture7", base::rgb(0, 192, 0)},
                                                             {"Picture6", base::rgb(0, 0, 192)},
                                                             {"Picture5", base::rgb(0, 0, 0)}};
    type("a");
    for (const auto& [swatch, colour] : swatches) {
        click(swatch);
        EXPECT_EQ(widget.SelColor(), colour) << swatch;
        type("b");
    }
    const panels::RichText text = contents();
    ASSERT_EQ(text.paragraphs.front().runs.size(), 5U);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(text.paragraphs.front().runs[i + 1].format.colour, swatches[i].second);
}

TEST_F(TextBoardFormTest, IsLeftByTheKeyboard)
{
    ASSERT_TRUE(shown);
    key("ctrl+Tab");
    EXPECT_FALSE(widget.hasFocus());
    widget.setFocus();
    key("ctrl+shift+Tab");
    EXPECT_FALSE(widget.hasFocus());
    EXPECT_EQ(widget.Text(), "");
}

TEST_F(TextBoardFormTest, GivesTheFocusToTheStageAndToNoButtonWhenItIsHidden)
{
    ASSERT_TRUE(shown);
    ASSERT_TRUE(widget.hasFocus());
    window.setFocusPolicy(Qt::StrongFocus);
    widget.hide();
    EXPECT_TRUE(window.hasFocus());
    for (const auto* button : window.findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->hasFocus());
}

TEST_F(TextBoardFormTest, ValuesOfAMixedSelectionAreUndefined)
{
    widget.setTextRTF("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\fs40 a\\fs60\\b\\i\\ul\\cf1 b\\par"
                      "\\qc{\\pntext\\bullet\\tab}c\\par}");
    select(0, 2);
    EXPECT_EQ(widget.SelFontSize(), std::nullopt);
    EXPECT_EQ(widget.SelBold(), std::nullopt);
    EXPECT_EQ(widget.SelItalic(), std::nullopt);
    EXPECT_EQ(widget.SelUnderline(), std::nullopt);
    EXPECT_EQ(widget.SelColor(), std::nullopt);
    EXPECT_EQ(widget.SelAlignment(), Alignment::left);
    EXPECT_EQ(widget.SelBullet(), false);
    select(0, 4);
    EXPECT_EQ(widget.SelAlignment(), std::nullopt);
    EXPECT_EQ(widget.SelBullet(), std::nullopt);
    select(0, 1);
    EXPECT_EQ(widget.SelFontSize(), 20);
    EXPECT_EQ(widget.SelBold(), false);
}

TEST_F(TextBoardFormTest, AMixedSelectionGrowsNotAndTurnsBoldAsAWhole)
{
    widget.setTextRTF("{\\rtf1\\fs40 a\\fs60\\b b}");
    select(0, 2);
    const std::string before = widget.TextRTF();
    board.text1_TB_ButtonClick("grow");
    EXPECT_EQ(widget.TextRTF(), before);
    board.text1_TB_ButtonClick("bold");
    EXPECT_EQ(widget.SelBold(), true);
    board.text1_TB_ButtonClick("bold");
    EXPECT_EQ(widget.SelBold(), false);
}

TEST_F(TextBoardFormTest, RefusesSizesThatNoOneCanRead)
{
    widget.setText("a");
    select(0, 1);
    for (const double size : {0.0, -4.0, 0.9, 1638.5, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(widget.setSelFontSize(size), std::out_of_range) << size;
    EXPECT_EQ(widget.SelFontSize(), 26.25);
    for (int i = 0; i < 20; ++i)
        board.text1_TB_ButtonClick("shrink");
    EXPECT_EQ(widget.SelFontSize(), 2.25);
    for (int i = 0; i < 500; ++i)
        board.text1_TB_ButtonClick("grow");
    EXPECT_EQ(widget.SelFontSize(), 1634.25);
}

TEST_F(TextBoardFormTest, PropertiesRoundTrip)
{
    const std::string office = tests::readFile(QUILLORA_RTF_SAMPLES "/formats.rtf");
    widget.setTextRTF(office);
    EXPECT_EQ(contents(), panels::readRtf(office));
    const std::string rtf = widget.TextRTF();
    panels::PropertySet saved;
    board.WriteProperties(saved);
    board.text2_TB_ButtonClick("cut");
    board.ReadProperties(saved);
    EXPECT_EQ(widget.TextRTF(), rtf);
    widget.setText("a\r\nb\vc 😀");
    EXPECT_EQ(widget.Text(), "a\r\nb\vc 😀");
    EXPECT_EQ(widget.document()->blockCount(), 2);
}

TEST_F(TextBoardFormTest, RefusesWhatIsNoRtfAndKeepsWhatItHad)
{
    widget.setText("kept");
    EXPECT_THROW(widget.setTextRTF("not this"), std::runtime_error);
    EXPECT_EQ(widget.Text(), "kept");
    widget.setTextRTF("");
    EXPECT_EQ(widget.Text(), "");
}

TEST_F(TextBoardFormTest, HoldsTenThousandLines)
{
    ASSERT_TRUE(shown);
    std::string lines;
    for (int n = 1; n < 10'000; ++n)
        lines += "line " + std::to_string(n) + "\r\n";
    widget.setText(lines + "last");
    EXPECT_EQ(widget.document()->blockCount(), 10'000);
    widget.selectAll();
    for (const char* command : {"bold", "grow"})
        board.text1_TB_ButtonClick(command);
    for (const char* command : {"bullets", "center"})
        board.text2_TB_ButtonClick(command);
    const panels::RichText text = contents();
    EXPECT_EQ(text.paragraphs.size(), 10'000U);
    EXPECT_TRUE(text.paragraphs.back().bullet);
    EXPECT_EQ(text.paragraphs.back().mark.size, base::Twips{605});
    key("ctrl+End");
    type("!");
    EXPECT_TRUE(widget.Text().ends_with("last!"));
}

TEST_F(TextBoardFormTest, PanelHasItsPartsInTheirPlaces)
{
    const std::pair<const char*, QRect> places[] = {
        {"text1_TB", {0, 0, 157, 33}},  {"text2_TB", {0, 32, 157, 33}}, {"Picture5", {3, 72, 17, 17}},
        {"Picture6", {24, 72, 17, 17}}, {"Picture7", {45, 72, 17, 17}}, {"Picture8", {66, 72, 17, 17}},
    };
    EXPECT_EQ(panel.size(), QSize(176, 93));
    for (const auto& [control, place] : places)
        EXPECT_EQ(panel.findChild<QWidget*>(control)->geometry(), place) << control;
}

TEST_F(TextBoardFormTest, PanelTellsTheKeysInOrderWithTheirToolTips)
{
    const std::pair<const char*, const char*> buttons[] = {
        {"text1_TB_bold", "Bold"},
        {"text1_TB_italic", "Italic"},
        {"text1_TB_under", "Underline"},
        {"text1_TB_grow", "Grow font"},
        {"text1_TB_shrink", "Shrink font"},
        {"text2_TB_bullets", "Bullets"},
        {"text2_TB_left", "Align text left"},
        {"text2_TB_center", "Center text"},
        {"text2_TB_right", "Align text right"},
        {"text2_TB_cut", "Cut"},
    };
    QStringList names;
    for (const char* toolbar : {"text1_TB", "text2_TB"})
        for (const auto* button : panel.findChild<QWidget*>(toolbar)->findChildren<QAbstractButton*>())
            names.append(button->objectName());
    ASSERT_EQ(names.size(), 10);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(names[i], buttons[i].first);
        const auto* button = panel.findChild<QAbstractButton*>(buttons[i].first);
        EXPECT_EQ(button->toolTip(), buttons[i].second);
        EXPECT_EQ(button->accessibleName(), buttons[i].second);
        EXPECT_FALSE(button->icon().pixmap(20, 20).isNull());
    }
}
