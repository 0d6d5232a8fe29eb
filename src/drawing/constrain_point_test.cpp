#include "drawing/constrain_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillora::drawing {
namespace {

using base::PixelPoint;

constexpr PixelPoint kStart{100, 100};
constexpr int kNoKey = 0;
constexpr int kShiftAndControl = 3;

PixelPoint ended(int shift, DraggedShape shape, float x, float y)
{
    return constrainedEnd(kStart, {.button = kLeftButton, .shift = shift, .x = x, .y = y}, shape);
}

PixelPoint boxEnd(int shift, float x, float y) { return ended(shift, DraggedShape::boxLike, x, y); }
PixelPoint lineEnd(int shift, float x, float y) { return ended(shift, DraggedShape::line, x, y); }

TEST(ConstrainedEnd, IsThePositionWithoutAKey)
{
    EXPECT_EQ(boxEnd(kNoKey, 117, 140), (PixelPoint{117, 140}));
    EXPECT_EQ(lineEnd(kNoKey, 117, 140), (PixelPoint{117, 140}));
}

TEST(ConstrainedEnd, RoundsAHalfToTheEvenNeighbour)
{
    EXPECT_EQ(boxEnd(kNoKey, 0.5F, 1.5F), (PixelPoint{0, 2}));
    EXPECT_EQ(boxEnd(kNoKey, -0.5F, -1.5F), (PixelPoint{0, -2}));
}

TEST(ConstrainedEnd, CutsTheLongerSideDownUnderShift)
{
    EXPECT_EQ(boxEnd(kShiftAlone, 110, 140), (PixelPoint{110, 110}));
    EXPECT_EQ(boxEnd(kShiftAlone, 140, 110), (PixelPoint{110, 110}));
    EXPECT_EQ(lineEnd(kShiftAlone, 140, 110), (PixelPoint{110, 110}));
}

TEST(ConstrainedEnd, KeepsTheDirectionOfTheDragUnderShift)
{
    EXPECT_EQ(boxEnd(kShiftAlone, 90, 60), (PixelPoint{90, 90}));
    EXPECT_EQ(boxEnd(kShiftAlone, 60, 90), (PixelPoint{90, 90}));
    EXPECT_EQ(boxEnd(kShiftAlone, 110, 60), (PixelPoint{110, 90}));
    EXPECT_EQ(boxEnd(kShiftAlone, 60, 110), (PixelPoint{90, 110}));
}

TEST(ConstrainedEnd, IsTheStartItselfForALevelOrUprightDragUnderShift)
{
    EXPECT_EQ(boxEnd(kShiftAlone, 100, 150), (PixelPoint{100, 100}));
    EXPECT_EQ(boxEnd(kShiftAlone, 150, 100), (PixelPoint{100, 100}));
}

TEST(ConstrainedEnd, SnapsALineToTheNearerAxisUnderControl)
{
    EXPECT_EQ(lineEnd(kControlAlone, 110, 140), (PixelPoint{100, 140}));
    EXPECT_EQ(lineEnd(kControlAlone, 140, 110), (PixelPoint{140, 100}));
}

TEST(ConstrainedEnd, GoesUprightForAnExactDiagonalUnderControl)
{
    EXPECT_EQ(lineEnd(kControlAlone, 130, 130), (PixelPoint{100, 130}));
    EXPECT_EQ(lineEnd(kControlAlone, 70, 130), (PixelPoint{100, 130}));
}

TEST(ConstrainedEnd, IsFreeForABoxUnderControl)
{
    EXPECT_EQ(boxEnd(kControlAlone, 110, 140), (PixelPoint{110, 140}));
}

TEST(ConstrainedEnd, IsFreeUnderShiftAndControlTogether)
{
    EXPECT_EQ(boxEnd(kShiftAndControl, 110, 140), (PixelPoint{110, 140}));
    EXPECT_EQ(lineEnd(kShiftAndControl, 110, 140), (PixelPoint{110, 140}));
}

TEST(ConstrainedEnd, StaysInTheRangeOfItsNumbers)
{
    using Range = std::numeric_limits<int>;
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(constrainedEnd({Range::min(), Range::min()}, {1, kShiftAlone, infinity, infinity},
                             DraggedShape::boxLike),
              (PixelPoint{Range::max(), Range::max()}));
    EXPECT_EQ(boxEnd(kShiftAlone, std::nanf(""), std::nanf("")), (PixelPoint{0, 0}));
    EXPECT_EQ(lineEnd(kControlAlone, std::nanf(""), 5), (PixelPoint{0, 100}));
}

} // namespace
} // namespace quillora::drawing
