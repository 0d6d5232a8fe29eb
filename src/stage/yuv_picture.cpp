#include "stage/yuv_picture.h"

#include <algorithm>
#include <stdexcept>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillora::stage {
namespace {

/// The matrix in sixteen bits, of which eight fit into one instruction: a shifted sample times a factor, of
/// which the upper half is kept, is the term with two binary places.
struct Matrix {
    std::int16_t black;
    std::int16_t brightness;
    std::int16_t redOfV;
    std::int16_t greenOfU;
    std::int16_t greenOfV;
    std::int16_t blueOfU;
};

constexpr int kBrightnessShift = 6;
constexpr int kColourShift = 7;

constexpr std::int16_t factor(double value, int shift)
{
    const double scaled = value * double(1 << (18 - shift));
    return std::int16_t(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
}

constexpr Matrix kLimited{16,
                          factor(255.0 / 219, kBrightnessShift),
                          factor(1.402 * 255 / 224, kColourShift),
                          factor(-0.344136 * 255 / 224, kColourShift),
                          factor(-0.714136 * 255 / 224, kColourShift),
                          factor(1.772 * 255 / 224, kColourShift)};
constexpr Matrix kFull{0,
                       factor(1, kBrightnessShift),
                       factor(1.402, kColourShift),
                       factor(-0.344136, kColourShift),
                       factor(-0.714136, kColourShift),
                       factor(1.772, kColourShift)};

std::int16_t upperHalf(std::int16_t a, std::int16_t b) { return std::int16_t((int(a) * int(b)) >> 16); }

std::uint32_t toByte(int quarters) { return std::uint32_t(std::clamp((quarters + 2) >> 2, 0, 255)); }

/// What the colour planes add to two rows of pixels, each term repeated for the two pixels that share it.
struct ColourTerms {
    std::vector<std::int16_t> red;
    std::vector<std::int16_t> green;
    std::vector<std::int16_t> blue;

    /// Of @p pairs of pixels.
    explicit ColourTerms(int pairs) : red(2 * pairs), green(2 * pairs), blue(2 * pairs) {}

    void read(const std::uint8_t* u, const std::uint8_t* v, int pairs, const Matrix& matrix)
    {
        for (int x = 0; x < pairs; ++x) {
            const auto blueness = std::int16_t((u[x] - 128) << kColourShift);
            const auto redness = std::int16_t((v[x] - 128) << kColourShift);
            const auto green1 =
                std::int16_t(upperHalf(blueness, matrix.greenOfU) + upperHalf(redness, matrix.greenOfV));
            red[2 * x] = red[2 * x + 1] = upperHalf(redness, matrix.redOfV);
            green[2 * x] = green[2 * x + 1] = green1;
            blue[2 * x] = blue[2 * x + 1] = upperHalf(blueness, matrix.blueOfU);
        }
    }
};

#if defined(__SSE2__)
__m128i load(const std::int16_t* terms) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(terms)); }

__m128i toBytes(__m128i brightness, __m128i colour)
{
    const __m128i quarters = _mm_add_epi16(_mm_add_epi16(brightness, colour), _mm_set1_epi16(2));
    const __m128i whole = _mm_srai_epi16(quarters, 2);
    return _mm_packus_epi16(whole, whole);
}

void convertEight(const std::uint8_t* brightness, __m128i red, __m128i green, __m128i blue,
                  const Matrix& matrix, std::uint32_t* pixels)
{
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(brightness));
    const __m128i above =
        _mm_sub_epi16(_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), _mm_set1_epi16(matrix.black));
    const __m128i y =
        _mm_mulhi_epi16(_mm_slli_epi16(above, kBrightnessShift), _mm_set1_epi16(matrix.brightness));
    const __m128i blueGreen = _mm_unpacklo_epi8(toBytes(y, blue), toBytes(y, green));
    const __m128i redAlpha = _mm_unpacklo_epi8(toBytes(y, red), _mm_set1_epi8(-1));
    auto* const to = reinterpret_cast<__m128i*>(pixels);
    _mm_storeu_si128(to, _mm_unpacklo_epi16(blueGreen, redAlpha));
    _mm_storeu_si128(to + 1, _mm_unpackhi_epi16(blueGreen, redAlpha));
}
#endif

void convertRow(const std::uint8_t* brightness, const ColourTerms& terms, int width, const Matrix& matrix,
                std::uint32_t* pixels)
{
    const std::int16_t* red = terms.red.data();
    const std::int16_t* green = terms.green.data();
    const std::int16_t* blue = terms.blue.data();
    int x = 0;
#if defined(__SSE2__)
    for (; x + 8 <= width; x += 8)
        convertEight(brightness + x, load(red + x), load(green + x), load(blue + x), matrix, pixels + x);
#endif
    for (; x < width; ++x) {
        const std::int16_t y =
            upperHalf(std::int16_t((brightness[x] - matrix.black) << kBrightnessShift), matrix.brightness);
        pixels[x] = 0xFF000000U | toByte(y + red[x]) << 16 | toByte(y + green[x]) << 8 | toByte(y + blue[x]);
    }
}

} // namespace

void toRgb(std::span<const std::uint8_t> planes, int width, int height, YuvRange range, CameraFrame& frame)
{
    const std::size_t area = std::size_t(width) * std::size_t(height);
    const int pairs = (width + 1) / 2;
    const std::size_t colourArea = std::size_t(pairs) * std::size_t((height + 1) / 2);
    if (width <= 0 || height <= 0 || planes.size() < area + 2 * colourArea)
        throw std::invalid_argument("a camera picture without all of its planes");
    const Matrix& matrix = range == YuvRange::limited ? kLimited : kFull;
    frame.width = width;
    frame.height = height;
    frame.pixels.resize(area);
    const std::uint8_t* u = planes.data() + area;
    const std::uint8_t* v = u + colourArea;
    ColourTerms terms(pairs);
    for (int y = 0; y < height; ++y) {
        if (y % 2 == 0)
            terms.read(u + y / 2 * pairs, v + y / 2 * pairs, pairs, matrix);
        convertRow(planes.data() + std::size_t(y) * width, terms, width, matrix,
                   frame.pixels.data() + std::size_t(y) * width);
    }
}

} // namespace quillora::stage
