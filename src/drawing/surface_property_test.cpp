#include "drawing/surface.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/pixel_grid.h"
#include "tests/support/random_shape.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>

using namespace quillora;
using namespace quillora::drawing;
using namespace quillora::tests;

namespace {

constexpr int kShapes = 3000;
constexpr Colour kPenColour = rgb(0x12, 0x34, 0x56);
constexpr Colour kBrushColour = rgb(0x81, 0x42, 0x24);

/// A seed of its own for each test, the same each time, so that what fails once fails again.
std::mt19937 randomFor(unsigned seed) { return std::mt19937(seed); }

RasterImage noise(std::mt19937& random, int width, int height)
{
    RasterImage image(width, height);
    for (int y = 0; y < height; ++y)
        for (Colour& pixel : image.row(y))
            pixel = static_cast<Colour>(random()) & kColourBits;
    return image;
}

void setColours(Surface& surface, RasterOperation mode)
{
    surface.DrawMode = mode;
    surface.ForeColor = kPenColour;
    surface.FillColor = kBrushColour;
}

} // namespace

TEST(SurfaceProperty, AnyShapeDrawnTwiceByExclusiveOrRestoresEveryPixel)
{
    std::mt19937 random = randomFor(1);
    Surface surface(97, 61, kPaper);
    const RasterImage before = noise(random, 97, 61);
    surface.setPicture(before);
    setColours(surface, RasterOperation::xorPen);
    int drew = 0;
    for (int count = 0; count < kShapes; ++count) {
        const RandomShape shape = RandomShape::make(random, 97, 61, 40);
        shape.setProperties(surface);
        shape.draw(surface);
        drew += surface.Image() != before ? 1 : 0;
        shape.draw(surface);
        ASSERT_EQ(surface.Image(), before) << shape;
    }
    EXPECT_GT(drew, kShapes / 2);
}

TEST(SurfaceProperty, AnyShapeTouchesEachOfItsPixelsOnceAlone)
{
    std::mt19937 random = randomFor(2);
    for (int count = 0; count < kShapes; ++count) {
        const RandomShape shape = RandomShape::make(random, 97, 61, 40);
        Surface copied(97, 61, 0);
        Surface xored(97, 61, 0);
        setColours(copied, RasterOperation::copyPen);
        setColours(xored, RasterOperation::xorPen);
        shape.setProperties(copied);
        shape.setProperties(xored);
        shape.draw(copied);
        shape.draw(xored);
        // Over black the two modes give the same colours, unless a pixel is touched more than once.
        ASSERT_EQ(copied.Image(), xored.Image()) << shape;
    }
}

TEST(SurfaceProperty, AnyShapeIsTheSameClippedAsUnclipped)
{
    std::mt19937 random = randomFor(3);
    // Gaps of dotted outlines keep to the picture: a whole number of dots and gaps to the side they lie the
    // same.
    const base::PixelRectangle window{60, 48, 37, 29};
    for (int count = 0; count < kShapes; ++count) {
        const RandomShape shape = RandomShape::make(random, 160, 120, 20);
        Surface whole(160, 120, kPaper);
        Surface cut(window.width, window.height, kPaper);
        setColours(whole, RasterOperation::xorPen);
        setColours(cut, RasterOperation::xorPen);
        shape.setProperties(whole);
        shape.setProperties(cut);
        shape.draw(whole);
        shape.draw(cut, -window.left, -window.top);
        ASSERT_EQ(
            pixelGrid(cut.Image(), {{'.', kPaper}, {'#', kPaper ^ kPenColour}, {'o', kPaper ^ kBrushColour}}),
            pixelGrid(whole.Image(), window,
                      {{'.', kPaper}, {'#', kPaper ^ kPenColour}, {'o', kPaper ^ kBrushColour}}))
            << shape;
    }
}

TEST(SurfaceProperty, AnyShapeChangesNothingOutsideTheRectanglesThatItTells)
{
    std::mt19937 random = randomFor(4);
    FakeSurfaceScreen screen;
    Surface surface(97, 61, kPaper, &screen);
    setColours(surface, RasterOperation::xorPen);
    for (int count = 0; count < kShapes; ++count) {
        const RandomShape shape = RandomShape::make(random, 97, 61, 40);
        const RasterImage before = surface.Image();
        shape.setProperties(surface);
        screen.shown.clear();
        shape.draw(surface);
        surface.Refresh();
        base::PixelRectangle told;
        for (const base::PixelRectangle& rectangle : screen.shown)
            told = base::boundingBox(told, rectangle);
        ASSERT_EQ(base::intersection(told, surface.Image().bounds()), told) << shape;
        for (int y = 0; y < surface.height(); ++y)
            for (int x = 0; x < surface.width(); ++x)
                ASSERT_TRUE(before.at(x, y) == surface.Image().at(x, y) ||
                            !base::intersection(told, {x, y, 1, 1}).empty())
                    << shape;
    }
}

TEST(SurfaceProperty, AnyShapeOfAnySizeTakesNoLongerThanTheSurfaceExplains)
{
    std::mt19937 random = randomFor(5);
    constexpr int farthest = 1'000'000'000;
    Surface surface(747, 420, kPaper);
    setColours(surface, RasterOperation::xorPen);
    const auto begun = std::chrono::steady_clock::now();
    for (int count = 0; count < 1000; ++count) {
        RandomShape shape = RandomShape::make(random, 747, 420, farthest);
        shape.radius *= 1'000'000;
        shape.setProperties(surface);
        surface.DrawWidth = count % 2 == 0 ? Surface::kWidestPen : shape.width;
        shape.draw(surface);
    }
    // A walk along one such outline alone would take seconds.
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(60));
}

TEST(SurfaceProperty, AnyShapeOnASurfaceWithoutPixelsDrawsNothing)
{
    std::mt19937 random = randomFor(6);
    for (const auto& [width, height] : {std::pair{0, 0}, {0, 40}, {40, 0}, {-5, 3}}) {
        Surface surface(width, height, kPaper);
        for (int count = 0; count < 200; ++count) {
            const RandomShape shape = RandomShape::make(random, 40, 40, 20);
            shape.setProperties(surface);
            shape.draw(surface);
        }
        EXPECT_TRUE(surface.Image().bounds().empty());
    }
}

TEST(SurfaceProperty, AnyFillFillsWhatIsJoinedToItsStartAndNothingElse)
{
    std::mt19937 random = randomFor(7);
    for (int count = 0; count < 300; ++count) {
        // Walls at random: many small caves, and some that wind.
        Surface surface(31, 23, kPaper);
        const int share = std::uniform_int_distribution(10, 60)(random);
        for (int y = 0; y < 23; ++y)
            for (int x = 0; x < 31; ++x)
                if (std::uniform_int_distribution(0, 99)(random) < share)
                    surface.SetPixel(x, y, kInk);
        const base::PixelPoint start{std::uniform_int_distribution(0, 30)(random),
                                     std::uniform_int_distribution(0, 22)(random)};
        const Colour colour = surface.GetPixel(start.x, start.y);
        RasterImage expected = surface.Image();
        std::vector<base::PixelPoint> waiting{start};
        while (!waiting.empty()) {
            const base::PixelPoint point = waiting.back();
            waiting.pop_back();
            if (!expected.contains(point.x, point.y) || expected.at(point.x, point.y) != colour)
                continue;
            expected.at(point.x, point.y) = kPaint;
            for (const auto& [right, down] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                waiting.push_back({point.x + right, point.y + down});
        }
        surface.FillStyle = FillPattern::solid;
        surface.FillColor = kPaint;
        surface.ExtFloodFill(start.x, start.y, colour);
        ASSERT_EQ(pixelGrid(surface.Image()), pixelGrid(expected)) << start.x << ", " << start.y;
    }
}
