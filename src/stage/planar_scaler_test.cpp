#include "stage/planar_scaler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace quillora::stage;

namespace {

struct Planes {
    FrameSize size;
    std::vector<std::uint8_t> bytes{};

    FrameSize colourSize() const { return {(size.width + 1) / 2, (size.height + 1) / 2}; }
    std::size_t area() const { return std::size_t(size.width) * std::size_t(size.height); }
    std::size_t colourArea() const
    {
        return std::size_t(colourSize().width) * std::size_t(colourSize().height);
    }

    int y(int column, int row) const
    {
        return bytes.at(std::size_t(row) * std::size_t(size.width) + std::size_t(column));
    }
    int u(int column, int row) const
    {
        return bytes.at(area() + std::size_t(row) * std::size_t(colourSize().width) + std::size_t(column));
    }
    int v(int column, int row) const
    {
        return bytes.at(area() + colourArea() + std::size_t(row) * std::size_t(colourSize().width) +
                        std::size_t(column));
    }
};

/// A picture whose planes are even, each of another value.
Planes even(FrameSize size, std::uint8_t y, std::uint8_t u, std::uint8_t v)
{
    Planes planes{size};
    planes.bytes.assign(planes.area(), y);
    planes.bytes.insert(planes.bytes.end(), planes.colourArea(), u);
    planes.bytes.insert(planes.bytes.end(), planes.colourArea(), v);
    return planes;
}

Planes scaled(const Planes& from, FrameSize to)
{
    PlanarScaler scaler(from.size, to);
    const auto bytes = scaler.scale(from.bytes);
    return {to, {bytes.begin(), bytes.end()}};
}

/// The brightness of a place by the linear filter in floating point, for reductions up to 2 in each
/// direction.
double linearAt(const Planes& from, double column, double row)
{
    const auto at = [&](int c, int r) {
        return double(from.y(std::clamp(c, 0, from.size.width - 1), std::clamp(r, 0, from.size.height - 1)));
    };
    const int left = int(std::floor(column));
    const int top = int(std::floor(row));
    const double right = column - left;
    const double below = row - top;
    return (at(left, top) * (1 - right) + at(left + 1, top) * right) * (1 - below) +
           (at(left, top + 1) * (1 - right) + at(left + 1, top + 1) * right) * below;
}

Planes noise(FrameSize size)
{
    Planes planes = even(size, 0, 0, 0);
    std::uint32_t state = 1;
    for (auto& byte : planes.bytes) {
        state = state * 1664525 + 1013904223; // Numerical Recipes' generator
        byte = std::uint8_t(state >> 24);
    }
    return planes;
}

} // namespace

TEST(FittedFrame, FillsTheRoomInItsOwnShape)
{
    EXPECT_EQ(fitted({640, 480}, {747, 420}), (FrameSize{560, 420}));
    EXPECT_EQ(fitted({640, 480}, {173, 130}), (FrameSize{173, 130}));
    EXPECT_EQ(fitted({1280, 720}, {173, 130}), (FrameSize{173, 97}));
}

TEST(FittedFrame, IsNeverEnlarged)
{
    EXPECT_EQ(fitted({640, 480}, {1494, 840}), (FrameSize{640, 480}));
    EXPECT_EQ(fitted({640, 480}, {640, 480}), (FrameSize{640, 480}));
}

TEST(FittedFrame, IsNeverEmpty)
{
    EXPECT_EQ(fitted({640, 480}, {1, 1}), (FrameSize{1, 1}));
    EXPECT_EQ(fitted({640, 480}, {1, 400}), (FrameSize{1, 1}));
    EXPECT_EQ(fitted({2, 8192}, {400, 10}), (FrameSize{1, 10}));
}

TEST(PlanarScaler, LeavesAnEvenPictureExactlyAsItIs)
{
    for (const FrameSize to : {FrameSize{560, 420}, {173, 130}, {1, 1}, {7, 640}, {640, 3}})
        for (const int value : {0, 1, 127, 254, 255}) {
            const auto y = std::uint8_t(value);
            const auto u = std::uint8_t(255 - value);
            const Planes got = scaled(even({640, 480}, y, u, 77), to);
            ASSERT_EQ(got.bytes, even(to, y, u, 77).bytes) << to.width << 'x' << to.height << ' ' << value;
        }
}

TEST(PlanarScaler, ReducesByTheLinearFilter)
{
    const Planes from = noise({64, 48});
    const FrameSize to{47, 31};
    const Planes got = scaled(from, to);
    for (int row = 0; row < to.height; ++row)
        for (int column = 0; column < to.width; ++column) {
            const double expected =
                linearAt(from, (column + 0.5) * 64 / 47 - 0.5, (row + 0.5) * 48 / 31 - 0.5);
            ASSERT_NEAR(got.y(column, row), expected, 1.1) << column << ' ' << row;
        }
}

TEST(PlanarScaler, LeavesNoPixelOutWhereMuchIsReduced)
{
    // One bright column: wherever it stands, some of it has to be seen.
    for (int bright = 0; bright < 640; bright += 7) {
        Planes from = even({640, 480}, 0, 128, 128);
        for (int row = 0; row < 480; ++row)
            from.bytes[std::size_t(row) * 640 + std::size_t(bright)] = 255;
        const Planes got = scaled(from, {173, 130});
        int sum = 0;
        for (int column = 0; column < 173; ++column)
            sum += got.y(column, 65);
        ASSERT_NEAR(sum, 255 * 173 / 640, 12) << bright;
    }
}

TEST(PlanarScaler, KeepsTheColoursWhereTheirBrightnessIs)
{
    // The left half is of one colour, the right half of another.
    Planes from = even({640, 480}, 50, 20, 30);
    for (int row = 0; row < 480; ++row)
        for (int column = 320; column < 640; ++column)
            from.bytes[std::size_t(row) * 640 + std::size_t(column)] = 200;
    for (int row = 0; row < 240; ++row)
        for (int column = 160; column < 320; ++column) {
            from.bytes[from.area() + std::size_t(row) * 320 + std::size_t(column)] = 220;
            from.bytes[from.area() + from.colourArea() + std::size_t(row) * 320 + std::size_t(column)] = 230;
        }
    const Planes got = scaled(from, {173, 131});
    for (const int row : {0, 65, 130}) {
        EXPECT_EQ(got.y(84, row), 50);
        EXPECT_EQ(got.y(88, row), 200);
        EXPECT_EQ(got.u(41, row / 2), 20);
        EXPECT_EQ(got.u(45, row / 2), 220);
        EXPECT_EQ(got.v(41, row / 2), 30);
        EXPECT_EQ(got.v(86, row / 2), 230);
    }
}

TEST(PlanarScaler, TakesPicturesOfOneColumnAndRow)
{
    EXPECT_EQ(scaled(even({2, 2}, 9, 8, 7), {1, 1}).bytes, (std::vector<std::uint8_t>{9, 8, 7}));
    EXPECT_EQ(scaled(even({3, 2}, 9, 8, 7), {1, 2}).bytes, (std::vector<std::uint8_t>{9, 9, 8, 7}));
}
