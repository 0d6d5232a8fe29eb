#include "base/text_number.h"

#include <gtest/gtest.h>

using namespace quillora::base;

TEST(LeadingNumber, IsReadFromTheStartOfTheText)
{
    EXPECT_EQ(leadingNumber("100%"), 100);
    EXPECT_EQ(leadingNumber("  24 fps"), 24);
    EXPECT_EQ(leadingNumber("-3.5x"), -3.5);
    EXPECT_EQ(leadingNumber("+7"), 7);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("1e2"), 100);
}

TEST(LeadingNumber, IsZeroWhereTheTextHasNone)
{
    for (const char* text : {"", "   ", "abc", "%100", "-", "+", "--1", "+-1", "inf", "nan", "-inf"})
        EXPECT_EQ(leadingNumber(text), 0) << text;
}

TEST(LeadingInteger, RoundsHalfToEvenAndStaysInRange)
{
    EXPECT_EQ(leadingInteger("2.5"), 2);
    EXPECT_EQ(leadingInteger("3.5"), 4);
    EXPECT_EQ(leadingInteger("99999999999"), 2147483647);
}

TEST(DecimalText, IsReadBackAsTheSameNumber)
{
    EXPECT_EQ(decimalText(12), "12");
    EXPECT_EQ(leadingInteger(decimalText(-700)), -700);
}
