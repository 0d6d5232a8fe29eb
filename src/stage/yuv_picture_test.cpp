#include "stage/yuv_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace quillora::stage;

namespace {

std::vector<std::uint8_t> planesOf(int width, int height, std::uint8_t y, std::uint8_t u, std::uint8_t v)
{
    const auto area = std::size_t(width * height);
    std::vector<std::uint8_t> planes(area, y);
    planes.insert(planes.end(), area / 4, u);
    planes.insert(planes.end(), area / 4, v);
    return planes;
}

std::uint32_t colourOf(std::uint8_t y, std::uint8_t u, std::uint8_t v, YuvRange range)
{
    CameraFrame frame;
    toRgb(planesOf(2, 2, y, u, v), 2, 2, range, frame);
    return frame.pixels.at(0);
}

/// The matrix of BT.601 in floating point.
std::uint32_t expected(int y, int u, int v, YuvRange range)
{
    const bool limited = range == YuvRange::limited;
    const double brightness = limited ? (y - 16) * 255.0 / 219 : y;
    const double colour = limited ? 255.0 / 224 : 1;
    const auto byte = [](double value) { return std::uint32_t(std::clamp(std::lround(value), 0L, 255L)); };
    return 0xFF000000U | byte(brightness + 1.402 * colour * (v - 128)) << 16 |
           byte(brightness - colour * (0.344136 * (u - 128) + 0.714136 * (v - 128))) << 8 |
           byte(brightness + 1.772 * colour * (u - 128));
}

int distance(std::uint32_t a, std::uint32_t b)
{
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(int(a >> shift & 0xFF) - int(b >> shift & 0xFF)));
    return largest;
}

} // namespace

TEST(YuvPicture, HasTheColoursOfTheMatrixWithinOneStep)
{
    for (const YuvRange range : {YuvRange::limited, YuvRange::full})
        for (int y = 0; y < 256; y += 5)
            for (int u = 0; u < 256; u += 15)
                for (int v = 0; v < 256; v += 15) {
                    const auto got = colourOf(std::uint8_t(y), std::uint8_t(u), std::uint8_t(v), range);
                    ASSERT_LE(distance(got, expected(y, u, v, range)), 2) << y << ' ' << u << ' ' << v;
                }
}

TEST(YuvPicture, BlackAndWhiteReachTheEnds)
{
    EXPECT_EQ(colourOf(16, 128, 128, YuvRange::limited), 0xFF000000U);
    EXPECT_EQ(colourOf(235, 128, 128, YuvRange::limited), 0xFFFFFFFFU);
    EXPECT_EQ(colourOf(0, 128, 128, YuvRange::full), 0xFF000000U);
    EXPECT_EQ(colourOf(255, 128, 128, YuvRange::full), 0xFFFFFFFFU);
}

TEST(YuvPicture, GivesEachPixelItsBrightnessAndEachFourTheirColour)
{
    auto planes = planesOf(4, 2, 0, 128, 128);
    for (std::size_t i = 0; i < 8; ++i)
        planes[i] = std::uint8_t(i * 10);
    planes[8] = 200;  // u of the left four
    planes[11] = 200; // v of the right four
    CameraFrame frame;
    toRgb(planes, 4, 2, YuvRange::full, frame);
    ASSERT_EQ(frame.width, 4);
    ASSERT_EQ(frame.height, 2);
    ASSERT_EQ(frame.pixels.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        const bool left = i % 4 < 2;
        EXPECT_LE(distance(frame.pixels[i],
                           expected(int(i) * 10, left ? 200 : 128, left ? 128 : 200, YuvRange::full)),
                  2)
            << i;
    }
}

TEST(YuvPicture, IsTheSameWhereverInARowAPixelStands)
{
    // A width that no power of two above 2 divides.
    constexpr int kWidth = 46;
    for (int y = 0; y < 256; y += 3) {
        CameraFrame frame;
        toRgb(planesOf(kWidth, 2, std::uint8_t(y), std::uint8_t(255 - y), 77), kWidth, 2, YuvRange::limited,
              frame);
        for (const auto pixel : frame.pixels)
            ASSERT_EQ(pixel, frame.pixels.back()) << y;
    }
}

TEST(YuvPicture, MayEndWithHalfOfAColoursPixels)
{
    // Three columns and one row: two places of colour, the second for one pixel alone.
    const std::vector<std::uint8_t> planes{100, 100, 100, 128, 200, 128, 128};
    CameraFrame frame;
    toRgb(planes, 3, 1, YuvRange::full, frame);
    ASSERT_EQ(frame.pixels.size(), 3U);
    EXPECT_LE(distance(frame.pixels[1], expected(100, 128, 128, YuvRange::full)), 2);
    EXPECT_LE(distance(frame.pixels[2], expected(100, 200, 128, YuvRange::full)), 2);
}

TEST(YuvPicture, IsRefusedWithoutAllOfItsPlanes)
{
    CameraFrame frame;
    EXPECT_THROW(toRgb(std::vector<std::uint8_t>(23), 4, 4, YuvRange::full, frame), std::invalid_argument);
    EXPECT_THROW(toRgb(std::vector<std::uint8_t>(19), 3, 4, YuvRange::full, frame), std::invalid_argument);
    EXPECT_THROW(toRgb({}, 0, 0, YuvRange::full, frame), std::invalid_argument);
}
