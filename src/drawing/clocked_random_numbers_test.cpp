#include "drawing/clocked_random_numbers.h"

#include <gtest/gtest.h>

#include <array>

namespace quillora::drawing {
namespace {

TEST(ClockedRandomNumbers, AreSpreadOverZeroToOne)
{
    ClockedRandomNumbers random;
    random.reseedFromClock();
    std::array<int, 10> tenths{};
    for (int i = 0; i < 10000; ++i) {
        const float number = random.next();
        ASSERT_GE(number, 0);
        ASSERT_LE(number, 1);
        ++tenths[static_cast<std::size_t>(number * 9.999F)];
    }
    // A thousand are due in each; chance alone keeps them this near.
    for (const int count : tenths)
        EXPECT_NEAR(count, 1000, 300);
}

TEST(ClockedRandomNumbers, BeginAnotherRowWhenTheyAreSeeded)
{
    ClockedRandomNumbers random;
    random.reseedFromClock();
    const std::array first{random.next(), random.next(), random.next()};
    bool differ = false;
    for (int attempt = 0; attempt < 1000 && !differ; ++attempt) {
        random.reseedFromClock();
        differ = std::array{random.next(), random.next(), random.next()} != first;
    }
    EXPECT_TRUE(differ);
}

} // namespace
} // namespace quillora::drawing
