#include "capture/image_scaler.h"

#include <gtest/gtest.h>

#include <random>

using namespace quillora::capture;

namespace {

ScreenImage even(int width, int height, std::uint8_t value)
{
    ScreenImage image;
    image.resize(width, height);
    std::ranges::fill(image.pixels, value);
    return image;
}

ScreenImage scaled(const ScreenImage& from, int width, int height)
{
    ScreenImage to;
    to.resize(width, height);
    ImageScaler(from.width, from.height, width, height).scale(from, {0, 0, from.width, from.height}, to);
    return to;
}

const std::pair<int, int> kSizes[] = {{747, 420}, {746, 420}, {1920, 1080}, {1, 1},
                                      {3, 2},     {100, 900}, {745, 421}};

} // namespace

TEST(ImageScaler, LeavesAnEvenGroundExactlyAsItIs)
{
    for (const auto& [width, height] : kSizes)
        for (const int value : {0, 1, 127, 254, 255})
            for (const int byte : scaled(even(width, height, std::uint8_t(value)), 146, 120).pixels)
                ASSERT_EQ(byte, value) << width << "x" << height;
}

TEST(ImageScaler, CopiesWhereNothingIsToBeScaled)
{
    ScreenImage image = even(20, 10, 0);
    for (std::size_t i = 0; i < image.pixels.size(); ++i)
        image.pixels[i] = std::uint8_t(i * 7);
    EXPECT_EQ(scaled(image, 20, 10).pixels, image.pixels);
}

TEST(ImageScaler, KeepsAShadeAShade)
{
    ScreenImage image = even(747, 3, 0);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 747; ++x)
            for (int channel = 0; channel < 4; ++channel)
                image.pixels[std::size_t((y * 747 + x) * 4 + channel)] = std::uint8_t(x / 3);
    const ScreenImage narrower = scaled(image, 746, 3);
    for (int x = 2; x < 744; ++x)
        EXPECT_NEAR(narrower.pixels[std::size_t(x) * 4], (x + 0.5) * 747 / 746 / 3 - 0.5, 0.9);
}

TEST(ImageScaler, AveragesWhatBecomesOnePixel)
{
    // A grid of black and white, much finer than the target.
    ScreenImage image = even(800, 800, 0);
    for (int i = 0; i < 800 * 800; ++i)
        if ((i % 800 + i / 800) % 2)
            std::fill_n(image.pixels.begin() + i * 4, 4, std::uint8_t(255));
    for (const int byte : scaled(image, 100, 100).pixels)
        ASSERT_NEAR(byte, 127, 3);
}

TEST(ImageScaler, OfAChangedPartGivesWhatTheWholeGives)
{
    std::mt19937 generator(6);
    for (const auto& [width, height] : {std::pair{149, 84}, {148, 84}, {300, 170}, {31, 200}}) {
        ScreenImage from = even(width, height, 0);
        ScreenImage to;
        to.resize(148, 84);
        ImageScaler scaler(width, height, 148, 84);
        EXPECT_EQ(scaler.scale(from, {0, 0, width, height}, to), (PixelRectangle{0, 0, 148, 84}));
        for (int round = 0; round < 30; ++round) {
            const PixelRectangle part{int(generator() % unsigned(width)), int(generator() % unsigned(height)),
                                      9, 7};
            for (std::int64_t y = part.top; y < std::min<std::int64_t>(part.bottom(), height); ++y)
                for (std::int64_t x = part.left; x < std::min<std::int64_t>(part.right(), width); ++x)
                    from.pixels[std::size_t((y * width + x) * 4)] = std::uint8_t(generator());
            scaler.scale(from, part, to);
            ASSERT_EQ(to.pixels, scaled(from, 148, 84).pixels)
                << width << "x" << height << " round " << round;
        }
    }
}

TEST(ImageScaler, TouchesOnlyWhatDependsOnTheChangedPart)
{
    const ScreenImage from = even(747, 420, 9);
    ScreenImage to = even(746, 420, 1);
    const PixelRectangle touched = ImageScaler(747, 420, 746, 420).scale(from, {300, 100, 10, 10}, to);
    EXPECT_EQ(touched.top, 100);
    EXPECT_EQ(touched.height, 10);
    EXPECT_LE(touched.width, 16);
    int changed = 0;
    for (std::size_t i = 0; i < to.pixels.size(); i += 4)
        changed += to.pixels[i] != 1;
    EXPECT_EQ(changed, touched.width * touched.height);
}

TEST(ImageScaler, HasNothingToDoForAnEmptyPart)
{
    const ScreenImage from = even(30, 20, 9);
    ScreenImage to = even(20, 20, 1);
    EXPECT_TRUE(ImageScaler(30, 20, 20, 20).scale(from, {}, to).empty());
    EXPECT_TRUE(ImageScaler(30, 20, 20, 20).scale(from, {30, 0, 5, 5}, to).empty());
}
