#include "stage/rotation.h"

#include "tests/support/fake_stage_surfaces.h"

#include <gtest/gtest.h>

namespace quillora::stage {
namespace {

using Calls = std::vector<std::string>;

class RotationTest : public testing::Test {
  protected:
    RotationTest()
    {
        fields.slide_txt = "3";
        fields.rotateSlide = {.top = 10, .left = 20, .height = 30, .width = 40};
        fields.rotateCam = {.top = 50, .left = 60, .height = 70, .width = 80};
        fields.rotateDraw = {.top = 1, .left = 2, .height = 3, .width = 4};
        fields.rotateWhiteboard = {.top = 5, .left = 6, .height = 7, .width = 8};
    }
    void expectLargeAreaAsTheSlides()
    {
        EXPECT_EQ(fields.rotateSlide.top, 2160);
        EXPECT_EQ(fields.rotateSlide.left, 3000);
        EXPECT_EQ(fields.rotateSlide.height, 6645);
        EXPECT_EQ(fields.rotateSlide.width, 8745);
    }

    tests::CallLog log{};
    tests::FakeStageSurfaces on{log};
    StageFields fields{};
    Rotation rotation{{fields, on.all}};
};

TEST_F(RotationTest, OfTheSlide_PutsSlideAndCameraIntoTheirStoredRectangles)
{
    rotation.RotatePPT();
    EXPECT_EQ(log.calls, (Calls{"slide_img 20,10 40x30", "VideoCap1_back 60,50 80x70"}));
    EXPECT_EQ(fields.slideNow_txt, "3");
}

TEST_F(RotationTest, WithTheCamera_ExchangesTheirPlaces)
{
    rotation.RotatePPTCAM();
    EXPECT_EQ(log.calls,
              (Calls{"slide_img 20,10 40x30", "slide_img_back 20,10 40x30", "VideoCap1_back 60,50 80x70",
                     "VideoCap1_back 3000,2160 8745x6645", "slide_img_back 60,50 80x70"}));
    EXPECT_EQ(fields.slideNow_txt, "3");
    expectLargeAreaAsTheSlides();
}

TEST_F(RotationTest, WithDrawing_PutsTheSlideIntoAFurtherRectangle)
{
    rotation.RotatePPTDRAW();
    EXPECT_EQ(log.calls,
              (Calls{"slide_img 20,10 40x30", "slide_img_back 20,10 40x30", "VideoCap1_back 60,50 80x70",
                     "slide_img 2,1 4x3", "slide_img_back 2,1 4x3"}));
    expectLargeAreaAsTheSlides();
}

TEST_F(RotationTest, WithTheWhiteboard_ReadsAnotherRectangleThanWithDrawing)
{
    rotation.RotatePPTWHITEBOARD();
    EXPECT_EQ(on.slide_img.place, (base::TwipRectangle{{6}, {5}, {8}, {7}}));
    EXPECT_EQ(on.slide_img_back.place, on.slide_img.place);
}

TEST_F(RotationTest, FromEmptyFields_LeavesTheSurfacesWithoutASize)
{
    fields = {};
    rotation.RotatePPT();
    EXPECT_EQ(on.slide_img.place, base::TwipRectangle{});
    EXPECT_EQ(on.VideoCap1_back.place, base::TwipRectangle{});
}

TEST_F(RotationTest, SkipsWhatFails)
{
    on.slide_img.failing.names = {"move"};
    EXPECT_NO_THROW(rotation.RotatePPTCAM());
    EXPECT_EQ(on.slide_img_back.place, (base::TwipRectangle{{60}, {50}, {80}, {70}}));
}

} // namespace
} // namespace quillora::stage
