#include "drawing/surface.h"
#include "tests/support/fake_text_rasteriser.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

const PixelKey kOverlayKey{{'.', kPaper}, {'#', kInk}, {'o', kPaint}, {'x', kPaper ^ kPaint}};

} // namespace

TEST(Surface, IsBlankInItsBackColour)
{
    const Surface surface(3, 2, rgb(201, 198, 255));
    EXPECT_EQ(surface.BackColor(), rgb(201, 198, 255));
    EXPECT_EQ(surface.Image(), RasterImage(3, 2, rgb(201, 198, 255)));
}

TEST(Surface, IsNeverLargerThanItsPixelsCanBeCounted)
{
    EXPECT_THROW(Surface(RasterImage::kLongestSide + 1, 1, kPaper), std::length_error);
    EXPECT_THROW(Surface(1, kHighest, kPaper), std::length_error);
}

TEST(SurfaceDrawMode, ReplacesThePixelsUnderTheCopyPen)
{
    Surface surface(4, 1, kInk);
    surface.DrawMode = RasterOperation::copyPen;
    surface.ForeColor = rgb(1, 2, 4);
    surface.Line(0, 0, 3, 0);
    surface.Line(0, 0, 3, 0);
    EXPECT_EQ(surface.GetPixel(2, 0), rgb(1, 2, 4));
    EXPECT_EQ(surface.GetPixel(3, 0), kInk);
}

TEST(SurfaceDrawMode, TurnsTheBitsOfEachChannelUnderTheExclusiveOrPen)
{
    Surface surface(1, 1, rgb(0b1100, 0xFF, 0));
    surface.DrawMode = RasterOperation::xorPen;
    surface.ForeColor = rgb(0b1010, 0xFF, 7);
    surface.PSet(0, 0);
    EXPECT_EQ(surface.GetPixel(0, 0), rgb(0b0110, 0, 7));
}

TEST(SurfaceDrawMode, ShowsTheWantedColourOverTheBackgroundWhenThePenIsBothByExclusiveOr)
{
    Surface surface(3, 1, rgb(201, 198, 255));
    surface.DrawMode = RasterOperation::xorPen;
    surface.ForeColor = surface.BackColor() ^ rgb(255, 0, 0);
    surface.Line(0, 0, 2, 0);
    EXPECT_EQ(surface.GetPixel(0, 0), rgb(255, 0, 0));
    surface.Line(0, 0, 2, 0);
    EXPECT_EQ(surface.GetPixel(0, 0), rgb(201, 198, 255));
}

TEST(SurfaceDrawMode, GoesForThePenAndTheBrushOfAShape)
{
    Surface surface(4, 3, kPaper);
    surface.DrawMode = RasterOperation::xorPen;
    surface.ForeColor = kPaper;
    surface.FillColor = kPaint;
    surface.FillStyle = FillPattern::solid;
    surface.Line(0, 0, 3, 2, LineForm::box);
    EXPECT_EQ(pixelGrid(surface.Image(), kOverlayKey), expectedGrid(R"(
        ####
        #xx#
        ####)"));
}

TEST(SurfaceFill, FillsWhatIsJoinedBySidesAndNotByCorners)
{
    Surface surface(7, 6, kPaper);
    surface.setPicture(pictureOf(R"(
        .......
        .###...
        .#.#..#
        .##..#.
        ....#..
        ...#...)"));
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.ExtFloodFill(3, 3, kPaper);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ooooooo
        o###ooo
        o#.#oo#
        o##oo#.
        oooo#..
        ooo#...)"));
}

TEST(SurfaceFill, FindsItsWayThroughACombOfThinWalls)
{
    Surface surface(9, 5, kPaper);
    for (int x = 1; x < 9; x += 2)
        surface.Line(x, x % 4 == 1 ? 0 : 1, x, x % 4 == 1 ? 4 : 5);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.ExtFloodFill(8, 4, kPaper);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        o#ooo#ooo
        o#o#o#o#o
        o#o#o#o#o
        o#o#o#o#o
        ooo#ooo#o)"));
}

TEST(SurfaceFill, DoesNothingWhereItsStartHasAnotherColour)
{
    Surface surface(4, 4, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.ExtFloodFill(1, 1, kPaint);
    EXPECT_EQ(surface.Image(), RasterImage(4, 4, kPaper));
}

TEST(SurfaceFill, DoesNothingOutsideTheSurface)
{
    Surface surface(4, 4, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.ExtFloodFill(-1, 0, kPaper);
    surface.ExtFloodFill(kHighest, kLowest, kPaper);
    surface.ExtFloodFill(4, 4, kNoColour);
    EXPECT_EQ(surface.Image(), RasterImage(4, 4, kPaper));
}

TEST(SurfaceFill, DoesNothingWithATransparentBrush)
{
    Surface surface(4, 4, kPaper);
    surface.FillStyle = FillPattern::transparent;
    surface.ExtFloodFill(1, 1, kPaper);
    EXPECT_EQ(surface.Image(), RasterImage(4, 4, kPaper));
}

TEST(SurfaceFill, InTheColourThatIsThereEnds)
{
    Surface surface(4, 4, kPaper);
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaper;
    surface.ExtFloodFill(1, 1, kPaper);
    EXPECT_EQ(surface.Image(), RasterImage(4, 4, kPaper));
}

TEST(SurfaceFill, TakesNoNoticeOfTheDrawMode)
{
    Surface surface(2, 2, kPaper);
    surface.DrawMode = RasterOperation::xorPen;
    surface.FillStyle = FillPattern::solid;
    surface.FillColor = kPaint;
    surface.ExtFloodFill(0, 0, kPaper);
    EXPECT_EQ(surface.Image(), RasterImage(2, 2, kPaint));
}

TEST(SurfacePicture, ComesToThePlaceWholeWhateverTheDrawMode)
{
    Surface surface(6, 4, kPaper);
    surface.DrawMode = RasterOperation::xorPen;
    surface.PaintPicture(pictureOf(R"(
        #o
        .#)"),
                         2, 1);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ......
        ..#o..
        ...#..
        ......)"));
}

TEST(SurfacePicture, ComesInPart)
{
    Surface surface(6, 3, kPaper);
    const RasterImage picture = pictureOf(R"(
        ####
        #oo#
        ####)");
    surface.PaintPicture(picture, 1, 1, base::PixelRectangle{1, 1, 2, 1});
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ......
        .oo...
        ......)"));
}

TEST(SurfacePicture, LosesWhatLiesOffTheSurface)
{
    Surface surface(4, 3, kPaper);
    const RasterImage picture = pictureOf(R"(
        #o#
        o#o
        #o#)");
    surface.PaintPicture(picture, -2, -1);
    surface.PaintPicture(picture, 3, 2);
    surface.PaintPicture(picture, kHighest, 0);
    surface.PaintPicture(picture, 0, kLowest);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        o...
        #...
        ...#)"));
}

TEST(SurfacePicture, ChangesNothingWhereThePartReachesBeyondThePicture)
{
    Surface surface(6, 4, kPaper);
    const RasterImage picture(2, 2, kInk);
    surface.PaintPicture(picture, 0, 0, base::PixelRectangle{-2, -1, 9, 9});
    surface.PaintPicture(picture, 0, 0, base::PixelRectangle{kLowest, kLowest, kHighest, kHighest});
    surface.PaintPicture(picture, 0, 0, base::PixelRectangle{0, 0, -3, 2});
    surface.PaintPicture(RasterImage(), 0, 0);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ......
        ..##..
        ..##..
        ......)"));
}

TEST(SurfacePicture, OfTheSurfaceItselfIsTakenAsItWasBefore)
{
    Surface surface(6, 1, kPaper);
    surface.PSet(0, 0);
    surface.PaintPicture(surface.Image(), 1, 0);
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid("##...."));
}

TEST(SurfaceText, StandsWithItsTopLeftAtTheCurrentPointInThePensColour)
{
    FakeTextRasteriser text;
    Surface surface(10, 7, kPaper, nullptr, &text);
    surface.CurrentX = 1;
    surface.CurrentY = 1;
    surface.ForeColor = kPaint;
    surface.Font.italic = true;
    surface.Print("hi");
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ..........
        .ooo.ooo..
        .ooo.ooo..
        .ooo.ooo..
        .ooo.ooo..
        ..........
        ..........)"));
    EXPECT_EQ(text.lastText, "hi");
    EXPECT_TRUE(text.lastFont.italic);
}

TEST(SurfaceText, TakesNoNoticeOfTheDrawMode)
{
    FakeTextRasteriser text;
    Surface surface(4, 5, kPaper, nullptr, &text);
    surface.DrawMode = RasterOperation::xorPen;
    surface.Print("l");
    EXPECT_EQ(surface.GetPixel(0, 0), kInk);
}

TEST(SurfaceText, BlendsInWhereALetterCoversAPartOfAPixel)
{
    FakeTextRasteriser text;
    text.inkOfLetters = 51;
    Surface surface(4, 5, rgb(200, 100, 0), nullptr, &text);
    surface.ForeColor = rgb(0, 100, 255);
    surface.Print("l");
    EXPECT_EQ(surface.GetPixel(0, 0), rgb(160, 100, 51));
    EXPECT_EQ(surface.GetPixel(3, 0), rgb(200, 100, 0));
}

TEST(SurfaceText, OfTenThousandLettersIsAskedForOnlyAsFarAsItIsSeen)
{
    FakeTextRasteriser text;
    Surface surface(10, 7, kPaper, nullptr, &text);
    surface.CurrentX = -4001;
    surface.CurrentY = 4;
    surface.Print(std::string(10'000, 'm'));
    EXPECT_EQ(text.parts, (std::vector<base::PixelRectangle>{{4001, 0, 10, 3}}));
    EXPECT_EQ(pixelGrid(surface.Image()), expectedGrid(R"(
        ..........
        ..........
        ..........
        ..........
        ##.###.###
        ##.###.###
        ##.###.###)"));
}

TEST(SurfaceText, OffTheSurfaceOrEmptyIsNotAskedFor)
{
    FakeTextRasteriser text;
    Surface surface(10, 7, kPaper, nullptr, &text);
    surface.Print("");
    surface.CurrentY = 7;
    surface.Print("below");
    surface.CurrentY = std::numeric_limits<double>::infinity();
    surface.Print("far below");
    EXPECT_TRUE(text.parts.empty());
    EXPECT_EQ(surface.Image(), RasterImage(10, 7, kPaper));
}
