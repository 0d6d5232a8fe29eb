#include "tests/support/fake_camera/fake_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace quillora::tests::fake_camera {
namespace {

constexpr Colour kSkin{222, 178, 148};
constexpr Colour kJacket{52, 66, 92};
constexpr Colour kBar{250, 214, 70};

bool inEllipse(int x, int y, int middleX, int middleY, double across, double down)
{
    return std::hypot((x - middleX) / across, (y - middleY) / down) <= 1;
}

Colour plainColourAt(Colour wall, int phase, int x, int y)
{
    constexpr int kSquare = 80;
    const bool left = x < kSquare;
    const bool right = x >= kWidth - kSquare;
    if (y < kSquare && (left || right))
        return left ? Colour{255, 0, 0} : Colour{0, 255, 0};
    if (y >= kHeight - kSquare && (left || right))
        return left ? Colour{0, 0, 255} : Colour{255, 255, 255};
    if (inEllipse(x, y, 320, 190, 72, 96))
        return kSkin;
    if (inEllipse(x, y, 320, 450, 180, 160))
        return kJacket;
    const int bar = 100 + phase * 110;
    return x >= bar && x < bar + 40 && y > 100 && y < 380 ? kBar : wall;
}

struct Yuv {
    double y;
    double u;
    double v;
};

/// A little noise, as every sensor has it: without it a compressed picture would be a quarter of its usual
/// size, and cost a quarter of its usual work.
Colour withNoise(Colour colour, int phase, int x, int y)
{
    auto mixed =
        std::uint32_t(x) * 73856093U ^ std::uint32_t(y) * 19349663U ^ std::uint32_t(phase) * 83492791U;
    mixed = (mixed ^ (mixed >> 13)) * 0x5BD1E995U;
    const int noise = int(mixed >> 20 & 7) - 3;
    const auto shifted = [noise](int value) { return std::uint8_t(std::clamp(value + noise, 0, 255)); };
    return {shifted(colour.red), shifted(colour.green), shifted(colour.blue)};
}

Yuv toYuv(Colour colour)
{
    const double y = 0.299 * colour.red + 0.587 * colour.green + 0.114 * colour.blue;
    return {16 + y * 219 / 255, 128 + (colour.blue - y) / 1.772 * 224 / 255,
            128 + (colour.red - y) / 1.402 * 224 / 255};
}

Colour colourAt(Colour wall, int phase, int x, int y)
{
    return withNoise(plainColourAt(wall, phase, x, y), phase, x, y);
}

std::uint8_t rounded(double value) { return std::uint8_t(std::clamp(std::lround(value), 0L, 255L)); }

} // namespace

std::vector<std::uint8_t> yuyvPicture(Colour wall, int phase)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(std::size_t(kWidth) * kHeight * 2);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; x += 2) {
            const Yuv first = toYuv(colourAt(wall, phase, x, y));
            const Yuv second = toYuv(colourAt(wall, phase, x + 1, y));
            bytes.insert(bytes.end(), {rounded(first.y), rounded((first.u + second.u) / 2), rounded(second.y),
                                       rounded((first.v + second.v) / 2)});
        }
    return bytes;
}

std::vector<std::uint8_t> jpegPicture(Colour wall, int phase)
{
    jpeg_compress_struct job{};
    jpeg_error_mgr errors{};
    job.err = jpeg_std_error(&errors);
    jpeg_create_compress(&job);
    unsigned char* file = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&job, &file, &length);
    job.image_width = kWidth;
    job.image_height = kHeight;
    job.input_components = 3;
    job.in_color_space = JCS_RGB;
    jpeg_set_defaults(&job);
    jpeg_set_quality(&job, 88, TRUE);
    // As cameras send it: colour at half the width and the whole height.
    job.comp_info[0].h_samp_factor = 2;
    job.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&job, TRUE);
    std::vector<std::uint8_t> row(std::size_t(kWidth) * 3);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const Colour colour = colourAt(wall, phase, x, y);
            row[3 * x] = colour.red;
            row[3 * x + 1] = colour.green;
            row[3 * x + 2] = colour.blue;
        }
        JSAMPROW start = row.data();
        jpeg_write_scanlines(&job, &start, 1);
    }
    jpeg_finish_compress(&job);
    const std::vector<std::uint8_t> bytes(file, file + length);
    jpeg_destroy_compress(&job);
    std::free(file);
    return bytes;
}

} // namespace quillora::tests::fake_camera
