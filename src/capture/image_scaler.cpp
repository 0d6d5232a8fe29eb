#include "capture/image_scaler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillora::capture {

namespace {

using base::ScalingAxis;

constexpr int kHalf = 1 << (ScalingAxis::kWeightBits - 1);

double catmullRom(double distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return (1.5 * x - 2.5) * x * x + 1;
    return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

/// The one column less of the video needs no fifth tap.
constexpr base::ScalingFilter kCubic{
    .weight = catmullRom, .radius = 2, .largestUnwidened = 1.05, .tapsInGroupsOf = 4};

/// One pixel of four bytes, the weighted sum of @p taps pixels in a row.
void sumPixels(const std::uint8_t* pixels, const std::int16_t* weights, int taps, std::uint8_t* to)
{
    int tap = 0;
    std::array<int, 4> sums{kHalf, kHalf, kHalf, kHalf};
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    __m128i sum = _mm_set1_epi32(kHalf);
    for (; tap + 4 <= taps; tap += 4) {
        const __m128i four = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + 4 * tap));
        const __m128i weight = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(weights + tap));
        // The bytes of neighbours beside each other, then as words, to be multiplied with a pair of weights.
        const __m128i pairs = _mm_unpacklo_epi8(four, _mm_srli_si128(four, 4));
        const __m128i nextPairs = _mm_unpackhi_epi8(four, _mm_srli_si128(four, 4));
        sum = _mm_add_epi32(sum,
                            _mm_madd_epi16(_mm_unpacklo_epi8(pairs, zero), _mm_shuffle_epi32(weight, 0x00)));
        sum = _mm_add_epi32(
            sum, _mm_madd_epi16(_mm_unpacklo_epi8(nextPairs, zero), _mm_shuffle_epi32(weight, 0x55)));
    }
    if (tap == taps) {
        const __m128i words = _mm_packs_epi32(_mm_srai_epi32(sum, ScalingAxis::kWeightBits), zero);
        const int pixel = _mm_cvtsi128_si32(_mm_packus_epi16(words, words));
        std::memcpy(to, &pixel, sizeof pixel);
        return;
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(sums.data()), sum);
#endif
    for (; tap < taps; ++tap)
        for (int channel = 0; channel < 4; ++channel)
            sums[std::size_t(channel)] += weights[tap] * pixels[4 * tap + channel];
    for (int channel = 0; channel < 4; ++channel)
        to[channel] =
            std::uint8_t(std::clamp(sums[std::size_t(channel)] >> ScalingAxis::kWeightBits, 0, 255));
}

} // namespace

ImageScaler::ImageScaler(int fromWidth, int fromHeight, int toWidth, int toHeight)
    : m_columns(fromWidth, toWidth, double(fromWidth) / toWidth, kCubic),
      m_rows(fromHeight, toHeight, double(fromHeight) / toHeight, kCubic)
{}

PixelRectangle ImageScaler::scale(const ScreenImageView& from, const PixelRectangle& changed, ScreenImage& to)
{
    const PixelRectangle part = intersection(changed, {0, 0, from.width, from.height});
    if (part.empty())
        return {};
    const auto [left, right] = m_columns.dependentOn(part.left, int(part.right()));
    const auto [top, bottom] = m_rows.dependentOn(part.top, int(part.bottom()));
    if (right <= left || bottom <= top)
        return {};

    const int sourceLeft = m_columns.first[std::size_t(left)];
    const int sourceRight = m_columns.first[std::size_t(right - 1)] + m_columns.taps;
    const std::ptrdiff_t stride = std::ptrdiff_t(from.width) * 4;
    m_line.resize(std::size_t(sourceRight - sourceLeft) * 4);
    for (int y = top; y < bottom; ++y) {
        const std::uint8_t* line = from.pixels + m_rows.first[std::size_t(y)] * stride + sourceLeft * 4;
        if (m_rows.taps > 1) {
            base::sumLines(line, stride, m_rows.weightsOf(y), m_rows.taps, int(m_line.size()), m_line.data());
            line = m_line.data();
        }
        std::uint8_t* target =
            to.pixels.data() + (std::size_t(y) * std::size_t(to.width) + std::size_t(left)) * 4;
        for (int x = left; x < right; ++x, target += 4)
            sumPixels(line + (m_columns.first[std::size_t(x)] - sourceLeft) * 4, m_columns.weightsOf(x),
                      m_columns.taps, target);
    }
    return {left, top, right - left, bottom - top};
}

} // namespace quillora::capture
