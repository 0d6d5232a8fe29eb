#include "capture/colour_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace quillora::capture;

namespace {

ScreenImage noise(int width, int height, unsigned seed = 1)
{
    ScreenImage image;
    image.resize(width, height);
    std::mt19937 generator(seed);
    for (auto& byte : image.pixels)
        byte = std::uint8_t(generator());
    return image;
}

VideoPicture converted(const ScreenImage& image)
{
    VideoPicture picture(image.width, image.height);
    convertColours(image, {0, 0, image.width, image.height}, picture);
    return picture;
}

ScreenImage even(std::uint8_t blue, std::uint8_t green, std::uint8_t red)
{
    ScreenImage image;
    image.resize(18, 2);
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) {
        image.pixels[i] = blue;
        image.pixels[i + 1] = green;
        image.pixels[i + 2] = red;
        image.pixels[i + 3] = 0xaa;
    }
    return image;
}

struct Expected {
    int blue, green, red;
    int luma, blueChroma, redChroma;
};

} // namespace

TEST(ColourConversion, GivesTheColourBarsOfTheStandard)
{
    for (const Expected& colour : {Expected{0, 0, 0, 16, 128, 128}, Expected{255, 255, 255, 235, 128, 128},
                                   Expected{0, 0, 255, 81, 90, 240}, Expected{0, 255, 0, 145, 54, 34},
                                   Expected{255, 0, 0, 41, 240, 110}, Expected{0, 255, 255, 210, 16, 146}}) {
        const VideoPicture picture =
            converted(even(std::uint8_t(colour.blue), std::uint8_t(colour.green), std::uint8_t(colour.red)));
        for (const int luma : picture.luma)
            EXPECT_EQ(luma, colour.luma);
        for (const int chroma : picture.blueChroma)
            EXPECT_EQ(chroma, colour.blueChroma);
        for (const int chroma : picture.redChroma)
            EXPECT_EQ(chroma, colour.redChroma);
    }
}

TEST(ColourConversion, IsExactToTheRoundingEverywhere)
{
    for (const auto& [width, height] :
         {std::pair{746, 4}, {747, 5}, {1, 1}, {2, 3}, {7, 2}, {8, 8}, {9, 9}, {31, 2}}) {
        const ScreenImage image = noise(width, height);
        const VideoPicture picture = converted(image);
        const auto at = [&](int x, int y, int channel) {
            return double(image.pixels[std::size_t(
                (std::min(y, height - 1) * width + std::min(x, width - 1)) * 4 + channel)]);
        };
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const double exact =
                    16 + (0.299 * at(x, y, 2) + 0.587 * at(x, y, 1) + 0.114 * at(x, y, 0)) * 219 / 255;
                ASSERT_NEAR(picture.luma[std::size_t(y * width + x)], exact, 0.51);
            }
        for (int y = 0; y < picture.chromaHeight(); ++y)
            for (int x = 0; x < picture.chromaWidth(); ++x) {
                const auto mean = [&](int channel) {
                    return (at(2 * x, 2 * y, channel) + at(2 * x + 1, 2 * y, channel) +
                            at(2 * x, 2 * y + 1, channel) + at(2 * x + 1, 2 * y + 1, channel)) /
                           4;
                };
                const double luma = 0.299 * mean(2) + 0.587 * mean(1) + 0.114 * mean(0);
                const auto place = std::size_t(y * picture.chromaWidth() + x);
                ASSERT_NEAR(picture.blueChroma[place], 128 + (mean(0) - luma) / 1.772 * 224 / 255, 0.52);
                ASSERT_NEAR(picture.redChroma[place], 128 + (mean(2) - luma) / 1.402 * 224 / 255, 0.52);
            }
    }
}

TEST(ColourConversion, OfAChangedPartEqualsThatOfTheWhole)
{
    std::mt19937 generator(4);
    for (const auto& [width, height] : {std::pair{64, 40}, {63, 41}}) {
        ScreenImage image = noise(width, height);
        VideoPicture picture = converted(image);
        for (int round = 0; round < 50; ++round) {
            const PixelRectangle part{int(generator() % unsigned(width)), int(generator() % unsigned(height)),
                                      int(generator() % 20), int(generator() % 20)};
            for (std::int64_t y = part.top; y < std::min<std::int64_t>(part.bottom(), height); ++y)
                for (std::int64_t x = part.left; x < std::min<std::int64_t>(part.right(), width); ++x)
                    image.pixels[std::size_t((y * width + x) * 4 + 1)] = std::uint8_t(generator());
            convertColours(image, part, picture);
            const VideoPicture whole = converted(image);
            ASSERT_EQ(picture.luma, whole.luma);
            ASSERT_EQ(picture.blueChroma, whole.blueChroma);
            ASSERT_EQ(picture.redChroma, whole.redChroma);
        }
    }
}
