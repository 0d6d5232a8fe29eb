#include "panels/rtf_reader.h"

#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace quillora::panels {
namespace {

using base::rgb;
using std::string_literals::operator""s;

/// What stands between the head and the end of a stream.
RichText read(const std::string& body, const RtfLimits& limits = {})
{
    return readRtf("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
                   "{\\f1\\fswiss\\fcharset0 Arial;}{\\f2\\fnil\\fcharset238 Arial CE;}"
                   "{\\f3\\fnil\\fcharset2 Symbol;}{\\f4\\fnil\\fcharset128 MS Mincho;}"
                   "{\\f5\\fnil\\fcharset204 Arial Cyr;}}"
                   "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue192;}" +
                       body + "}",
                   limits);
}

std::string textOf(const std::string& body, const RtfLimits& limits = {})
{
    return plainText(read(body, limits));
}

const Paragraph& only(const RichText& text)
{
    EXPECT_EQ(text.paragraphs.size(), 1U);
    return text.paragraphs.front();
}

/// The look of the only run of what the body says.
CharacterFormat lookOf(const std::string& body)
{
    const RichText text = read(body);
    EXPECT_EQ(only(text).runs.size(), 1U) << body;
    return only(text).runs.empty() ? CharacterFormat{} : only(text).runs.front().format;
}

/// Everything in one line: paragraphs as [c* text], with the marks of the formats that each run has.
std::string outline(const RichText& text)
{
    std::string lines;
    for (const Paragraph& paragraph : text.paragraphs) {
        lines += "[";
        lines += std::string("lrc")[static_cast<std::size_t>(paragraph.alignment)];
        lines += paragraph.bullet ? "* " : " ";
        for (const TextRun& run : paragraph.runs) {
            const CharacterFormat& format = run.format;
            const std::string marks = std::string(format.bold ? "b" : "") + (format.italic ? "i" : "") +
                                      (format.underline ? "u" : "");
            lines += marks.empty() ? run.text : "<" + marks + ":" + run.text + ">";
        }
        lines += "]";
    }
    return lines;
}

TEST(RtfReader, KnowsRtfByItsBegin)
{
    EXPECT_TRUE(isRtf("{\\rtf1 }"));
    EXPECT_TRUE(isRtf("\xEF\xBB\xBF \r\n{\\rtf}"));
    for (const char* other : {"", "{", "rtf", "<html>", "{\\urtf1}", "plain {\\rtf1}"}) {
        EXPECT_FALSE(isRtf(other)) << other;
        EXPECT_THROW(readRtf(other), std::runtime_error) << other;
    }
}

TEST(RtfReader, ReadsTextInParagraphs)
{
    EXPECT_EQ(textOf("one\\par two\\par"), "one\r\ntwo");
    EXPECT_EQ(textOf("one\\par two"), "one\r\ntwo");
    EXPECT_EQ(textOf("one\\par\\par two\\par\\par"), "one\r\n\r\ntwo\r\n");
    EXPECT_EQ(textOf(""), "");
    EXPECT_EQ(textOf("one\\\ntwo\\\r\nthree"), "one\r\ntwo\r\nthree");
}

TEST(RtfReader, PassesOverLineEndsOfTheStreamItself)
{
    EXPECT_EQ(textOf("one \r\ntwo\nthree\\b\r\n0"), "one twothree0");
}

TEST(RtfReader, ReadsTheFormatsOfCharacters)
{
    EXPECT_EQ(outline(read("a\\b b\\i c\\b0 d\\i0\\ul e\\ulnone f\\uldb g\\ul0 h")),
              "[l a<b:b><bi:c><i:d><u:e>f<u:g>h]");
    EXPECT_EQ(outline(read("\\b\\i\\ul a\\plain b")), "[l <biu:a>b]");
    EXPECT_EQ(outline(read("a{\\b b{\\i c}d}e")), "[l a<b:b><bi:c><b:d>e]");
}

TEST(RtfReader, ReadsFontSizeAndColour)
{
    EXPECT_EQ(lookOf("\\f1\\fs53\\cf2 x"),
              (CharacterFormat{.font = "Arial", .size = {530}, .colour = rgb(0, 0, 192)}));
    EXPECT_EQ(lookOf("x"), (CharacterFormat{.font = "Times New Roman", .size = {240}}));
    EXPECT_EQ(lookOf("\\fs53\\quilloratwips525 x").size, base::Twips{525});
    EXPECT_EQ(lookOf("\\quilloratwips525\\fs40 x").size, base::Twips{400});
    EXPECT_EQ(lookOf("\\cf1\\cf0 x").colour, rgb(0, 0, 0));
    EXPECT_EQ(lookOf("\\cf77 x").colour, rgb(0, 0, 0));
    EXPECT_EQ(lookOf("\\cf-1 x").colour, rgb(0, 0, 0));
    EXPECT_EQ(lookOf("\\f99 x").font, "Times New Roman");
}

TEST(RtfReader, KeepsSizesWithinWhatTheBoardTakes)
{
    EXPECT_EQ(lookOf("\\fs0 x").size, kSmallestFontSize);
    EXPECT_EQ(lookOf("\\fs-10 x").size, kSmallestFontSize);
    EXPECT_EQ(lookOf("\\fs99999999999 x").size, kLargestFontSize);
}

TEST(RtfReader, ReadsFontTablesOfEveryShape)
{
    const auto font = [](const std::string& table) {
        const RichText text = readRtf("{\\rtf1\\ansi\\deff1{\\fonttbl" + table + "}x}");
        return text.paragraphs.front().runs.front().format.font;
    };
    EXPECT_EQ(font("{\\f1\\fnil Arial;}"), "Arial");
    EXPECT_EQ(font("{\\f1\\fnil Arial}"), "Arial");
    EXPECT_EQ(font("\\f0\\fnil Courier;\\f1\\fnil  Arial ;"), "Arial");
    EXPECT_EQ(font("{\\f1{\\*\\panose 020b0604020202020204}Arial{\\*\\falt Helvetica};}"), "Arial");
    EXPECT_EQ(font("{\\f1\\fcharset204 \\'d8\\'f0\\'e8\\'f4\\'f2;}"), "Шрифт");
    EXPECT_EQ(font("{\\f1\\fcharset0 \\u28450?\\u23383?;}"), "漢字");
    EXPECT_EQ(font("{\\f1;}"), "Times New Roman");
}

TEST(RtfReader, ReadsAlignment)
{
    EXPECT_EQ(outline(read("\\qc a\\par b\\par\\pard\\qr c\\par\\ql d\\par\\qc\\qj e")),
              "[c a][c b][r c][l d][l e]");
    EXPECT_EQ(outline(read("{\\pard\\qr a\\par}\\qc b\\par")), "[r a][c b]");
}

TEST(RtfReader, GivesTheLastParagraphItsLookEvenWhereItIsNotEnded)
{
    const RichText text = read("a\\par\\qr\\b\\fs60 b");
    EXPECT_EQ(outline(text), "[l a][r <b:b>]");
    EXPECT_EQ(text.paragraphs.back().mark, text.paragraphs.back().runs.back().format);
}

TEST(RtfReader, ReadsSpecialCharacters)
{
    EXPECT_EQ(textOf("a\\tab b\\line c\\~d\\_e\\-f\\{\\}\\\\"), "a\tb\vc\u00A0d\u2011e\u00ADf{}\\");
    EXPECT_EQ(textOf("\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\endash\\emdash"),
              "\u2018\u2019\u201C\u201D\u2022\u2013\u2014");
    EXPECT_EQ(textOf("a\tb"), "a\tb");
    EXPECT_EQ(textOf("a\\b\x01\x02\x7F-b"), "a-b");
}

TEST(RtfReader, ReadsUnicodeAndPassesOverItsFallback)
{
    EXPECT_EQ(textOf("\\u8364?x"), "€x");
    EXPECT_EQ(textOf("\\u8364\\'80x"), "€x");
    EXPECT_EQ(textOf("\\uc2\\u8364ab\\u8364\\'80cd"), "€€d");
    EXPECT_EQ(textOf("\\uc0\\u8364 x"), "€x");
    EXPECT_EQ(textOf("\\u-4051?"), "\uF02D");
    EXPECT_EQ(textOf("\\u8211\\endash x"), "–x");
    EXPECT_EQ(textOf("\\u8364 \\bin3 abcx"), "€x");
}

TEST(RtfReader, EndsAFallbackAtAGroupsEdgeAndAtWhatIsNoCharacter)
{
    EXPECT_EQ(textOf("{\\uc3\\u8364?}x"), "€x");
    EXPECT_EQ(textOf("\\u8364{x}"), "€x");
    EXPECT_EQ(textOf("\\uc1{\\uc0\\u8364}\\u8364?x"), "€€x");
    EXPECT_EQ(textOf("\\u8364\\par x"), "€\r\nx");
    EXPECT_EQ(textOf("\\u1046\\u1047?"), "ЖЗ");
    EXPECT_EQ(textOf("\\uc99999999\\u8364 all of it"), "€");
}

TEST(RtfReader, JoinsSurrogates)
{
    EXPECT_EQ(textOf("\\u-10179?\\u-8704?"), "😀");
    EXPECT_EQ(textOf("\\u55357\\'3f\\u56832\\'3f"), "😀");
    EXPECT_EQ(textOf("\\uc0\\u55357\\u56832"), "😀");
    EXPECT_EQ(textOf("\\u55357?x"), "\uFFFDx");
    EXPECT_EQ(textOf("\\u56832?x"), "\uFFFDx");
    EXPECT_EQ(textOf("\\u55357?\\u55357?\\u56832?"), "\uFFFD😀");
}

TEST(RtfReader, LeavesOutWhatTheBoardCannotHold)
{
    EXPECT_EQ(textOf("a\\u0?\\u1?\\u-4?\\u-560?\\u-2?b"), "ab");
    EXPECT_EQ(textOf("a\\u8233?b"), "a\r\nb");
}

TEST(RtfReader, ReadsBytesInThePageOfTheirFont)
{
    EXPECT_EQ(textOf("\\'e9\\f2\\'b3\\f5\\'cf\\'f0\\f0\\'e9"), "éłПрé");
    EXPECT_EQ(textOf("{\\f2\\'b3}\\'b3"), "ł³");
    EXPECT_EQ(textOf("\\f2\\'b3\\plain\\'b3"), "ł³");
    EXPECT_EQ(textOf("\xE9"), "é");
}

TEST(RtfReader, ReadsBytesInThePageOfTheDocument)
{
    const auto text = [](const std::string& head) {
        return plainText(readRtf("{\\rtf1" + head + "{\\fonttbl{\\f0\\fnil Arial;}}\\f0\\'e6\\'80}"));
    };
    EXPECT_EQ(text("\\ansi"), "æ€");
    EXPECT_EQ(text("\\ansi\\ansicpg1251"), "жЂ");
    EXPECT_EQ(text("\\ansi\\ansicpg1250"), "ć€");
    EXPECT_EQ(text("\\pc"), "µÇ");
    EXPECT_EQ(text("\\pca"), "µÇ");
    EXPECT_EQ(text("\\mac"), "ÊÄ");
    EXPECT_EQ(text("\\ansi\\ansicpg77777"), "æ€");
}

TEST(RtfReader, ReadsUtf8WhereTheDocumentSaysSo)
{
    EXPECT_EQ(plainText(readRtf("{\\rtf1\\ansi\\ansicpg65001 a\xE6\xBC\xA2\\'f0\\'9f\\'98\\'80z}")), "a漢😀z");
}

TEST(RtfReader, TakesTheBytesOfADoubleBytePageInPairs)
{
    EXPECT_EQ(textOf("\\f4\\'8a\\'bf\\'8e\\'9a!\\'b1"), "\uFFFD\uFFFD!\uFF71");
    // The second byte of a pair may look like a letter, a backslash or a brace.
    EXPECT_EQ(textOf("\\f4\\'83\\'5c\\'83\\'7bx"), "\uFFFD\uFFFDx");
    EXPECT_EQ(textOf("\\f4\\u28450\\'8a\\f0 x"), "漢x");
}

TEST(RtfReader, PassesOverWhatIsNoText)
{
    EXPECT_EQ(textOf("a{\\*\\unknown b{c}\\par}d"), "ad");
    EXPECT_EQ(textOf("a{\\*\\b b}d"), "ad");
    EXPECT_EQ(textOf("a{\\pict\\pngblip 89504e47}d"), "ad");
    EXPECT_EQ(textOf("a{\\pict\\wmetafile8\\bin5 {{}}}}d"), "ad");
    EXPECT_EQ(textOf("a{\\*\\shppict{\\pict 00}}{\\nonshppict{\\pict 00}}d"), "ad");
    EXPECT_EQ(textOf("a{\\stylesheet{\\s1 Heading 1;}}{\\info{\\title T}{\\author A}}d"), "ad");
    EXPECT_EQ(textOf("a{\\header h}{\\footnote n}{\\xe entry}d"), "ad");
    EXPECT_EQ(textOf("a{\\object{\\*\\objdata 0123}{\\result shown}}d"), "ashownd");
    EXPECT_EQ(textOf("a{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}}d"), "alinkd");
    EXPECT_EQ(textOf("a{\\field{\\fldinst PAGE}{\\fldrslt 3}}d"), "a3d");
    EXPECT_EQ(textOf("a{\\v hidden}\\deleted x\\deleted0 d"), "ad");
    EXPECT_EQ(textOf("a\\unknown99 d"), "ad");
    EXPECT_EQ(textOf("{\\stylesheet{\\fonttbl{\\f9 x;}}b}d"), "d");
}

TEST(RtfReader, TakesTheUnicodeHalfOfATextThatIsThereTwice)
{
    EXPECT_EQ(textOf("a{\\upr{?}{\\*\\ud{\\u28450?}}}d"), "a漢d");
}

TEST(RtfReader, ReadsTheOldListsWithBullets)
{
    EXPECT_EQ(outline(read("\\pard{\\pntext\\f3\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf3\\pnindent0{\\pntxtb\\'b7}}"
                           "\\fi-720\\li720 one\\par{\\pntext\\f3\\'b7\\tab}two\\par\\pard three\\par")),
              "[l* one][l* two][l three]");
    EXPECT_EQ(outline(read("\\pard{\\*\\pn\\pnlvlblt}one\\par\\pard two")), "[l* one][l two]");
}

TEST(RtfReader, ReadsTheNewListsByTheirMarker)
{
    const std::string head = "\\pard\\plain{\\listtext\\pard\\plain ";
    EXPECT_EQ(outline(read(head + "\\u8226\\'95\\tab}\\ilvl0\\ls1 one\\par\\pard two")), "[l* one][l two]");
    EXPECT_EQ(outline(read(head + "\\f3\\'b7\\tab}\\pard\\ls1{one\\par}\\pard two")), "[l* one][l two]");
    EXPECT_EQ(outline(read("{\\*\\listtext o\\tab}one")), "[l* one]");
    EXPECT_EQ(outline(read("{\\listtext -\\tab}")), "[l* ]");
}

TEST(RtfReader, KeepsTheNumbersOfAListAsText)
{
    EXPECT_EQ(textOf("{\\listtext 1.\\tab}one\\par{\\listtext\\pard a)\\tab}two\\par three"),
              "1.\tone\r\na)\ttwo\r\nthree");
    EXPECT_EQ(textOf("{\\pntext 1\\tab}{\\*\\pn\\pnlvlbody\\pndec}one\\par"), "1\tone");
}

TEST(RtfReader, MakesATablesRowsParagraphs)
{
    EXPECT_EQ(textOf("\\trowd\\intbl a\\cell b\\cell\\row\\intbl c\\cell d\\cell\\row\\pard e"),
              "a\tb\t\r\nc\td\t\r\ne");
}

TEST(RtfReader, ReadsADamagedStreamAsFarAsItGoes)
{
    for (const char* tail : {"", "\\", "\\'", "\\b", "\\u", "\\u-", "\\bin99 x", "{", "{\\*", "{\\*\\"})
        EXPECT_EQ(plainText(readRtf("{\\rtf1 abc"s + tail)), "abc") << tail;
    EXPECT_EQ(plainText(readRtf("{\\rtf1 a\\'zzb}")), "azzb");
    EXPECT_EQ(plainText(readRtf("{\\rtf1 a}}}}b")), "a");
    EXPECT_EQ(plainText(readRtf("{\\rtf1 a\\b99999999999999999999 b\\fs-99999999999999999999 c}")), "abc");
    EXPECT_EQ(plainText(readRtf("{\\rtf1 a\\bin-5 b}")), "ab");
    EXPECT_EQ(plainText(readRtf("{\\rtf1 ab\0\0}"s)), "ab");
}

TEST(RtfReader, LeavesOutWhatIsNestedTooDeep)
{
    const std::size_t many = 100'000;
    EXPECT_EQ(textOf("a" + std::string(many, '{') + "b" + std::string(many, '}') + "c"), "ac");
    EXPECT_EQ(textOf("a" + std::string(many, '{') + "b"), "a");
    EXPECT_EQ(textOf("a{b{c{d}e}f}g", {.depth = 3}), "abcefg");
}

TEST(RtfReader, StopsAtTheLimitOfCharacters)
{
    EXPECT_EQ(textOf("abcdef", {.characters = 3}), "abc");
    EXPECT_EQ(textOf("a\\par b\\par c", {.characters = 3}), "a\r\nb");
    EXPECT_EQ(textOf("abc", {.characters = 0}), "");
}

TEST(RtfReader, BoundsItsTables)
{
    std::string head = "{\\rtf1{\\fonttbl";
    for (int n = 0; n < 20; ++n)
        head += "{\\f" + std::to_string(n) + " Font" + std::to_string(n) + ";}";
    head += "}{\\colortbl" + std::string(1000, ';') + "}\\f15 x}";
    EXPECT_EQ(readRtf(head, {.tableEntries = 10}).paragraphs.front().runs.front().format.font,
              "Times New Roman");
    EXPECT_EQ(readRtf(head).paragraphs.front().runs.front().format.font, "Font15");
    const RichText text = readRtf("{\\rtf1{\\fonttbl{\\f0 " + std::string(100'000, 'x') + ";}}y}");
    EXPECT_EQ(text.paragraphs.front().runs.front().format.font, std::string(128, 'x'));
}

TEST(RtfReader, ReadsWhatAnOfficeProgramWrites)
{
    const RichText text = readRtf(tests::readFile(QUILLORA_RTF_SAMPLES "/formats.rtf"));
    EXPECT_EQ(
        outline(text),
        "[c <b:Heat and work>][l Plain, <b:bold>, <i:italic>, <u:underlined>, red and mono.][r to the right]"
        "[l* first point][l* second <b:point>][l 1.\tone][l 2.\ttwo]"
        "[l Ω ≈ 3,14 – “quoted” €, Żółć, Привет, 漢字, 😀 end][l line one\u2028line two]"
        "[l a\tb\t][l c\td\t][l see <u:a link>.]");
    const TextRun& heading = text.paragraphs[0].runs[0];
    EXPECT_EQ(heading.format.font, "Arial");
    EXPECT_EQ(heading.format.size, base::Twips{400});
    EXPECT_EQ(heading.format.colour, rgb(0, 0, 192));
    const auto& runs = text.paragraphs[1].runs;
    const auto red = std::ranges::find(runs, std::string("red"), &TextRun::text);
    ASSERT_NE(red, runs.end());
    EXPECT_EQ(red->format.colour, rgb(255, 0, 0));
    const auto mono = std::ranges::find(runs, std::string("mono"), &TextRun::text);
    ASSERT_NE(mono, runs.end());
    EXPECT_EQ(mono->format.font, "Courier New");
    EXPECT_EQ(mono->format.size, base::Twips{280});
}

} // namespace
} // namespace quillora::panels
