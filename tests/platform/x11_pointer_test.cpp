#include "tests/platform/x11_fixture.h"

#include <cstdint>
#include <vector>

using namespace quillora;
using namespace quillora::capture;

namespace {

class X11PointerTest : public X11ScreenSourceTest {
  protected:
    X11PointerTest()
    {
        canvas->setCursor(3, 2, {1, 0}, {kOpaque | kRed, kOpaque | kRed, 0, 0, kOpaque | kRed, 0});
        canvas->movePointer(5, 3);
        pointer.cursor = true;
    }

    std::vector<std::uint8_t> pixels() const
    {
        return {image.pixels, image.pixels + 4 * image.width * image.height};
    }

    static constexpr std::uint32_t kOpaque = 0xff000000;
};

} // namespace

TEST_F(X11PointerTest, IsDrawnWithItsHotSpotAtItsPlace)
{
    grab();
    EXPECT_EQ(letters(image), "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbRRbbbbbbbbbb\n"
                              "bbbbbRbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
}

TEST_F(X11PointerTest, IsNotDrawnWhenItIsNotAsked)
{
    pointer.cursor = false;
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), kBackground);
}

TEST_F(X11PointerTest, UncoversWhatWasUnderItWhenItMoves)
{
    canvas->fill({4, 3, 1, 1}, kPaper);
    grab();
    canvas->movePointer(9, 5);
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 7, 4}));
    EXPECT_EQ(letters(image), "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbpbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbRRbbbbbb\n"
                              "bbbbbbbbbRbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, StaysOnTopOfWhatIsDrawnUnderIt)
{
    grab();
    canvas->fill({0, 0, 6, 4}, kPaper);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 6, 4}));
    EXPECT_EQ(letters(image), "ppppppbbbbbbbbbb\n"
                              "ppppppbbbbbbbbbb\n"
                              "ppppppbbbbbbbbbb\n"
                              "ppppRRbbbbbbbbbb\n"
                              "bbbbbRbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
}

TEST_F(X11PointerTest, IsCutOffAtTheEdgesOfTheRegion)
{
    canvas->movePointer(0, 7);
    grab();
    EXPECT_EQ(colourAt(image, 0, 7), kRed);
    canvas->movePointer(16, 7);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 7, 16, 1}));
    EXPECT_EQ(colourAt(image, 15, 7), kRed);
    canvas->movePointer(200, 100);
    EXPECT_EQ(grab().changed, (PixelRectangle{15, 7, 1, 1}));
    canvas->movePointer(210, 100);
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, IsDrawnAnewWhenItsShapeChanges)
{
    grab();
    canvas->setCursor(1, 1, {0, 0}, {kOpaque | kPaper});
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 4, 3), kBackground);
    EXPECT_EQ(colourAt(image, 5, 3), kPaper);
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, IsDrawnAnewWhenItsColoursAloneChange)
{
    grab();
    canvas->setCursor(3, 2, {1, 0}, {0, kOpaque | kPaper, 0, 0, 0, 0});
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 4, 3), kBackground);
    EXPECT_EQ(colourAt(image, 5, 3), kPaper);
}

TEST_F(X11PointerTest, IsBlendedByItsAlpha)
{
    canvas->setCursor(1, 1, {0, 0}, {0x80800000});
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), 0x901820U);
}

TEST_F(X11PointerTest, AppearsAndDisappearsAsTheDrawingIsChanged)
{
    pointer.cursor = false;
    grab();
    pointer.cursor = true;
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 5, 3), kRed);
    pointer.cursor = false;
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 5, 3), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightOf35PixelsWithoutTheCursor)
{
    region = {0, 0, 100, 100};
    canvas->fill(region, kPaper);
    canvas->movePointer(50, 40);
    pointer.cursor = false;
    grab();
    pointer.highlight = true;
    EXPECT_EQ(grab().changed, (PixelRectangle{33, 23, 35, 35}));
    EXPECT_EQ(colourAt(image, 32, 40), kPaper);
    EXPECT_NE(colourAt(image, 33, 40), kPaper);
    EXPECT_NE(colourAt(image, 67, 40), kPaper);
    EXPECT_EQ(colourAt(image, 68, 40), kPaper);
    EXPECT_NE(colourAt(image, 50, 40), kRed);
}

TEST_F(X11PointerTest, HasItsHighlightUnderTheCursor)
{
    pointer.highlight = true;
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), kRed);
    EXPECT_NE(colourAt(image, 8, 3), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightThatMovesAndUncoversWhatWasUnderIt)
{
    region = {0, 0, 100, 100};
    canvas->movePointer(20, 20);
    pointer = {false, true, 35};
    grab();
    canvas->movePointer(70, 70);
    EXPECT_EQ(grab().changed, (PixelRectangle{3, 3, 85, 85}));
    EXPECT_EQ(colourAt(image, 20, 20), kBackground);
    EXPECT_NE(colourAt(image, 70, 70), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightThatIsNotLaidOnTwice)
{
    region = {0, 0, 100, 100};
    canvas->movePointer(50, 50);
    pointer = {false, true, 35};
    grab();
    const std::vector<std::uint8_t> before = pixels();
    canvas->fill({0, 0, 51, 100}, kRed);
    grab();
    canvas->fill({0, 0, 51, 100}, kBackground);
    grab();
    EXPECT_EQ(pixels(), before);
}

TEST_F(X11PointerTest, HasAHighlightThatLeavesDarkTextDark)
{
    region = {0, 0, 40, 40};
    canvas->fill(region, 0xffffff);
    canvas->fill({15, 20, 10, 1}, 0x000000);
    canvas->movePointer(20, 20);
    pointer = {false, true, 35};
    grab();
    const auto brightness = [&](int x, int y) {
        const std::uint32_t colour = colourAt(image, x, y);
        return (colour >> 16) + (colour >> 8 & 0xff) + (colour & 0xff);
    };
    EXPECT_LT(brightness(20, 20) * 4, brightness(20, 21));
}

TEST_F(X11PointerTest, LeavesBlackWhatIsOffTheScreen)
{
    region = {-20, -20, 60, 60};
    canvas->movePointer(0, 0);
    pointer.highlight = true;
    grab();
    EXPECT_EQ(colourAt(image, 19, 20), 0U);
    EXPECT_EQ(colourAt(image, 20, 19), 0U);
    EXPECT_EQ(colourAt(image, 20, 20), kRed);
}

TEST_F(X11PointerTest, UncoversWhatWasUnderItInMotion)
{
    for (std::uint32_t step = 1; step <= 40; ++step) {
        canvas->fill(region, 0x050301 * step);
        grab();
        EXPECT_EQ(colourAt(image, 5, 3), kRed) << step;
        EXPECT_EQ(colourAt(image, 4, 4), 0x050301 * step);
    }
    canvas->movePointer(9, 5);
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 7, 4}));
    EXPECT_EQ(colourAt(image, 5, 3), 0x050301U * 40);
    EXPECT_EQ(colourAt(image, 9, 5), kRed);
}

TEST_F(X11PointerTest, UncoversWhatWasUnderItOnScreensOf16Bits)
{
    tests::PrivateXServer small({64, 32, 16});
    tests::XCanvas painter(small.display());
    painter.fill({0, 0, 64, 32}, 0xffff);
    painter.setCursor(1, 1, {0, 0}, {kOpaque | kRed});
    painter.movePointer(3, 2);
    X11ScreenSource shallow(small.display());
    image = shallow.grab({0, 0, 8, 4}, pointer).image;
    EXPECT_EQ(colourAt(image, 3, 2), kRed);
    painter.movePointer(7, 3);
    image = shallow.grab({0, 0, 8, 4}, pointer).image;
    EXPECT_EQ(colourAt(image, 3, 2), 0xffffffU);
    EXPECT_EQ(colourAt(image, 7, 3), kRed);
}
