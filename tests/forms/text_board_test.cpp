#include "tests/forms/form_fixture.h"

#include "app/text_board_parts.h"
#include "forms/text_board_widget.h"
#include "forms/text_panel.h"
#include "panels/rtf_reader.h"
#include "panels/text_board.h"
#include "tests/support/file_contents.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextList>

#include <stdexcept>

using namespace quillora;
using forms::TextBoardWidget;
using panels::Alignment;
using tests::X11Probe;

namespace {

/// The board and its panel in a window of their own, with the commands behind them.
class TextBoardFormTest : public testing::Test {
  protected:
    TextBoardFormTest()
    {
        window.resize(960, 440);
        widget.setGeometry(0, 0, 747, 420);
        panel.move(760, 10);
        window.show();
        shown = tests::waitUntil([&] {
            window.activateWindow();
            return window.isActiveWindow();
        });
        tests::settle(100);
        widget.setFocus();
    }

    void type(const std::string& text)
    {
        EXPECT_EQ(tests::runToEnd({"xdotool", "type", text}), 0);
        settle();
    }
    void key(const std::string& keys)
    {
        EXPECT_EQ(tests::runToEnd({"xdotool", "key", keys}), 0);
        settle();
    }
    static void settle() { tests::settle(80); }
    void click(const char* control)
    {
        auto* button = window.findChild<QAbstractButton*>(control);
        ASSERT_NE(button, nullptr) << control;
        const QPoint at = button->mapToGlobal(button->rect().center());
        EXPECT_EQ(tests::runToEnd(
                      {"xdotool", "mousemove", std::to_string(at.x()), std::to_string(at.y()), "click", "1"}),
                  0);
        settle();
    }
    void select(int from, int to)
    {
        QTextCursor cursor = widget.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        widget.setTextCursor(cursor);
    }
    void paste(const std::vector<std::pair<const char*, QByteArray>>& formats)
    {
        auto* data = new QMimeData;
        for (const auto& [type, contents] : formats)
            data->setData(type, contents);
        QApplication::clipboard()->setMimeData(data);
        widget.paste();
    }
    panels::RichText contents() const { return panels::readRtf(widget.TextRTF()); }
    QImage grab() { return probe.grab(QRect(widget.mapToGlobal(QPoint()), widget.size())); }

    QWidget window;
    TextBoardWidget widget{&window};
    forms::TextPanel panel{&window};
    app::TextBoardParts parts{widget, panel};
    panels::TextBoard& board = parts.logic();
    X11Probe probe;
    bool shown = false;
};

} // namespace

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

TEST_F(TextBoardFormTest, CutTakesEverythingAndTheLookButNotTheClipboard)
{
    ASSERT_TRUE(shown);
    QApplication::clipboard()->setText("kept");
    widget.setTextRTF("{\\rtf1\\qc\\b{\\pntext\\bullet}one two\\par three}");
    select(0, 3);
    click("text2_TB_cut");
    EXPECT_EQ(contents(), panels::RichText());
    EXPECT_EQ(widget.SelBold(), false);
    EXPECT_EQ(widget.SelBullet(), false);
    EXPECT_EQ(widget.SelAlignment(), Alignment::left);
    EXPECT_EQ(QApplication::clipboard()->text(), "kept");
}

TEST_F(TextBoardFormTest, CutCanBeTakenBack)
{
    ASSERT_TRUE(shown);
    widget.setTextRTF("{\\rtf1\\qc\\b{\\pntext\\bullet\\tab}one two\\par\\pard\\plain three}");
    const panels::RichText before = contents();
    click("text2_TB_cut");
    ASSERT_EQ(widget.Text(), "");
    key("ctrl+z");
    const panels::RichText after = contents();
    ASSERT_EQ(after.paragraphs.size(), before.paragraphs.size());
    for (std::size_t i = 0; i < before.paragraphs.size(); ++i) {
        EXPECT_EQ(after.paragraphs[i].runs, before.paragraphs[i].runs);
        EXPECT_EQ(after.paragraphs[i].alignment, before.paragraphs[i].alignment);
        EXPECT_EQ(after.paragraphs[i].bullet, before.paragraphs[i].bullet);
    }
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

TEST_F(TextBoardFormTest, PastesOfRtfWhatItCanHold)
{
    paste({{"text/plain", "plain"},
           {"text/html", "<i>html</i>"},
           {"text/rtf", "{\\rtf1\\fs40\\b\\strike\\highlight3 a{\\pict 00ff}\\super b\\par\\qr c\\par}"}});
    const panels::RichText text = contents();
    EXPECT_EQ(panels::plainText(text), "ab\r\nc");
    EXPECT_EQ(text.paragraphs[0].runs[0].format.size, base::Twips{400});
    EXPECT_EQ(text.paragraphs[1].alignment, Alignment::right);
    const QTextCharFormat format = widget.document()->firstBlock().begin().fragment().charFormat();
    EXPECT_FALSE(format.fontStrikeOut());
    EXPECT_EQ(format.background().style(), Qt::NoBrush);
    EXPECT_EQ(format.verticalAlignment(), QTextCharFormat::AlignNormal);
}

TEST_F(TextBoardFormTest, PastesOfHtmlWhatItCanHold)
{
    paste(
        {{"text/plain", "plain"},
         {"text/html",
          "<style>@import url('file:///etc/passwd');</style><h1>Head</h1><p align=center>a<b>b</b>"
          "<span style='font-size:20px;color:#ff0000;background:#00ff00'>c</span><a href='http://x'>d</a></p>"
          "<ul><li>e</li></ul><ol><li>f<li>g</ol><table border=1><tr><td>h<td>i</table>"
          "<img src='file:///etc/hostname'><script>j</script><div style='color:white'>k</div>"}});
    const panels::RichText text = contents();
    EXPECT_EQ(panels::plainText(text), "Head\r\nabcd\r\ne\r\n1.\tf\r\n2.\tg\r\nh\r\ni\r\n\r\nk");
    EXPECT_EQ(text.paragraphs[1].alignment, Alignment::centre);
    EXPECT_TRUE(text.paragraphs[1].runs[1].format.bold);
    EXPECT_EQ(text.paragraphs[1].runs[2].format.size, base::Twips{300});
    EXPECT_EQ(text.paragraphs[1].runs[2].format.colour, base::rgb(255, 0, 0));
    EXPECT_TRUE(text.paragraphs[2].bullet);
    EXPECT_FALSE(text.paragraphs[3].bullet);
    for (QTextBlock block = widget.document()->begin(); block.isValid(); block = block.next())
        EXPECT_FALSE(block.text().contains(QChar::ObjectReplacementCharacter));
}

TEST_F(TextBoardFormTest, PastesPlainTextInTheLookThatIsThere)
{
    widget.setTextRTF("{\\rtf1\\fs80\\b{\\pntext\\bullet\\tab}ab\\par}");
    select(1, 1);
    paste({{"text/plain", "1\n2"}});
    const panels::RichText text = contents();
    EXPECT_EQ(panels::plainText(text), "a1\r\n2b");
    EXPECT_TRUE(text.paragraphs[0].bullet);
    EXPECT_EQ(text.paragraphs[0].runs.size(), 1U);
    EXPECT_EQ(text.paragraphs[1].runs.front().format.size, base::Twips{800});
}

TEST_F(TextBoardFormTest, AWordPastedIntoAnEmptyBulletStaysInIt)
{
    board.text2_TB_ButtonClick("bullets");
    paste({{"text/plain", "word"}});
    EXPECT_TRUE(contents().paragraphs.front().bullet);
    board.text2_TB_ButtonClick("cut");
    board.text2_TB_ButtonClick("bullets");
    paste({{"text/rtf", "{\\rtf1 word}"}});
    EXPECT_TRUE(contents().paragraphs.front().bullet);
}

TEST_F(TextBoardFormTest, PastesNothingOfPicturesAndFiles)
{
    widget.setText("kept");
    auto* picture = new QMimeData;
    picture->setImageData(tests::plainPicture({10, 10}, Qt::red));
    QApplication::clipboard()->setMimeData(picture);
    widget.paste();
    auto* file = new QMimeData;
    file->setUrls({QUrl("file:///etc/passwd")});
    QApplication::clipboard()->setMimeData(file);
    widget.paste();
    EXPECT_EQ(widget.Text(), "kept");
}

TEST_F(TextBoardFormTest, TakesTheNextFormatWhereOneIsDamaged)
{
    paste({{"text/rtf", "no rtf"}, {"text/html", "<b>html</b>"}, {"text/plain", "plain"}});
    EXPECT_EQ(widget.Text(), "html");
    board.text2_TB_ButtonClick("cut");
    paste({{"text/rtf", "{\\rtf1{\\pict 00}}"}, {"text/plain", "plain"}});
    EXPECT_EQ(widget.Text(), "plain");
    board.text2_TB_ButtonClick("cut");
    for (const char* element : {"<b>", "< b>"}) {
        paste({{"text/html", QByteArray(element).repeated(29'000) + "deep"}, {"text/plain", "plain"}});
        EXPECT_EQ(widget.Text(), "plain");
        board.text2_TB_ButtonClick("cut");
    }
    paste({{"text/html", QByteArray("<table><tr><td>").repeated(6'000) + "deep"}, {"text/plain", "plain"}});
    EXPECT_EQ(widget.Text(), "plain");
    board.text2_TB_ButtonClick("cut");
    paste({{"text/html", QByteArray("<p>many").repeated(40'000)}, {"text/plain", "plain"}});
    EXPECT_EQ(widget.Text(), "plain");
}

TEST_F(TextBoardFormTest, TakesAStyleSheetButNotOneThatWouldHoldTheWindowUp)
{
    const QByteArray many = QByteArray("<p>many").repeated(29'000);
    const QByteArray slow[] = {
        "<style>" + QByteArray(".a{}").repeated(200'000) + "</style>" + many,
        "<style>" + QByteArray(".a,").repeated(200'000) + "b{}</style>" + many,
        "<STYLE>p" + QByteArray(".a").repeated(100'000) + "{}</STYLE>" + many,
        "< style></p>" + QByteArray(".a{}").repeated(200'000) + "</style>" + many,
        "<style><!-- </style> -->" + QByteArray(".a{}").repeated(200'000) + "</style>" + many,
        "<style>" + QByteArray(".a{}").repeated(1000) + "</style><p class='" +
            QByteArray("b ").repeated(300'000) + "'>many",
    };
    for (const QByteArray& html : slow) {
        paste({{"text/html", html}, {"text/plain", "plain"}});
        EXPECT_EQ(widget.Text(), "plain");
        board.text2_TB_ButtonClick("cut");
    }
    paste({{"text/html", "<style>" + QByteArray(".a{font-weight:bold}").repeated(100) + "</style>" +
                             QByteArray("<p class=a>x").repeated(1000)},
           {"text/plain", "plain"}});
    EXPECT_TRUE(widget.Text().starts_with("x\r\nx"));
    EXPECT_TRUE(contents().paragraphs[0].runs[0].format.bold);
}

TEST_F(TextBoardFormTest, CopiesAsRtfAndAsText)
{
    widget.setTextRTF("{\\rtf1 a\\b b\\line c\\par\\qc d}");
    widget.selectAll();
    widget.copy();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->text(), "ab\nc\nd");
    const panels::RichText copied = panels::readRtf(data->data("text/rtf").toStdString());
    EXPECT_EQ(panels::plainText(copied), "ab\vc\r\nd");
    EXPECT_TRUE(copied.paragraphs[0].runs[1].format.bold);
    EXPECT_EQ(copied.paragraphs[1].alignment, Alignment::centre);
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

TEST_F(TextBoardFormTest, TakesOfAVeryLargePasteWhatItCan)
{
    ASSERT_TRUE(shown);
    const QByteArray line = "all the words of a line that is neither long nor short\n";
    paste({{"text/plain", line.repeated(10'000'000 / int(line.size()))}});
    const std::string text = widget.Text();
    EXPECT_GT(text.size(), 900'000U);
    EXPECT_LT(text.size(), 1'100'000U);
    type("x");
    EXPECT_EQ(widget.Text().size(), text.size() + 1);
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
