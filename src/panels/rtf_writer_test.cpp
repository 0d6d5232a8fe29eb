#include "panels/rtf_writer.h"

#include "panels/rtf_reader.h"
#include "panels/unicode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace quillora::panels {
namespace {

/// One paragraph of one run.
RichText textOf(const std::string& text, const CharacterFormat& format = {})
{
    return {.paragraphs = {Paragraph{.runs = {{.text = text, .format = format}}, .mark = format}}};
}

void expectRoundTrip(const RichText& text)
{
    const std::string rtf = writeRtf(text);
    EXPECT_TRUE(
        std::ranges::all_of(rtf, [](char c) { return (c >= 0x20 && c < 0x7F) || c == '\r' || c == '\n'; }));
    EXPECT_EQ(readRtf(rtf), text) << rtf;
}

TEST(RtfWriter, WritesAnEmptyBoard)
{
    EXPECT_EQ(writeRtf({}),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}\r\n"
              "{\\colortbl ;\\red0\\green0\\blue0;}\r\n"
              "\\pard\\f0\\fs52\\quilloratwips525\\cf1\\b0\\i0\\ulnone\\par\r\n}\r\n");
    expectRoundTrip({});
}

TEST(RtfWriter, RoundTripsEachFormat)
{
    expectRoundTrip(textOf("bold", {.bold = true}));
    expectRoundTrip(textOf("italic", {.italic = true}));
    expectRoundTrip(textOf("underline", {.underline = true}));
    expectRoundTrip(textOf("all", {.bold = true, .italic = true, .underline = true}));
    expectRoundTrip(textOf("colour", {.colour = base::rgb(1, 128, 255)}));
    for (const char* font : {"Arial", "漢字 Mincho", "1942 report", "Ünder{line}", "-3"})
        expectRoundTrip(textOf("font", {.font = font}));
}

TEST(RtfWriter, RoundTripsSizesToTheTwip)
{
    for (const int size : {20, 21, 525, 530, 605, 1000, 32759, 32760})
        expectRoundTrip(textOf("size", {.size = {size}}));
}

TEST(RtfWriter, RoundTripsAlignmentAndBullets)
{
    RichText text{.paragraphs = {}};
    for (const Alignment alignment : {Alignment::left, Alignment::centre, Alignment::right}) {
        for (const bool bullet : {false, true, true, false}) {
            Paragraph paragraph = textOf("point").paragraphs.front();
            paragraph.alignment = alignment;
            paragraph.bullet = bullet;
            text.paragraphs.push_back(paragraph);
        }
    }
    expectRoundTrip(text);
    text.paragraphs.push_back({.bullet = true});
    text.paragraphs.push_back({});
    expectRoundTrip(text);
}

TEST(RtfWriter, RoundTripsEveryCharacterOfTheBoard)
{
    for (char32_t first = 0; first <= 0x10FFFF; first += 0x800) {
        std::string text;
        for (char32_t character = first; character < first + 0x800; ++character)
            if (isBoardCharacter(character))
                appendUtf8(text, character);
        if (text.empty())
            continue;
        EXPECT_EQ(readRtf(writeRtf(textOf(text))), textOf(text)) << "from " << static_cast<unsigned>(first);
    }
}

TEST(RtfWriter, KeepsDigitsAndBlanksThatFollowAWord)
{
    for (const char* text : {"5", "-5", " x", "\t5", "\t x", "\u20285", "\\par", "{}", "a\\'41", "\u20AC5"})
        expectRoundTrip(textOf(text, {.bold = true}));
}

TEST(RtfWriter, KeepsTheLookOfEmptyParagraphs)
{
    RichText text;
    text.paragraphs = {Paragraph{.mark = {.size = {800}, .bold = true}}, Paragraph{.mark = {.size = {200}}},
                       Paragraph{}};
    expectRoundTrip(text);
}

TEST(RtfWriter, RoundTripsAnythingThatTheBoardCanHold)
{
    std::minstd_rand random(7);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    const char* fonts[] = {"Times New Roman", "Arial", "Courier New", "明朝"};
    const char* texts[] = {"a", " ",  "0",      "\\", "é",      "Ж", "漢",
                           "😀", "\t", "\u2028", "-",  "\u00A0", "{", "\u2022"};
    for (int round = 0; round < 200; ++round) {
        RichTextBuilder builder(10'000);
        const auto format = [&] {
            return CharacterFormat{.font = fonts[upTo(3)],
                                   .size = {20 + upTo(2000)},
                                   .colour = base::rgb(upTo(255), upTo(1), upTo(255)),
                                   .bold = upTo(1) == 1,
                                   .italic = upTo(1) == 1,
                                   .underline = upTo(1) == 1};
        };
        for (int paragraph = upTo(6); paragraph >= 0; --paragraph) {
            for (int runs = upTo(4); runs > 0; --runs) {
                const CharacterFormat look = format();
                for (int n = upTo(8); n >= 0; --n) {
                    std::string_view text = texts[upTo(13)];
                    builder.add(takeCharacter(text), look);
                }
            }
            builder.endParagraph(static_cast<Alignment>(upTo(2)), upTo(2) == 0, format());
        }
        expectRoundTrip(builder.take());
    }
}

} // namespace
} // namespace quillora::panels
