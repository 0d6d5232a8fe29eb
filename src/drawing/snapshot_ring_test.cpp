#include "drawing/snapshot_ring.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillora::drawing {
namespace {

struct SnapshotRingTest : testing::Test {
    SnapshotRing ring;

    /// Pictures are told apart by their one pixel.
    void take(Colour mark) { ring.take(RasterImage(1, 1, mark), 11200, 6300); }
    void takeMany(int count)
    {
        for (int i = 1; i <= count; ++i)
            take(i);
    }
    Colour markAt(int position) { return ring.picBuffer.at(position)->Picture.at(0, 0); }
    long elements()
    {
        return std::count_if(ring.picBuffer.begin(), ring.picBuffer.end(),
                             [](const auto& element) { return element.has_value(); });
    }
};

TEST_F(SnapshotRingTest, HasItsFirstElementFromTheStart) { EXPECT_EQ(elements(), 1); }

TEST_F(SnapshotRingTest, StoresTheFirstSnapshotAtPositionOne)
{
    take(7);
    EXPECT_EQ(ring.bufferNewest, 1);
    EXPECT_EQ(ring.bufferLast, 1);
    EXPECT_EQ(ring.bufferOldest, 0);
    EXPECT_EQ(markAt(1), 7U);
    EXPECT_TRUE(ring.bufferDirty);
}

TEST_F(SnapshotRingTest, MakesElementsOnlyWhenItFirstReachesThem)
{
    takeMany(3);
    EXPECT_EQ(elements(), 4);
    EXPECT_FALSE(ring.picBuffer[4].has_value());
}

TEST_F(SnapshotRingTest, TagsASnapshotWithTheCanvasSizeInTwips)
{
    take(1);
    EXPECT_EQ(ring.picBuffer[1]->Tag, "630011200");
}

TEST_F(SnapshotRingTest, WritesATagThatNo32BitNumberHolds)
{
    ring.take(RasterImage(1, 1, 1), 2147483647, 2147483647);
    EXPECT_EQ(ring.picBuffer[1]->Tag, "214750512183647");
}

TEST_F(SnapshotRingTest, GoesFromPositionTenBackToZeroAndPushesTheOldestOn)
{
    takeMany(11);
    EXPECT_EQ(ring.bufferNewest, 0);
    EXPECT_EQ(ring.bufferLast, 0);
    EXPECT_EQ(ring.bufferOldest, 1);
    EXPECT_EQ(markAt(0), 11U);
}

TEST_F(SnapshotRingTest, OverwritesPositionOneWithTheTwelfthSnapshot)
{
    takeMany(12);
    EXPECT_EQ(ring.bufferNewest, 1);
    EXPECT_EQ(ring.bufferOldest, 2);
    EXPECT_EQ(markAt(1), 12U);
    EXPECT_EQ(markAt(2), 2U);
}

TEST_F(SnapshotRingTest, NeverGrowsPastElevenElements)
{
    takeMany(100);
    EXPECT_EQ(elements(), 11);
    EXPECT_EQ(ring.bufferNewest, 100 % 11);
    EXPECT_EQ(ring.bufferOldest, 100 % 11 + 1);
}

TEST_F(SnapshotRingTest, PushesTheOldestFromPositionTenBackToZero)
{
    takeMany(21);
    EXPECT_EQ(ring.bufferNewest, 10);
    EXPECT_EQ(ring.bufferOldest, 0);
}

TEST_F(SnapshotRingTest, IsResetToPositionZeroAlone)
{
    takeMany(5);
    ring.ResetBuffer(RasterImage(1, 1, 99), 11200, 6300);
    EXPECT_EQ(ring.bufferNewest, 0);
    EXPECT_EQ(ring.bufferLast, 0);
    EXPECT_EQ(ring.bufferOldest, 0);
    EXPECT_EQ(elements(), 1);
    EXPECT_EQ(markAt(0), 99U);
    EXPECT_EQ(ring.picBuffer[0]->Tag, "630011200");
}

TEST_F(SnapshotRingTest, KeepsItsElementsWhenItsPositionsStartAgain)
{
    takeMany(3);
    ring.restart();
    EXPECT_EQ(ring.bufferNewest, 0);
    EXPECT_FALSE(ring.bufferDirty);
    EXPECT_EQ(elements(), 4);
}

} // namespace
} // namespace quillora::drawing
