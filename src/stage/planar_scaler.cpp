#include "stage/planar_scaler.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillora::stage {
namespace {

using base::ScalingAxis;

constexpr int kHalf = 1 << (ScalingAxis::kWeightBits - 1);

double linear(double distance) { return std::max(0.0, 1 - std::abs(distance)); }

constexpr base::ScalingFilter kLinear{
    .weight = linear, .radius = 1, .largestUnwidened = 2, .tapsInGroupsOf = 2};

FrameSize colourSize(FrameSize picture) { return {(picture.width + 1) / 2, (picture.height + 1) / 2}; }

std::size_t area(FrameSize size) { return std::size_t(size.width) * std::size_t(size.height); }

#if defined(__SSE2__)
/// The bytes at eight places and each one's neighbour.
__m128i gather(const std::uint8_t* line, const int* places)
{
    const auto pair = [&](int i) {
        std::uint16_t two = 0;
        std::memcpy(&two, line + places[i], sizeof two);
        return int(two);
    };
    __m128i pairs = _mm_cvtsi32_si128(pair(0));
    pairs = _mm_insert_epi16(pairs, pair(1), 1);
    pairs = _mm_insert_epi16(pairs, pair(2), 2);
    pairs = _mm_insert_epi16(pairs, pair(3), 3);
    pairs = _mm_insert_epi16(pairs, pair(4), 4);
    pairs = _mm_insert_epi16(pairs, pair(5), 5);
    pairs = _mm_insert_epi16(pairs, pair(6), 6);
    return _mm_insert_epi16(pairs, pair(7), 7);
}

__m128i load(const std::uint32_t* pairs) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pairs)); }
#endif

/// The bytes of a target line from the bytes of a source line, which has one byte more than its columns.
void sumNeighbours(const std::uint8_t* line, const ScalingAxis& columns,
                   const std::vector<std::uint32_t>& pairs, std::uint8_t* to)
{
    const std::size_t count = std::size_t(columns.to);
    std::size_t x = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    for (; x + 8 <= count; x += 8) {
        __m128i low = _mm_set1_epi32(kHalf);
        __m128i high = low;
        for (int tap = 0; tap < columns.taps; tap += 2) {
            const __m128i bytes = gather(line + tap, columns.first.data() + x);
            const std::uint32_t* const weights = pairs.data() + std::size_t(tap / 2) * count + x;
            low = _mm_add_epi32(low, _mm_madd_epi16(_mm_unpacklo_epi8(bytes, zero), load(weights)));
            high = _mm_add_epi32(high, _mm_madd_epi16(_mm_unpackhi_epi8(bytes, zero), load(weights + 4)));
        }
        const __m128i words = _mm_packs_epi32(_mm_srai_epi32(low, ScalingAxis::kWeightBits),
                                              _mm_srai_epi32(high, ScalingAxis::kWeightBits));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to + x), _mm_packus_epi16(words, words));
    }
#endif
    for (; x < count; ++x) {
        int sum = kHalf;
        for (int tap = 0; tap < columns.taps; ++tap)
            sum += columns.weightsOf(int(x))[tap] * line[columns.first[x] + tap];
        // The weights of this filter are never negative: no sum leaves the byte.
        to[x] = std::uint8_t(sum >> ScalingAxis::kWeightBits);
    }
}

} // namespace

FrameSize fitted(FrameSize picture, FrameSize room)
{
    if (picture.width <= room.width && picture.height <= room.height)
        return picture;
    const auto width = std::int64_t(room.height) * picture.width / picture.height;
    if (width <= room.width)
        return {std::max(1, int(width)), room.height};
    const auto height = std::int64_t(room.width) * picture.height / picture.width;
    return {room.width, std::max(1, int(height))};
}

PlanarScaler::Plane::Plane(FrameSize fromSize, FrameSize toSize, FrameSize picture, FrameSize scaledPicture)
    : columns(fromSize.width, toSize.width, double(picture.width) / scaledPicture.width, kLinear),
      rows(fromSize.height, toSize.height, double(picture.height) / scaledPicture.height, kLinear)
{
    const auto count = std::size_t(columns.to);
    for (int tap = 0; tap < columns.taps; tap += 2)
        for (std::size_t x = 0; x < count; ++x) {
            const std::int16_t* const weights = columns.weightsOf(int(x)) + tap;
            const auto second = tap + 1 < columns.taps ? std::uint16_t(weights[1]) : std::uint16_t(0);
            pairs.push_back(std::uint16_t(weights[0]) | std::uint32_t(second) << 16);
        }
}

PlanarScaler::PlanarScaler(FrameSize from, FrameSize to)
    : m_from(from),
      m_to(to),
      m_brightness(from, to, from, to),
      m_colour(colourSize(from), colourSize(to), from, to),
      m_line(std::size_t(from.width) + 1),
      m_scaled(area(to) + 2 * area(colourSize(to)))
{}

std::span<const std::uint8_t> PlanarScaler::scale(std::span<const std::uint8_t> planes)
{
    const std::uint8_t* from = planes.data();
    std::uint8_t* to = m_scaled.data();
    scale(m_brightness, from, to);
    from += area(m_from);
    to += area(m_to);
    scale(m_colour, from, to);
    scale(m_colour, from + area(colourSize(m_from)), to + area(colourSize(m_to)));
    return m_scaled;
}

void PlanarScaler::scale(const Plane& plane, const std::uint8_t* from, std::uint8_t* to)
{
    const std::ptrdiff_t stride = plane.columns.from;
    for (int y = 0; y < plane.rows.to; ++y, to += plane.columns.to) {
        base::sumLines(from + plane.rows.first[std::size_t(y)] * stride, stride, plane.rows.weightsOf(y),
                       plane.rows.taps, plane.columns.from, m_line.data());
        sumNeighbours(m_line.data(), plane.columns, plane.pairs, to);
    }
}

} // namespace quillora::stage
