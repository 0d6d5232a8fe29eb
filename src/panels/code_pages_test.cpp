#include "panels/code_pages.h"

#include "panels/unicode.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillora::panels {
namespace {

std::string decoded(int page, std::string_view bytes)
{
    CodePageDecoder decoder;
    decoder.setPage(page);
    std::string text;
    for (const char each : bytes)
        if (const char32_t character = decoder.decode(static_cast<std::uint8_t>(each)); character != 0)
            appendUtf8(text, character);
    return text;
}

TEST(CodePages, KnowTheSingleByteOnes)
{
    struct Row {
        int page;
        std::string_view bytes;
        std::string_view text;
    };
    const Row rows[] = {
        {437, "\x82\xE1\xFB", "éß√"},  {850, "\x82\xE1\xD5", "éßı"},  {852, "\x88\xA5\xE3", "łąŃ"},
        {866, "\x8F\xE0\xA8", "При"},  {874, "\xA1\xD2\xC3", "การ"},  {1250, "\xB3\xEA\x9C", "łęś"},
        {1251, "\xCF\xF0\xE8", "При"}, {1252, "\xE9\x80\x93", "é€“"}, {1253, "\xC1\xE1\xF9", "Ααω"},
        {1254, "\xFD\xF0\xFE", "ığş"}, {1255, "\xF9\xEC\xE5", "שלו"}, {1256, "\xD3\xE1\xC7", "سلا"},
        {1257, "\xE0\xE8\xFE", "ąčž"}, {1258, "\xFE\xD0\xF5", "₫Đơ"}, {10000, "\x8E\xA5\xDB", "é•€"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(decoded(row.page, row.bytes), row.text) << row.page;
}

TEST(CodePages, LeaveAsciiAlone)
{
    for (const int page : {437, 932, 1252, 10000, kUtf8Page, kSymbolPage})
        EXPECT_EQ(decoded(page, "Aa0~"), "Aa0~") << page;
}

TEST(CodePages, GiveAReplacementForAByteWithoutAMeaning)
{
    EXPECT_EQ(decoded(1253, "\xAA"), "\uFFFD");
    EXPECT_EQ(decoded(1257, "\xA1"), "\uFFFD");
}

TEST(CodePages, TakeAnUnknownPageForTheWesternOne) { EXPECT_EQ(decoded(4711, "\xE9"), "é"); }

TEST(CodePages, ReadUtf8AcrossBytes)
{
    EXPECT_EQ(decoded(kUtf8Page, "é漢😀"), "é漢😀");
    EXPECT_EQ(decoded(kUtf8Page, "\xE6\xBC"
                                 "A"),
              "A");
    EXPECT_EQ(decoded(kUtf8Page, "\x80\xFF\xC3\xC3\xA9"), "\uFFFDé");
}

TEST(CodePages, PairTheBytesOfTheDoubleByteOnes)
{
    for (const int page : {932, 936, 949, 950, 1361})
        EXPECT_EQ(decoded(page, "a\x8A\xBF"
                                "b\x8A\x5C"
                                "c"),
                  "a\uFFFDb\uFFFDc")
            << page;
    EXPECT_EQ(decoded(932, "\xB1\xDF"), "\uFF71\uFF9F");
}

TEST(CodePages, KnowTheBulletAmongSymbols)
{
    EXPECT_EQ(decoded(kSymbolPage, "\xB7"), "•");
    EXPECT_EQ(decoded(kSymbolPage, "\xA7"), "\uF0A7");
}

TEST(CodePages, AreChosenByTheCharacterSetOfAFont)
{
    const std::pair<int, int> rows[] = {{0, 1252},   {2, 42},     {77, 10000}, {128, 932},  {129, 949},
                                        {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                                        {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                                        {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    for (const auto& [charset, page] : rows)
        EXPECT_EQ(codePageOfCharset(charset, 0), page) << charset;
    EXPECT_EQ(codePageOfCharset(1, 1250), 1250);
    EXPECT_EQ(codePageOfCharset(99, 1250), 1250);
}

} // namespace
} // namespace quillora::panels
