#include "capture/colour_conversion.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillora::capture {

namespace {

// The standard's coefficients, scaled to the limited range and multiplied by 2^15.
constexpr int kBits = 15;
constexpr int kLumaBlue = 3208;
constexpr int kLumaGreen = 16519;
constexpr int kLumaRed = 8414;
constexpr int kBlueChromaBlue = 14392;
constexpr int kBlueChromaGreen = -9535;
constexpr int kBlueChromaRed = -4857;
constexpr int kRedChromaBlue = -2340;
constexpr int kRedChromaGreen = -12052;
constexpr int kRedChromaRed = 14392;

constexpr int kLumaOffset = (16 << kBits) + (1 << (kBits - 1));
/// Sums of four pixels are converted, hence two bits more.
constexpr int kChromaBits = kBits + 2;
constexpr int kChromaOffset = (128 << kChromaBits) + (1 << (kChromaBits - 1));

/// @p x rounded down to the start of a group of as many pixels as one step of the fast path takes.
constexpr int kPixelsAStep = 8;

void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* luma)
{
    int x = 0;
#if defined(__SSE2__)
    const __m128i coefficients =
        _mm_setr_epi16(kLumaBlue, kLumaGreen, kLumaRed, 0, kLumaBlue, kLumaGreen, kLumaRed, 0);
    const __m128i offset = _mm_set1_epi32(kLumaOffset);
    const __m128i zero = _mm_setzero_si128();
    const auto four = [&](const std::uint8_t* at) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const __m128 low = _mm_castsi128_ps(_mm_madd_epi16(_mm_unpacklo_epi8(bytes, zero), coefficients));
        const __m128 high = _mm_castsi128_ps(_mm_madd_epi16(_mm_unpackhi_epi8(bytes, zero), coefficients));
        const __m128i blueGreen = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)));
        const __m128i red = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1)));
        return _mm_srli_epi32(_mm_add_epi32(_mm_add_epi32(blueGreen, red), offset), kBits);
    };
    for (; x + kPixelsAStep <= count; x += kPixelsAStep) {
        const __m128i words = _mm_packs_epi32(four(pixels + 4 * x), four(pixels + 4 * x + 16));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(luma + x), _mm_packus_epi16(words, words));
    }
#endif
    for (; x < count; ++x) {
        const std::uint8_t* pixel = pixels + 4 * x;
        luma[x] = std::uint8_t(
            (kLumaBlue * pixel[0] + kLumaGreen * pixel[1] + kLumaRed * pixel[2] + kLumaOffset) >> kBits);
    }
}

/// @p count is of chroma values; @p next is the row below, or the same one at the lower edge of an odd
/// height.
/// @p last is the last pixel of the row that may be looked at.
void chromaRow(const std::uint8_t* row, const std::uint8_t* next, int count, int last,
               std::uint8_t* blueChroma, std::uint8_t* redChroma)
{
    int x = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i blueCoefficients = _mm_setr_epi16(kBlueChromaBlue, kBlueChromaGreen, kBlueChromaRed, 0,
                                                    kBlueChromaBlue, kBlueChromaGreen, kBlueChromaRed, 0);
    const __m128i redCoefficients = _mm_setr_epi16(kRedChromaBlue, kRedChromaGreen, kRedChromaRed, 0,
                                                   kRedChromaBlue, kRedChromaGreen, kRedChromaRed, 0);
    const __m128i offset = _mm_set1_epi32(kChromaOffset);
    // The sums over squares of 2 by 2 pixels, of two squares.
    const auto twoSums = [&](int at) {
        const __m128i upper = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + 4 * at));
        const __m128i lower = _mm_loadu_si128(reinterpret_cast<const __m128i*>(next + 4 * at));
        const __m128i first = _mm_add_epi16(_mm_unpacklo_epi8(upper, zero), _mm_unpacklo_epi8(lower, zero));
        const __m128i second = _mm_add_epi16(_mm_unpackhi_epi8(upper, zero), _mm_unpackhi_epi8(lower, zero));
        return _mm_add_epi16(_mm_unpacklo_epi64(first, second), _mm_unpackhi_epi64(first, second));
    };
    const auto fourValues = [&](__m128i one, __m128i two, __m128i coefficients) {
        const __m128 low = _mm_castsi128_ps(_mm_madd_epi16(one, coefficients));
        const __m128 high = _mm_castsi128_ps(_mm_madd_epi16(two, coefficients));
        const __m128i blueGreen = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)));
        const __m128i red = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1)));
        return _mm_srli_epi32(_mm_add_epi32(_mm_add_epi32(blueGreen, red), offset), kChromaBits);
    };
    for (; x + 4 <= count && 2 * x + kPixelsAStep - 1 <= last; x += 4) {
        const __m128i one = twoSums(2 * x);
        const __m128i two = twoSums(2 * x + 4);
        const __m128i blue = fourValues(one, two, blueCoefficients);
        const __m128i red = fourValues(one, two, redCoefficients);
        const __m128i words = _mm_packs_epi32(blue, red);
        const __m128i values = _mm_packus_epi16(words, words);
        const int blueFour = _mm_cvtsi128_si32(values);
        const int redFour = _mm_cvtsi128_si32(_mm_srli_si128(values, 4));
        std::copy_n(reinterpret_cast<const std::uint8_t*>(&blueFour), 4, blueChroma + x);
        std::copy_n(reinterpret_cast<const std::uint8_t*>(&redFour), 4, redChroma + x);
    }
#endif
    for (; x < count; ++x) {
        const int left = 4 * (2 * x);
        const int right = 4 * std::min(2 * x + 1, last);
        const auto sum = [&](int channel) {
            return row[left + channel] + row[right + channel] + next[left + channel] + next[right + channel];
        };
        const int blue = sum(0);
        const int green = sum(1);
        const int red = sum(2);
        blueChroma[x] = std::uint8_t(
            (kBlueChromaBlue * blue + kBlueChromaGreen * green + kBlueChromaRed * red + kChromaOffset) >>
            kChromaBits);
        redChroma[x] = std::uint8_t(
            (kRedChromaBlue * blue + kRedChromaGreen * green + kRedChromaRed * red + kChromaOffset) >>
            kChromaBits);
    }
}

} // namespace

void convertColours(const ScreenImage& image, const PixelRectangle& changed, VideoPicture& picture)
{
    const PixelRectangle part = intersection(changed, {0, 0, image.width, image.height});
    if (part.empty())
        return;
    const int left = part.left & ~1;
    const int top = part.top & ~1;
    const int right = std::min(int(part.right() + 1) & ~1, image.width);
    const int bottom = std::min(int(part.bottom() + 1) & ~1, image.height);

    const auto row = [&](int y) {
        return image.pixels.data() + (std::size_t(y) * std::size_t(image.width) + std::size_t(left)) * 4;
    };
    for (int y = top; y < bottom; ++y)
        lumaRow(row(y), right - left,
                picture.luma.data() + std::size_t(y) * std::size_t(picture.width) + std::size_t(left));
    for (int y = top; y < bottom; y += 2) {
        const std::size_t at =
            std::size_t(y / 2) * std::size_t(picture.chromaWidth()) + std::size_t(left / 2);
        chromaRow(row(y), row(std::min(y + 1, bottom - 1)), (right - left + 1) / 2, right - left - 1,
                  picture.blueChroma.data() + at, picture.redChroma.data() + at);
    }
}

} // namespace quillora::capture
