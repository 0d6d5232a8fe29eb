#include "base/scaling_axis.h"

#include <algorithm>
#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillora::base {

namespace {

constexpr int kHalf = 1 << (ScalingAxis::kWeightBits - 1);

std::uint8_t toByte(int sum)
{
    return std::uint8_t(std::clamp((sum + kHalf) >> ScalingAxis::kWeightBits, 0, 255));
}

#if defined(__SSE2__)
/// Two weights in each 32 bits, as the multiply-and-add takes them.
__m128i weightPair(const std::int16_t* weights, int tap, int taps)
{
    const auto second = tap + 1 < taps ? weights[tap + 1] : std::int16_t(0);
    return _mm_set1_epi32(int(std::uint16_t(weights[tap])) | int(std::uint32_t(std::uint16_t(second)) << 16));
}

__m128i load(const std::uint8_t* bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)); }

__m128i toWords(__m128i low, __m128i high)
{
    return _mm_packs_epi32(_mm_srai_epi32(low, ScalingAxis::kWeightBits),
                           _mm_srai_epi32(high, ScalingAxis::kWeightBits));
}

void sumSixteen(const std::uint8_t* lines, std::ptrdiff_t stride, const std::int16_t* weights, int taps,
                std::uint8_t* to)
{
    const __m128i zero = _mm_setzero_si128();
    __m128i sum0 = _mm_set1_epi32(kHalf);
    __m128i sum1 = sum0;
    __m128i sum2 = sum0;
    __m128i sum3 = sum0;
    for (int tap = 0; tap < taps; tap += 2) {
        const __m128i line = load(lines + tap * stride);
        const __m128i next = tap + 1 < taps ? load(lines + (tap + 1) * stride) : zero;
        const __m128i weight = weightPair(weights, tap, taps);
        const __m128i left = _mm_unpacklo_epi8(line, next);
        const __m128i right = _mm_unpackhi_epi8(line, next);
        sum0 = _mm_add_epi32(sum0, _mm_madd_epi16(_mm_unpacklo_epi8(left, zero), weight));
        sum1 = _mm_add_epi32(sum1, _mm_madd_epi16(_mm_unpackhi_epi8(left, zero), weight));
        sum2 = _mm_add_epi32(sum2, _mm_madd_epi16(_mm_unpacklo_epi8(right, zero), weight));
        sum3 = _mm_add_epi32(sum3, _mm_madd_epi16(_mm_unpackhi_epi8(right, zero), weight));
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to),
                     _mm_packus_epi16(toWords(sum0, sum1), toWords(sum2, sum3)));
}
#endif

} // namespace

ScalingAxis::ScalingAxis(int fromLength, int toLength, double step, const ScalingFilter& filter)
    : from(fromLength), to(toLength)
{
    const double widening = step < filter.largestUnwidened ? 1 : step;
    const int exactTaps = int(std::ceil(2 * filter.radius * widening));
    const int group = filter.tapsInGroupsOf;
    taps = from == to ? 1 : std::min(from, (exactTaps + group - 1) / group * group);
    first.resize(std::size_t(to));
    weights.resize(std::size_t(to) * std::size_t(taps));
    for (int place = 0; place < to; ++place) {
        const double centre = (place + 0.5) * step - 0.5;
        const int start = from == to ? place : int(std::floor(centre - filter.radius * widening)) + 1;
        first[std::size_t(place)] = std::clamp(start, 0, from - taps);
        std::vector<double> exact(std::size_t(taps), 0.0);
        // What would lie beyond the edge is the edge's own pixel.
        for (int tap = 0; tap < exactTaps && from != to; ++tap) {
            const int source = std::clamp(start + tap, 0, from - 1) - first[std::size_t(place)];
            exact[std::size_t(std::clamp(source, 0, taps - 1))] +=
                filter.weight((start + tap - centre) / widening);
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

std::pair<int, int> ScalingAxis::dependentOn(int begin, int end) const
{
    const auto firstPlace =
        std::ranges::lower_bound(first, begin, {}, [&](int start) { return start + taps - 1; });
    const auto lastPlace = std::ranges::lower_bound(first, end);
    return {int(firstPlace - first.begin()), int(lastPlace - first.begin())};
}

void sumLines(const std::uint8_t* lines, std::ptrdiff_t stride, const std::int16_t* weights, int taps,
              int count, std::uint8_t* to)
{
    int i = 0;
#if defined(__SSE2__)
    for (; i + 16 <= count; i += 16)
        sumSixteen(lines + i, stride, weights, taps, to + i);
#endif
    for (; i < count; ++i) {
        int sum = 0;
        for (int tap = 0; tap < taps; ++tap)
            sum += weights[tap] * lines[tap * stride + i];
        to[i] = toByte(sum);
    }
}

} // namespace quillora::base
