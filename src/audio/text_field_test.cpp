#include "audio/text_field.h"

#include <gtest/gtest.h>

using namespace quillora::audio;

TEST(TextField, IsFilledUpWithNuls)
{
    EXPECT_EQ(paddedField("Mic", 32), std::string("Mic") + std::string(29, '\0'));
    EXPECT_EQ(paddedField("", 32), std::string(32, '\0'));
}

TEST(TextField, CutsTextSoThatANulFollows)
{
    const std::string text = "Monitor of Built-in Audio Analog Stereo";
    EXPECT_EQ(paddedField(text, 32), text.substr(0, 31) + '\0');
    EXPECT_EQ(paddedField(std::string(31, 'x'), 32), std::string(31, 'x') + '\0');
    EXPECT_EQ(paddedField(std::string(32, 'x'), 32), std::string(31, 'x') + '\0');
}

TEST(TextField, CountsCharactersNotBytes)
{
    const std::string letter = "\u0645";
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += letter;
    EXPECT_EQ(paddedField(text, 32), text.substr(0, 62) + '\0');
    EXPECT_EQ(paddedField("\u0645", 4), letter + std::string(3, '\0'));
}

TEST(TextField, TextEndsAtTheFirstNul)
{
    EXPECT_EQ(fieldText(paddedField("Microphone", 32)), "Microphone");
    EXPECT_EQ(fieldText(std::string_view("one\0two", 7)), "one");
    EXPECT_EQ(fieldText("whole"), "whole");
    EXPECT_EQ(fieldText(std::string(32, '\0')), "");
}
