#include "tests/forms/text_board_fixture.h"

#include <QTextBlock>
#include <QTextList>

using namespace quillora;
using panels::Alignment;

namespace {

/// What is cut, copied and pasted.
using TextBoardClipboardTest = tests::TextBoardFormTest;

} // namespace

TEST_F(TextBoardClipboardTest, CutTakesEverythingAndTheLookButNotTheClipboard)
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

TEST_F(TextBoardClipboardTest, CutCanBeTakenBack)
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

TEST_F(TextBoardClipboardTest, PastesOfRtfWhatItCanHold)
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

TEST_F(TextBoardClipboardTest, PastesOfHtmlWhatItCanHold)
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

TEST_F(TextBoardClipboardTest, PastesPlainTextInTheLookThatIsThere)
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

TEST_F(TextBoardClipboardTest, AWordPastedIntoAnEmptyBulletStaysInIt)
{
    board.text2_TB_ButtonClick("bullets");
    paste({{"text/plain", "word"}});
    EXPECT_TRUE(contents().paragraphs.front().bullet);
    board.text2_TB_ButtonClick("cut");
    board.text2_TB_ButtonClick("bullets");
    paste({{"text/rtf", "{\\rtf1 word}"}});
    EXPECT_TRUE(contents().paragraphs.front().bullet);
}

TEST_F(TextBoardClipboardTest, PastesNothingOfPicturesAndFiles)
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

TEST_F(TextBoardClipboardTest, TakesTheNextFormatWhereOneIsDamaged)
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

TEST_F(TextBoardClipboardTest, TakesAStyleSheetButNotOneThatWouldHoldTheWindowUp)
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

TEST_F(TextBoardClipboardTest, CopiesAsRtfAndAsText)
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

TEST_F(TextBoardClipboardTest, TakesOfAVeryLargePasteWhatItCan)
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
