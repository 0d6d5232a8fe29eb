#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillora::base {

/// The shape by which neighbours are weighted where a picture is scaled.
struct ScalingFilter {
    /// The weight of a neighbour at this distance, in source pixels of a picture that keeps its size.
    double (*weight)(double distance);
    /// Beyond which the weight is 0.
    int radius;
    /// Up to this reduction a target pixel is made from no more neighbours than in a picture that keeps its
    /// size; past it the filter is widened by the reduction, so that no source pixel is left out.
    double largestUnwidened;
    /// The neighbours are counted in groups of so many, as the sums are made fastest.
    int tapsInGroupsOf;
};

/// Which source places make up each target place, and with which weights; in one direction.
struct ScalingAxis {
    /// The weights of one target place sum up to 2^kWeightBits.
    static constexpr int kWeightBits = 14;

    /// Lengths at least 1. @p step is how many source places a target place stands for.
    ScalingAxis(int fromLength, int toLength, double step, const ScalingFilter& filter);

    int from;
    int to;
    int taps;
    std::vector<int> first{};
    /// taps for each target place.
    std::vector<std::int16_t> weights{};

    /// The target places that depend on the source places from @p begin up to @p end.
    std::pair<int, int> dependentOn(int begin, int end) const;
    const std::int16_t* weightsOf(int place) const { return weights.data() + std::ptrdiff_t(place) * taps; }
};

/// @p count bytes of a target line, each the weighted sum of the bytes above each other in @p taps lines that
/// are @p stride bytes apart.
void sumLines(const std::uint8_t* lines, std::ptrdiff_t stride, const std::int16_t* weights, int taps,
              int count, std::uint8_t* to);

} // namespace quillora::base
