#include "base/rounding.h"

#include <gtest/gtest.h>

#include <limits>

using quillora::base::roundToInt;

TEST(RoundToInt, SendsAHalfToTheEvenNeighbour)
{
    EXPECT_EQ(roundToInt(0.5), 0);
    EXPECT_EQ(roundToInt(1.5), 2);
    EXPECT_EQ(roundToInt(2.5), 2);
    EXPECT_EQ(roundToInt(-0.5), 0);
    EXPECT_EQ(roundToInt(-1.5), -2);
}

TEST(RoundToInt, TakesTheNearestOtherwise)
{
    EXPECT_EQ(roundToInt(746.34), 746);
    EXPECT_EQ(roundToInt(-2.6), -3);
}

TEST(RoundToInt, ClampsWhatNoIntCanHold)
{
    EXPECT_EQ(roundToInt(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(roundToInt(-1e300), std::numeric_limits<int>::min());
    EXPECT_EQ(roundToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}
