#include "base/pixel_rectangle.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillora::base;

TEST(PixelRectangle, IntersectsInWhatBothHave)
{
    EXPECT_EQ(intersection({0, 0, 10, 10}, {4, -3, 10, 6}), (PixelRectangle{4, 0, 6, 3}));
}

TEST(PixelRectangle, HasNothingInCommonWithANeighbour)
{
    EXPECT_TRUE(intersection({0, 0, 10, 10}, {10, 0, 5, 5}).empty());
    EXPECT_TRUE(intersection({0, 0, 10, 10}, {2, 2, -1, 5}).empty());
}

TEST(PixelRectangle, IntersectsAtTheEndsOfTheRangeOfInt)
{
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(intersection({most - 5, 0, most, 4}, {most - 2, 0, most, 4}),
              (PixelRectangle{most - 2, 0, most - 3, 4}));
    EXPECT_TRUE(intersection({0, 0, 10, 10}, {std::numeric_limits<int>::min(), 0, most, 4}).empty());
}

TEST(PixelRectangle, IsBoundedTogetherWithAnother)
{
    EXPECT_EQ(boundingBox({0, 0, 2, 2}, {5, 7, 1, 1}), (PixelRectangle{0, 0, 6, 8}));
    EXPECT_EQ(boundingBox({}, {5, 7, 1, 1}), (PixelRectangle{5, 7, 1, 1}));
    EXPECT_EQ(boundingBox({5, 7, 1, 1}, {9, 9, 0, 4}), (PixelRectangle{5, 7, 1, 1}));
}
