#include "capture/pointer_painter.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace quillora::capture;

namespace {

ScreenImage plainImage(int width, int height, std::uint8_t value)
{
    ScreenImage image;
    image.resize(width, height);
    std::fill(image.pixels.begin(), image.pixels.end(), value);
    return image;
}

struct Colour {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const Colour&) const = default;
};

Colour colourAt(const ScreenImage& image, int x, int y)
{
    const std::uint8_t* pixel = image.pixels.data() + 4 * (y * image.width + x);
    return {pixel[2], pixel[1], pixel[0]};
}

/// Relative luminance as WCAG 2 defines it.
double luminance(Colour colour)
{
    const auto linear = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double contrast(Colour light, Colour dark) { return (luminance(light) + 0.05) / (luminance(dark) + 0.05); }

const CursorImage kCursor{2, 2, {1, 0}, {0xff102030, 0xff405060, 0x00000000, 0x80400000}};

/// Grid of an image of greys: "." where it is black, "#" where it isn't.
std::string shape(const ScreenImage& image)
{
    std::string grid;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x)
            grid += colourAt(image, x, y) == Colour{} ? '.' : '#';
        grid += '\n';
    }
    return grid;
}

} // namespace

TEST(PaintCursor, PutsTheHotSpotAtThePosition)
{
    ScreenImage image = plainImage(4, 3, 0);
    paintCursor(image, {0, 0, 4, 3}, kCursor, {2, 1});
    EXPECT_EQ(shape(image), "....\n"
                            ".##.\n"
                            "..#.\n");
    EXPECT_EQ(colourAt(image, 2, 1), (Colour{0x40, 0x50, 0x60}));
}

TEST(PaintCursor, LetsShowThroughWhatItDoesNotCover)
{
    ScreenImage image = plainImage(4, 3, 200);
    paintCursor(image, {0, 0, 4, 3}, kCursor, {2, 1});
    EXPECT_EQ(colourAt(image, 1, 2), (Colour{200, 200, 200}));
    EXPECT_EQ(colourAt(image, 2, 2), (Colour{0x40 + 100, 100, 100}));
}

TEST(PaintCursor, IsCutOffAtTheEdges)
{
    ScreenImage image = plainImage(2, 2, 0);
    paintCursor(image, {0, 0, 2, 2}, kCursor, {0, 1});
    EXPECT_EQ(shape(image), "..\n"
                            "#.\n");
    paintCursor(image, {0, 0, 2, 2}, kCursor, {50, -70});
    EXPECT_EQ(shape(image), "..\n"
                            "#.\n");
}

TEST(PaintCursor, StaysInsideTheClip)
{
    ScreenImage image = plainImage(4, 3, 0);
    paintCursor(image, {0, 0, 2, 3}, kCursor, {2, 1});
    EXPECT_EQ(shape(image), "....\n"
                            ".#..\n"
                            "....\n");
}

TEST(PaintHighlight, IsADiscOfTheDiameterAroundThePosition)
{
    ScreenImage image = plainImage(9, 9, 0);
    paintHighlight(image, {0, 0, 9, 9}, {4, 4}, 7);
    EXPECT_EQ(shape(image), ".........\n"
                            "...###...\n"
                            "..#####..\n"
                            ".#######.\n"
                            ".#######.\n"
                            ".#######.\n"
                            "..#####..\n"
                            "...###...\n"
                            ".........\n");
    EXPECT_EQ(highlightArea({4, 4}, 7), (PixelRectangle{1, 1, 7, 7}));
}

TEST(PaintHighlight, Covers35PixelsAcross)
{
    EXPECT_EQ(highlightArea({100, 100}, 35), (PixelRectangle{83, 83, 35, 35}));
}

TEST(PaintHighlight, KeepsDarkTextOnLightGroundReadable)
{
    ScreenImage text = plainImage(35, 35, 0);
    ScreenImage ground = plainImage(35, 35, 255);
    paintHighlight(text, {0, 0, 35, 35}, {17, 17}, 35);
    paintHighlight(ground, {0, 0, 35, 35}, {17, 17}, 35);
    for (int y = 0; y < 35; ++y)
        for (int x = 0; x < 35; ++x)
            EXPECT_GE(contrast(colourAt(ground, x, y), colourAt(text, x, y)), 7) << x << " " << y;
}

TEST(PaintHighlight, ShowsOnLightAndOnDarkGround)
{
    ScreenImage light = plainImage(35, 35, 255);
    ScreenImage dark = plainImage(35, 35, 0);
    paintHighlight(light, {0, 0, 35, 35}, {17, 17}, 35);
    paintHighlight(dark, {0, 0, 35, 35}, {17, 17}, 35);
    EXPECT_LT(colourAt(light, 17, 17).blue, 150);
    EXPECT_GT(colourAt(dark, 17, 17).red, 50);
}

TEST(PaintHighlight, FadesOutTowardsItsEdge)
{
    ScreenImage image = plainImage(35, 35, 255);
    paintHighlight(image, {0, 0, 35, 35}, {17, 17}, 35);
    const int middle = colourAt(image, 17, 17).blue;
    const int nearEdge = colourAt(image, 2, 17).blue;
    const int edge = colourAt(image, 0, 17).blue;
    EXPECT_LT(middle, nearEdge);
    EXPECT_LT(nearEdge, edge);
    EXPECT_LT(edge, 255);
    EXPECT_EQ(colourAt(image, 0, 0), (Colour{255, 255, 255}));
}

TEST(PaintHighlight, DrawsNothingForADiameterBelowOne)
{
    ScreenImage image = plainImage(3, 3, 0);
    paintHighlight(image, {0, 0, 3, 3}, {1, 1}, 0);
    paintHighlight(image, {0, 0, 3, 3}, {1, 1}, -35);
    EXPECT_EQ(shape(image), "...\n...\n...\n");
}

TEST(PaintHighlight, TakesAnyDiameterAndPosition)
{
    ScreenImage image = plainImage(3, 1, 0);
    paintHighlight(image, {0, 0, 3, 1}, {-20, 5}, 2'000'000'000);
    EXPECT_EQ(shape(image), "###\n");
}
