#include "deck/slide_pen.h"

#include "tests/support/fake_image_surface.h"

#include <gtest/gtest.h>

namespace quillora::deck {
namespace {

class SlidePenTest : public testing::Test {
  protected:
    static constexpr int kRightButton = 2;

    tests::CallLog log{};
    tests::FakeImageSurface slide_img{log, "slide_img"};
    SlidePen pen{slide_img};
};

using Lines = std::vector<std::string>;

TEST_F(SlidePenTest, DrawsFromWhereThePointerIsBackToWhereItWas)
{
    pen.penMode = SlidePen::kPen;
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 13, 24);
    pen.slide_img_MouseMove(1, 0, 15, 24);
    EXPECT_EQ(slide_img.lines, (Lines{"13,24 10,20", "15,24 13,24"}));
}

TEST_F(SlidePenTest, LeavesNoMarkUnderTheArrow)
{
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 13, 24);
    EXPECT_EQ(slide_img.lines, Lines{});
}

TEST_F(SlidePenTest, DrawsOnlyWhileTheButtonIsHeld)
{
    pen.penMode = SlidePen::kPen;
    pen.slide_img_MouseMove(1, 0, 5, 5);
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseUp(1, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 13, 24);
    EXPECT_EQ(slide_img.lines, Lines{});
}

TEST_F(SlidePenTest, KnowsTheLeftButtonOnly)
{
    pen.penMode = SlidePen::kPen;
    pen.slide_img_MouseDown(kRightButton, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 13, 24);
    EXPECT_EQ(slide_img.lines, Lines{});
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseMove(kRightButton, 0, 13, 24);
    EXPECT_EQ(slide_img.lines, Lines{});
    pen.slide_img_MouseUp(kRightButton, 0, 13, 24);
    pen.slide_img_MouseMove(1, 0, 11, 21);
    EXPECT_EQ(slide_img.lines, Lines{"11,21 10,20"});
}

TEST_F(SlidePenTest, TakesAnyOtherModeAsNoPen)
{
    pen.penMode = 2;
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 13, 24);
    EXPECT_EQ(slide_img.lines, Lines{});
}

TEST_F(SlidePenTest, RoundsAHalfToTheEvenPixelAndStaysIn16Bits)
{
    pen.penMode = SlidePen::kPen;
    pen.slide_img_MouseDown(1, 0, 0.5F, 1.5F);
    pen.slide_img_MouseMove(1, 0, 1e6F, -1e6F);
    EXPECT_EQ(slide_img.lines, Lines{"32767,-32768 0,2"});
}

TEST_F(SlidePenTest, GoesOnFromThereAfterALineThatFailed)
{
    pen.penMode = SlidePen::kPen;
    pen.slide_img_MouseDown(1, 0, 1, 1);
    slide_img.failing.names = {"DrawSegment"};
    pen.slide_img_MouseMove(1, 0, 2, 2);
    slide_img.failing.names.clear();
    pen.slide_img_MouseMove(1, 0, 3, 3);
    EXPECT_EQ(slide_img.lines, Lines{"3,3 2,2"});
}

} // namespace
} // namespace quillora::deck
