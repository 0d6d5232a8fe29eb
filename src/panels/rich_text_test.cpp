#include "panels/rich_text.h"

#include <gtest/gtest.h>

#include <string>

namespace quillora::panels {
namespace {

TEST(RichText, IsOneEmptyParagraphAtFirst)
{
    EXPECT_EQ(RichText().paragraphs.size(), 1U);
    EXPECT_EQ(plainText({}), "");
}

TEST(RichText, PartsPlainTextAtEveryKindOfLineEnd)
{
    EXPECT_EQ(plainText(fromPlainText("a\r\nb\rc\nd\u2029e\ve", {}, 100)), "a\r\nb\r\nc\r\nd\r\ne\ve");
    EXPECT_EQ(fromPlainText("\n\n", {}, 100).paragraphs.size(), 3U);
    EXPECT_EQ(fromPlainText("\r\n", {}, 100).paragraphs.size(), 2U);
    EXPECT_EQ(fromPlainText("", {}, 100).paragraphs.size(), 1U);
}

TEST(RichText, LeavesOutWhatItCannotHold)
{
    using std::string_literals::operator""s;
    EXPECT_EQ(plainText(fromPlainText("a\0\x01\x1B\x7F\u0085\uFFFC\uFDD0\uFFFFz"s, {}, 100)), "az");
    EXPECT_EQ(plainText(fromPlainText("\t \u00A0\u200D\uFEFF😀", {}, 100)), "\t \u00A0\u200D\uFEFF😀");
}

TEST(RichText, ReplacesWhatIsNoUtf8)
{
    EXPECT_EQ(plainText(fromPlainText("a\xFF\xC0\x80\xE2\x82z\xED\xA0\x80", {}, 100)),
              "a\uFFFD\uFFFD\uFFFD\uFFFDz\uFFFD");
}

TEST(RichText, TakesNoMoreThanItsLimit)
{
    EXPECT_EQ(plainText(fromPlainText("abcdef", {}, 3)), "abc");
    EXPECT_EQ(plainText(fromPlainText("ab\ncd", {}, 3)), "ab");
    EXPECT_EQ(plainText(fromPlainText("ab\ncd", {}, 4)), "ab\r\nc");
    EXPECT_EQ(plainText(fromPlainText("abc", {}, 0)), "");
}

TEST(RichText, GoesOnInANextParagraphWhereOneIsTooLong)
{
    const CharacterFormat bold{.bold = true};
    RichTextBuilder builder(100'000);
    for (std::size_t n = 0; n < 2 * kLongestParagraph + 1; ++n)
        builder.add(U'x', bold);
    builder.endParagraph(Alignment::centre, true, {});
    for (std::size_t n = 0; n < kLongestParagraph; ++n)
        builder.add(U'y', {});
    builder.endParagraph(Alignment::left, false, {});
    const RichText text = builder.take();
    ASSERT_EQ(text.paragraphs.size(), 4U);
    for (const std::size_t piece : {0U, 1U, 2U}) {
        EXPECT_EQ(text.paragraphs[piece].alignment, Alignment::centre);
        EXPECT_EQ(text.paragraphs[piece].bullet, piece == 0);
        EXPECT_EQ(text.paragraphs[piece].mark.bold, piece < 2);
    }
    EXPECT_EQ(text.paragraphs[2].runs, (std::vector<TextRun>{{"x", bold}}));
    EXPECT_EQ(text.paragraphs[3].runs.front().text.size(), kLongestParagraph);
}

TEST(RichText, HasNoEmptyRunWhereAParagraphWasTooLong)
{
    RichTextBuilder builder(100'000);
    for (std::size_t n = 0; n < kLongestParagraph; ++n)
        builder.add(U'x', {});
    builder.add(U'b', {.bold = true});
    builder.endParagraph(Alignment::left, false, {});
    for (std::size_t n = 0; n < kLongestParagraph; ++n)
        builder.add(U'x', {});
    builder.addAlike(U'y');
    builder.endParagraph(Alignment::left, false, {});
    const RichText text = builder.take();
    ASSERT_EQ(text.paragraphs.size(), 4U);
    EXPECT_EQ(text.paragraphs[1].runs, (std::vector<TextRun>{{"b", {.bold = true}}}));
    EXPECT_EQ(text.paragraphs[3].runs, (std::vector<TextRun>{{"y", {}}}));
}

TEST(RichText, JoinsNeighboursOfOneLook)
{
    const CharacterFormat bold{.bold = true};
    RichTextBuilder builder(100);
    builder.add(U'a', {});
    builder.add(U'b', {});
    builder.add(U'c', bold);
    builder.addAlike(U'd');
    builder.add(U'e', {});
    builder.endParagraph(Alignment::right, true, bold);
    const RichText text = builder.take();
    ASSERT_EQ(text.paragraphs.size(), 1U);
    EXPECT_EQ(text.paragraphs.front(), (Paragraph{.alignment = Alignment::right,
                                                  .bullet = true,
                                                  .runs = {{"ab", {}}, {"cd", bold}, {"e", {}}},
                                                  .mark = bold}));
}

} // namespace
} // namespace quillora::panels
