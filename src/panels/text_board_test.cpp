#include "panels/text_board.h"

#include "tests/support/fake_rich_text_control.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillora::panels {
namespace {

using Texts = std::vector<std::string>;

class TextBoardTest : public testing::Test {
  protected:
    tests::CallLog log{};
    tests::FakeRichTextControl control{log};
    TextBoard board{control};
};

struct Switch {
    int code;
    const char* name;
    std::optional<bool> tests::FakeRichTextControl::*value;
};

constexpr Switch kSwitches[] = {
    {0, "SelBold", &tests::FakeRichTextControl::bold},
    {1, "SelItalic", &tests::FakeRichTextControl::italic},
    {2, "SelUnderline", &tests::FakeRichTextControl::underline},
    {3, "SelBullet", &tests::FakeRichTextControl::bullet},
};

constexpr int kAlt = 4;

TEST_F(TextBoardTest, SwitchesBoldItalicUnderlineAndBullets)
{
    for (const Switch& each : kSwitches) {
        log.clear();
        board.ApplyTextFormat(each.code);
        EXPECT_EQ(control.*each.value, true);
        board.ApplyTextFormat(each.code);
        EXPECT_EQ(control.*each.value, false);
        EXPECT_EQ(log.calls, (Texts{each.name + std::string(" on"), each.name + std::string(" off")}));
    }
}

TEST_F(TextBoardTest, SwitchesAMixedSelectionOn)
{
    for (const Switch& each : kSwitches) {
        control.*each.value = std::nullopt;
        board.ApplyTextFormat(each.code);
        EXPECT_EQ(control.*each.value, true) << each.name;
    }
}

TEST_F(TextBoardTest, AlignsFromEveryAlignment)
{
    const std::optional<Alignment> left = Alignment::left;
    const std::optional<Alignment> right = Alignment::right;
    const std::optional<Alignment> centre = Alignment::centre;
    struct Row {
        int code;
        std::optional<Alignment> before;
        std::optional<Alignment> after;
        Texts written;
    };
    const Row rows[] = {
        {4, left, left, {}},
        {4, right, left, {"SelAlignment 0"}},
        {4, centre, left, {"SelAlignment 0"}},
        {4, std::nullopt, left, {"SelAlignment 0"}},
        {5, left, centre, {"SelAlignment 2"}},
        {5, right, centre, {"SelAlignment 2"}},
        {5, centre, left, {"SelAlignment 0"}},
        {5, std::nullopt, centre, {"SelAlignment 2"}},
        {6, left, right, {"SelAlignment 1"}},
        {6, centre, right, {"SelAlignment 1"}},
        {6, right, left, {"SelAlignment 0"}},
        {6, std::nullopt, right, {"SelAlignment 1"}},
    };
    for (const Row& row : rows) {
        control.alignment = row.before;
        log.clear();
        board.ApplyTextFormat(row.code);
        EXPECT_EQ(control.alignment, row.after) << row.code;
        EXPECT_EQ(log.calls, row.written) << row.code;
    }
}

TEST_F(TextBoardTest, CentreTwiceGivesLeft_AndRightAfterCentreGivesRight)
{
    board.text2_TB_ButtonClick("center");
    board.text2_TB_ButtonClick("center");
    EXPECT_EQ(control.alignment, Alignment::left);
    board.text2_TB_ButtonClick("center");
    board.text2_TB_ButtonClick("right");
    EXPECT_EQ(control.alignment, Alignment::right);
}

TEST_F(TextBoardTest, LeftOnLeftTextWritesNothing)
{
    board.text2_TB_ButtonClick("left");
    EXPECT_EQ(log.calls, Texts{});
}

TEST_F(TextBoardTest, DoesNothingForAnyOtherCode)
{
    for (const int code : {-1, 7, 100})
        board.ApplyTextFormat(code);
    EXPECT_EQ(log.calls, Texts{});
}

TEST_F(TextBoardTest, EachButtonHasItsCommand)
{
    board.text1_TB_ButtonClick("bold");
    board.text1_TB_ButtonClick("italic");
    board.text1_TB_ButtonClick("under");
    board.text1_TB_ButtonClick("grow");
    board.text1_TB_ButtonClick("shrink");
    board.text2_TB_ButtonClick("bullets");
    board.text2_TB_ButtonClick("center");
    board.text2_TB_ButtonClick("left");
    board.text2_TB_ButtonClick("right");
    board.text2_TB_ButtonClick("cut");
    EXPECT_EQ(log.calls, (Texts{"SelBold on", "SelItalic on", "SelUnderline on", "SelFontSize 121/4",
                                "SelFontSize 105/4", "SelBullet on", "SelAlignment 2", "SelAlignment 0",
                                "SelAlignment 1", "Text "}));
}

TEST_F(TextBoardTest, AToolbarKnowsItsOwnKeysOnly)
{
    for (const char* key : {"bullets", "left", "center", "right", "cut", "Bold", ""})
        board.text1_TB_ButtonClick(key);
    for (const char* key : {"bold", "italic", "under", "grow", "shrink", "centre", ""})
        board.text2_TB_ButtonClick(key);
    EXPECT_EQ(log.calls, Texts{});
}

TEST_F(TextBoardTest, GrowsAndShrinksByFourPointsWithNoLimitOfItsOwn)
{
    control.fontSize = 2.25;
    board.text1_TB_ButtonClick("shrink");
    EXPECT_EQ(control.fontSize, -1.75);
    control.fontSize = 5000;
    board.text1_TB_ButtonClick("grow");
    EXPECT_EQ(control.fontSize, 5004);
}

TEST_F(TextBoardTest, GrowOnAMixedSizeDoesNothing)
{
    control.fontSize = std::nullopt;
    board.text1_TB_ButtonClick("grow");
    board.text1_TB_ButtonClick("shrink");
    EXPECT_EQ(log.calls, Texts{});
}

TEST_F(TextBoardTest, CutTakesTheWholeBoard)
{
    control.text = "a whole board";
    board.text2_TB_ButtonClick("cut");
    EXPECT_EQ(control.text, "");
    EXPECT_EQ(log.calls, Texts{"Text "});
}

TEST_F(TextBoardTest, ASwatchSetsItsColour)
{
    const base::Colour swatches[] = {base::rgb(0, 0, 0), base::rgb(0, 0, 192), base::rgb(0, 192, 0),
                                     base::rgb(255, 0, 0)};
    for (const base::Colour each : swatches) {
        board.Swatch_Click(each);
        EXPECT_EQ(control.colour, each);
    }
}

TEST_F(TextBoardTest, FormatsByLettersWithAltAlone)
{
    const std::pair<int, const char*> keys[] = {{66, "SelBold on"},
                                                {73, "SelItalic on"},
                                                {85, "SelUnderline on"},
                                                {67, "SelAlignment 2"},
                                                {82, "SelAlignment 1"}};
    for (const auto& [key, written] : keys) {
        log.clear();
        board.textBoard_txt_KeyDown(key, kAlt);
        EXPECT_EQ(log.calls, Texts{written}) << key;
        log.clear();
        for (const int shift : {0, 1, 2, 3, 5, 6, 7})
            board.textBoard_txt_KeyDown(key, shift);
        EXPECT_EQ(log.calls, Texts{}) << key;
    }
}

TEST_F(TextBoardTest, OtherKeysWithAltDoNothing)
{
    for (int key = 0; key < 256; ++key) {
        if (std::string("BIUCR").find(static_cast<char>(key)) == std::string::npos || key == 0)
            board.textBoard_txt_KeyDown(key, kAlt);
    }
    EXPECT_EQ(log.calls, Texts{});
}

TEST_F(TextBoardTest, SaysNothingOfWhatTheControlRefuses)
{
    control.failing.names = {"Text",      "SelColor",     "SelFontSize",  "SelBold",
                             "SelItalic", "SelUnderline", "SelAlignment", "SelBullet"};
    for (const char* key : {"bold", "italic", "under", "grow", "shrink"})
        EXPECT_NO_THROW(board.text1_TB_ButtonClick(key)) << key;
    for (const char* key : {"bullets", "left", "center", "right", "cut"})
        EXPECT_NO_THROW(board.text2_TB_ButtonClick(key)) << key;
    EXPECT_NO_THROW(board.Swatch_Click(base::rgb(255, 0, 0)));
    for (const int key : {66, 73, 85, 67, 82})
        EXPECT_NO_THROW(board.textBoard_txt_KeyDown(key, kAlt)) << key;
}

TEST_F(TextBoardTest, PassesTextAndRtfStraightThrough)
{
    board.setText("plain");
    board.setTextRTF("{\\rtf1}");
    EXPECT_EQ(control.text, "plain");
    EXPECT_EQ(control.rtf, "{\\rtf1}");
    EXPECT_EQ(board.Text(), "plain");
    EXPECT_EQ(board.TextRTF(), "{\\rtf1}");
    control.failing.names = {"Text", "TextRTF"};
    EXPECT_THROW(board.setText(""), std::runtime_error);
    EXPECT_THROW(board.setTextRTF(""), std::runtime_error);
}

TEST_F(TextBoardTest, ReadsTextThenRtf)
{
    board.ReadProperties({{"TextRTF", "{\\rtf1 b}"}, {"Text", "a"}, {"Other", "c"}});
    EXPECT_EQ(log.calls, (Texts{"Text a", "TextRTF {\\rtf1 b}"}));
}

TEST_F(TextBoardTest, ReadsWhatIsMissingAsEmpty)
{
    board.ReadProperties({});
    EXPECT_EQ(log.calls, (Texts{"Text ", "TextRTF "}));
    log.clear();
    board.ReadProperties({{"Text", "a"}});
    EXPECT_EQ(log.calls, (Texts{"Text a", "TextRTF "}));
}

TEST_F(TextBoardTest, WritesBothProperties)
{
    control.text = "a";
    control.rtf = "{\\rtf1 a}";
    PropertySet properties{{"Text", "old"}, {"Other", "kept"}};
    board.WriteProperties(properties);
    EXPECT_EQ(properties, (PropertySet{{"Text", "a"}, {"TextRTF", "{\\rtf1 a}"}, {"Other", "kept"}}));
}

} // namespace
} // namespace quillora::panels
