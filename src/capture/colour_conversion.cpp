#include "capture/colour_conversion.h"

#include <algorithm>
#include <cstring>

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

/// Two rows of an image, and where they go. For the last row of an odd height both are the same.
struct RowPair {
    const std::uint8_t* upper;
    const std::uint8_t* lower;
    std::uint8_t* upperLuma;
    std::uint8_t* lowerLuma;
    std::uint8_t* blueChroma;
    std::uint8_t* redChroma;
};

std::uint8_t lumaOf(const std::uint8_t* pixel)
{
    return std::uint8_t((kLumaBlue * pixel[0] + kLumaGreen * pixel[1] + kLumaRed * pixel[2] + kLumaOffset) >>
                        kBits);
}

/// The pixels @p left and @p right of both rows; they are the same in the last column of an odd width.
void convertSquare(const RowPair& rows, int left, int right)
{
    for (const int x : {left, right}) {
        rows.upperLuma[x] = lumaOf(rows.upper + 4 * x);
        rows.lowerLuma[x] = lumaOf(rows.lower + 4 * x);
    }
    const auto sum = [&](int channel) {
        return rows.upper[4 * left + channel] + rows.upper[4 * right + channel] +
               rows.lower[4 * left + channel] + rows.lower[4 * right + channel];
    };
    const int blue = sum(0);
    const int green = sum(1);
    const int red = sum(2);
    rows.blueChroma[left / 2] = std::uint8_t(
        (kBlueChromaBlue * blue + kBlueChromaGreen * green + kBlueChromaRed * red + kChromaOffset) >>
        kChromaBits);
    rows.redChroma[left / 2] = std::uint8_t(
        (kRedChromaBlue * blue + kRedChromaGreen * green + kRedChromaRed * red + kChromaOffset) >>
        kChromaBits);
}

#if defined(__SSE2__)

/// Four pixels in 16 bits a channel: blue and red in turn, green and the unused byte in turn.
struct FourPixels {
    __m128i blueRed;
    __m128i green;
};

FourPixels load(const std::uint8_t* pixels)
{
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
    return {_mm_and_si128(bytes, _mm_set1_epi16(0xff)), _mm_srli_epi16(bytes, 8)};
}

FourPixels operator+(const FourPixels& one, const FourPixels& other)
{
    return {_mm_add_epi16(one.blueRed, other.blueRed), _mm_add_epi16(one.green, other.green)};
}

/// The sums of each pixel and its right neighbour.
__m128i pairs(__m128i first, __m128i second)
{
    const __m128 one = _mm_castsi128_ps(first);
    const __m128 two = _mm_castsi128_ps(second);
    return _mm_add_epi16(_mm_castps_si128(_mm_shuffle_ps(one, two, _MM_SHUFFLE(2, 0, 2, 0))),
                         _mm_castps_si128(_mm_shuffle_ps(one, two, _MM_SHUFFLE(3, 1, 3, 1))));
}

FourPixels pairs(const FourPixels& first, const FourPixels& second)
{
    return {pairs(first.blueRed, second.blueRed), pairs(first.green, second.green)};
}

template <int blue, int green, int red, int offset, int bits>
__m128i weighted(const FourPixels& pixels)
{
    const __m128i blueRed = _mm_madd_epi16(pixels.blueRed, _mm_set1_epi32(red * 0x10000 + (blue & 0xffff)));
    const __m128i sum = _mm_add_epi32(blueRed, _mm_madd_epi16(pixels.green, _mm_set1_epi32(green & 0xffff)));
    return _mm_srli_epi32(_mm_add_epi32(sum, _mm_set1_epi32(offset)), bits);
}

__m128i luma(const FourPixels& pixels)
{
    return weighted<kLumaBlue, kLumaGreen, kLumaRed, kLumaOffset, kBits>(pixels);
}

/// Converts as many pixels from the left as go in steps of eight; returns how many.
int convertEights(const RowPair& rows, int width)
{
    int x = 0;
    for (; x + 8 <= width; x += 8) {
        const FourPixels upper[] = {load(rows.upper + 4 * x), load(rows.upper + 4 * x + 16)};
        const FourPixels lower[] = {load(rows.lower + 4 * x), load(rows.lower + 4 * x + 16)};
        const __m128i lumas = _mm_packus_epi16(_mm_packs_epi32(luma(upper[0]), luma(upper[1])),
                                               _mm_packs_epi32(luma(lower[0]), luma(lower[1])));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(rows.upperLuma + x), lumas);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(rows.lowerLuma + x), _mm_srli_si128(lumas, 8));

        const FourPixels squares = pairs(upper[0] + lower[0], upper[1] + lower[1]);
        const __m128i blue =
            weighted<kBlueChromaBlue, kBlueChromaGreen, kBlueChromaRed, kChromaOffset, kChromaBits>(squares);
        const __m128i red =
            weighted<kRedChromaBlue, kRedChromaGreen, kRedChromaRed, kChromaOffset, kChromaBits>(squares);
        const __m128i words = _mm_packs_epi32(blue, red);
        const __m128i chromas = _mm_packus_epi16(words, words);
        const int blueFour = _mm_cvtsi128_si32(chromas);
        const int redFour = _mm_cvtsi128_si32(_mm_srli_si128(chromas, 4));
        std::memcpy(rows.blueChroma + x / 2, &blueFour, 4);
        std::memcpy(rows.redChroma + x / 2, &redFour, 4);
    }
    return x;
}

#else

int convertEights(const RowPair&, int) { return 0; }

#endif

} // namespace

void convertColours(const ScreenImageView& image, const PixelRectangle& changed, VideoPicture& picture)
{
    const PixelRectangle part = intersection(changed, {0, 0, image.width, image.height});
    if (part.empty())
        return;
    const int left = part.left & ~1;
    const int top = part.top & ~1;
    const int width = std::min(int(part.right() + 1) & ~1, image.width) - left;
    const int bottom = std::min(int(part.bottom() + 1) & ~1, image.height);

    const auto at = [&](int y) { return std::size_t(y) * std::size_t(image.width) + std::size_t(left); };
    // Luma and chroma at once: what is dear is to fetch the pixels, which somebody else has written.
    for (int y = top; y < bottom; y += 2) {
        const int next = std::min(y + 1, bottom - 1);
        const std::size_t chromaAt =
            std::size_t(y / 2) * std::size_t(picture.chromaWidth()) + std::size_t(left / 2);
        const RowPair rows{image.pixels + 4 * at(y),
                           image.pixels + 4 * at(next),
                           picture.luma.data() + at(y),
                           picture.luma.data() + at(next),
                           picture.blueChroma.data() + chromaAt,
                           picture.redChroma.data() + chromaAt};
        for (int x = convertEights(rows, width); x < width; x += 2)
            convertSquare(rows, x, std::min(x + 1, width - 1));
    }
}

} // namespace quillora::capture
