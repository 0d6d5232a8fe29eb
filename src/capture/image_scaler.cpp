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

constexpr int kWeightBits = 14;
constexpr int kHalf = 1 << (kWeightBits - 1);
constexpr double kLeastWidening = 1.05;

double catmullRom(double distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return (1.5 * x - 2.5) * x * x + 1;
    return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

std::uint8_t toByte(int sum) { return std::uint8_t(std::clamp((sum + kHalf) >> kWeightBits, 0, 255)); }

#if defined(__SSE2__)
/// Two weights in each 32 bits, as the multiply-and-add takes them.
__m128i weightPair(const std::int16_t* weights, int tap, int taps)
{
    const auto second = tap + 1 < taps ? weights[tap + 1] : std::int16_t(0);
    return _mm_set1_epi32(int(std::uint16_t(weights[tap])) | int(std::uint32_t(std::uint16_t(second)) << 16));
}
#endif

/// @p count bytes of a target line, each the weighted sum of the bytes above each other in @p taps lines that
/// are @p stride bytes apart.
void sumLines(const std::uint8_t* lines, std::ptrdiff_t stride, const std::int16_t* weights, int taps,
              int count, std::uint8_t* to)
{
    int i = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i half = _mm_set1_epi32(kHalf);
    for (; i + 8 <= count; i += 8) {
        __m128i low = half;
        __m128i high = half;
        for (int tap = 0; tap < taps; tap += 2) {
            const auto* line = lines + tap * stride + i;
            const auto* next = tap + 1 < taps ? line + stride : line;
            const __m128i pairs = _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(line)),
                                                    _mm_loadl_epi64(reinterpret_cast<const __m128i*>(next)));
            const __m128i weight = weightPair(weights, tap, taps);
            low = _mm_add_epi32(low, _mm_madd_epi16(_mm_unpacklo_epi8(pairs, zero), weight));
            high = _mm_add_epi32(high, _mm_madd_epi16(_mm_unpackhi_epi8(pairs, zero), weight));
        }
        const __m128i words =
            _mm_packs_epi32(_mm_srai_epi32(low, kWeightBits), _mm_srai_epi32(high, kWeightBits));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to + i), _mm_packus_epi16(words, words));
    }
#endif
    for (; i < count; ++i) {
        int sum = 0;
        for (int tap = 0; tap < taps; ++tap)
            sum += weights[tap] * lines[tap * stride + i];
        to[i] = toByte(sum);
    }
}

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
        const __m128i words = _mm_packs_epi32(_mm_srai_epi32(sum, kWeightBits), zero);
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
        to[channel] = std::uint8_t(std::clamp(sums[std::size_t(channel)] >> kWeightBits, 0, 255));
}

} // namespace

ImageScaler::Axis::Axis(int fromLength, int toLength) : from(fromLength), to(toLength)
{
    const double step = double(from) / to;
    // The one column less of the video needs no fifth tap.
    const double widening = step < kLeastWidening ? 1 : step;
    const int exactTaps = int(std::ceil(4 * widening));
    // In fours, as the sums are made fastest.
    taps = from == to ? 1 : std::min(from, (exactTaps + 3) / 4 * 4);
    first.resize(std::size_t(to));
    weights.resize(std::size_t(to) * std::size_t(taps));
    for (int place = 0; place < to; ++place) {
        const double centre = (place + 0.5) * step - 0.5;
        const int start = from == to ? place : int(std::floor(centre - 2 * widening)) + 1;
        first[std::size_t(place)] = std::clamp(start, 0, from - taps);
        std::vector<double> exact(std::size_t(taps), 0.0);
        // What would lie beyond the edge is the edge's own pixel.
        for (int tap = 0; tap < exactTaps && from != to; ++tap) {
            const int source = std::clamp(start + tap, 0, from - 1) - first[std::size_t(place)];
            exact[std::size_t(std::clamp(source, 0, taps - 1))] +=
                catmullRom((start + tap - centre) / widening);
        }
        if (from == to)
            exact[0] = 1;
        double sum = 0;
        for (const double weight : exact)
            sum += weight;
        std::int16_t* const target = weights.data() + std::ptrdiff_t(place) * taps;
        int rest = 1 << kWeightBits;
        for (int tap = 0; tap < taps; ++tap) {
            target[tap] = std::int16_t(std::lround(exact[std::size_t(tap)] / sum * (1 << kWeightBits)));
            rest -= target[tap];
        }
        // An even ground stays exactly what it was.
        *std::max_element(target, target + taps) =
            std::int16_t(*std::max_element(target, target + taps) + rest);
    }
}

std::pair<int, int> ImageScaler::Axis::dependentOn(int begin, int end) const
{
    const auto firstPlace =
        std::ranges::lower_bound(first, begin, {}, [&](int start) { return start + taps - 1; });
    const auto lastPlace = std::ranges::lower_bound(first, end);
    return {int(firstPlace - first.begin()), int(lastPlace - first.begin())};
}

ImageScaler::ImageScaler(int fromWidth, int fromHeight, int toWidth, int toHeight)
    : m_columns(fromWidth, toWidth), m_rows(fromHeight, toHeight)
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
            sumLines(line, stride, m_rows.weightsOf(y), m_rows.taps, int(m_line.size()), m_line.data());
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
