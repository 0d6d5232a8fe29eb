#include "drawing/surface.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/fake_text_rasteriser.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

TEST(SurfaceBackground, ReplacesThePersistentImage)
{
    Surface surface(5, 3, kPaper);
    surface.Line(0, 0, 5, 3);
    surface.setPicture(RasterImage(3, 2, kPaint));
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ooo..
        ooo..
        .....)"));
    EXPECT_EQ(surface.Picture(), RasterImage(3, 2, kPaint));
}

TEST(SurfaceBackground, LargerThanTheSurfaceIsCutOff)
{
    Surface surface(5, 3, kPaper);
    surface.setPicture(RasterImage(3000, 2000, kPaint));
    EXPECT_EQ(surface.Image(), RasterImage(5, 3, kPaint));
}

TEST(SurfaceBackground, OfNothingLeavesTheBackColour)
{
    Surface surface(5, 3, kPaper);
    surface.setPicture(RasterImage(3, 2, kPaint));
    surface.setPicture({});
    EXPECT_EQ(surface.Image(), RasterImage(5, 3, kPaper));
}

TEST(SurfaceBackground, StaysWhereDrawnWorkIsCleared)
{
    Surface surface(5, 3, kPaper);
    surface.setPicture(RasterImage(3, 2, kPaint));
    surface.Line(0, 1, 5, 1);
    surface.Cls();
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ooo..
        ooo..
        .....)"));
}

TEST(SurfaceBackground, IsNotTouchedByWhatIsDrawn)
{
    Surface surface(3, 2, kPaper);
    surface.setPicture(RasterImage(3, 2, kPaint));
    surface.Line(0, 0, 2, 1, LineForm::filledBox);
    EXPECT_EQ(surface.Picture(), RasterImage(3, 2, kPaint));
    EXPECT_EQ(surface.Image(), RasterImage(3, 2, kInk));
}

TEST(SurfaceImage, IsACopyOnceItIsTaken)
{
    Surface surface(3, 2, kPaper);
    const RasterImage kept = surface.Image();
    surface.PSet(1, 1);
    EXPECT_EQ(kept, RasterImage(3, 2, kPaper));
}

TEST(SurfaceSize, KeepsWhatStaysInAndShowsTheBackgroundInNewPlaces)
{
    Surface surface(3, 3, kPaper);
    surface.setPicture(RasterImage(4, 2, kPaint));
    surface.Line(0, 0, 0, 3);
    surface.resize(5, 2);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        #ooo.
        #ooo.)"));
    surface.DrawWidth = 2;
    surface.Line(4, 1, 4, 1);
    EXPECT_EQ(surface.GetPixel(4, 0), kInk);
}

TEST(SurfaceScreenNotes, ComeWithEachOperationOfTheSurfaceItself)
{
    FakeSurfaceScreen screen;
    FakeTextRasteriser text;
    Surface surface(20, 10, kPaper, &screen, &text);
    surface.Line(2, 1, 6, 3);
    surface.Circle(10, 5, 2);
    surface.PSet(19, 9);
    surface.PaintPicture(RasterImage(2, 3), 18, 8);
    surface.Print("a");
    surface.Cls();
    surface.setPicture({});
    EXPECT_EQ(screen.shown, (std::vector<base::PixelRectangle>{{2, 1, 4, 3},
                                                               {8, 3, 5, 5},
                                                               {19, 9, 1, 1},
                                                               {18, 8, 2, 2},
                                                               {0, 0, 4, 5},
                                                               {0, 0, 20, 10},
                                                               {0, 0, 20, 10}}));
    EXPECT_EQ(screen.refreshes, 0);
}

TEST(SurfaceScreenNotes, OfWorkThroughTheDeviceContextWaitForRefresh)
{
    FakeSurfaceScreen screen;
    Surface surface(20, 10, kPaper, &screen);
    surface.FillStyle = FillPattern::solid;
    surface.RoundRect(1, 1, 5, 5, 10, 10);
    surface.Polygon(std::vector<base::PixelPoint>{{7, 2}, {9, 2}, {9, 4}});
    surface.PolyBezier({{{2, 6}, {2, 6}, {3, 6}, {3, 6}}});
    surface.SetPixel(8, 7, kInk);
    EXPECT_TRUE(screen.shown.empty());
    surface.Refresh();
    EXPECT_EQ(screen.shown, (std::vector<base::PixelRectangle>{{1, 1, 9, 7}}));
    EXPECT_EQ(screen.refreshes, 1);

    surface.ExtFloodFill(19, 9, kPaper);
    surface.Refresh();
    EXPECT_EQ(screen.shown.back(), (base::PixelRectangle{0, 0, 20, 10}));
    surface.Refresh();
    EXPECT_EQ(screen.shown.size(), 2u);
    EXPECT_EQ(screen.refreshes, 3);
}

TEST(SurfaceScreenNotes, OfAnOperationOfTheSurfaceLeaveEarlierDeviceWorkUnseen)
{
    FakeSurfaceScreen screen;
    Surface surface(20, 10, kPaper, &screen);
    surface.SetPixel(15, 8, kInk);
    surface.PSet(1, 1);
    EXPECT_EQ(screen.waiting, (base::PixelRectangle{1, 1, 1, 1}));
    surface.Refresh();
    EXPECT_EQ(screen.shown.back(), (base::PixelRectangle{15, 8, 1, 1}));
}

TEST(SurfaceScreenNotes, LeaveOutWhatTheScreenTookToShowForReasonsOfItsOwn)
{
    FakeSurfaceScreen screen;
    Surface surface(20, 10, kPaper, &screen);
    surface.SetPixel(15, 8, kInk);
    surface.SetPixel(3, 2, kInk);
    EXPECT_EQ(surface.takeUnshown(), (base::PixelRectangle{3, 2, 13, 7}));
    EXPECT_TRUE(surface.takeUnshown().empty());
    surface.Refresh();
    EXPECT_TRUE(screen.shown.empty());
}

TEST(SurfaceScreenNotes, AreNotGivenWhereNothingChanges)
{
    FakeSurfaceScreen screen;
    Surface surface(20, 10, kPaper, &screen);
    surface.Line(-5, -5, -1, 30);
    surface.PSet(20, 3);
    surface.PaintPicture(RasterImage(2, 2), -2, 0);
    EXPECT_TRUE(screen.shown.empty());
}

TEST(SurfaceDevicePixels, AreWrittenAtOnceAndShownWithTheNextRefresh)
{
    FakeSurfaceScreen screen;
    Surface surface(20, 10, kPaper, &screen);
    surface.devicePixels({-5, 2, 9, 3}).at(1, 3) = kInk;
    EXPECT_EQ(surface.GetPixel(1, 3), kInk);
    EXPECT_TRUE(screen.shown.empty());
    surface.Refresh();
    EXPECT_EQ(screen.shown, (std::vector<base::PixelRectangle>{{0, 2, 4, 3}}));
}
