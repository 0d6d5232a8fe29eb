#include "deck/platform/libreoffice/rgb_picture.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quillora::deck::libreoffice {

namespace {

/// Weights are whole numbers of this many bits; those of one target pixel add up to exactly one.
constexpr int kWeightBits = 14;
constexpr int kOne = 1 << kWeightBits;

/// Which source pixels, and how much of each, make one target pixel along one axis.
struct Share {
    int first = 0;
    std::vector<int> weights{};
};

Share shareOf(int target, double scale, int sourceLength)
{
    const double radius = std::max(1.0, scale);
    const double centre = (target + 0.5) * scale - 0.5;
    const int first = std::max(0, static_cast<int>(std::ceil(centre - radius)));
    const int last = std::min(sourceLength - 1, static_cast<int>(std::floor(centre + radius)));
    std::vector<double> heights;
    double sum = 0;
    for (int i = first; i <= last; ++i) {
        heights.push_back(std::max(0.0, 1.0 - std::abs(i - centre) / radius));
        sum += heights.back();
    }
    Share share{first};
    int spent = 0;
    for (const double height : heights) {
        share.weights.push_back(static_cast<int>(height / sum * kOne));
        spent += share.weights.back();
    }
    // What rounding left over goes to the heaviest, so that a plain colour stays exactly what it was.
    *std::max_element(share.weights.begin(), share.weights.end()) += kOne - spent;
    return share;
}

std::vector<Share> sharesOf(int targetLength, int sourceLength)
{
    const double scale = static_cast<double>(sourceLength) / targetLength;
    std::vector<Share> shares;
    shares.reserve(static_cast<std::size_t>(targetLength));
    for (int target = 0; target < targetLength; ++target)
        shares.push_back(shareOf(target, scale, sourceLength));
    return shares;
}

/// One row of the target: the weighted sum of source rows, channel by channel.
void mixRows(const RgbPicture& picture, const Share& share, std::vector<int>& sums)
{
    const std::size_t stride = static_cast<std::size_t>(picture.size.width) * 3;
    std::fill(sums.begin(), sums.end(), 0);
    for (std::size_t k = 0; k < share.weights.size(); ++k) {
        const std::uint8_t* row = picture.bytes.data() + (static_cast<std::size_t>(share.first) + k) * stride;
        const int weight = share.weights[k];
        for (std::size_t x = 0; x < stride; ++x)
            sums[x] += weight * row[x];
    }
}

void mixColumns(const std::vector<int>& sums, const std::vector<Share>& shares, std::uint8_t* out)
{
    for (const Share& share : shares) {
        long long red = 0;
        long long green = 0;
        long long blue = 0;
        const int* in = sums.data() + static_cast<std::size_t>(share.first) * 3;
        for (const int weight : share.weights) {
            red += static_cast<long long>(weight) * in[0];
            green += static_cast<long long>(weight) * in[1];
            blue += static_cast<long long>(weight) * in[2];
            in += 3;
        }
        constexpr long long kHalf = 1LL << (2 * kWeightBits - 1);
        *out++ = static_cast<std::uint8_t>((red + kHalf) >> (2 * kWeightBits));
        *out++ = static_cast<std::uint8_t>((green + kHalf) >> (2 * kWeightBits));
        *out++ = static_cast<std::uint8_t>((blue + kHalf) >> (2 * kWeightBits));
    }
}

} // namespace

RgbPicture rgbOf(std::span<const std::uint8_t> slot, PictureSize size)
{
    const std::size_t pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    if (slot.size() < pixels * 4)
        throw std::runtime_error("a painted slide is larger than its slot");
    RgbPicture picture{size};
    picture.bytes.resize(pixels * 3);
    const std::uint8_t* from = slot.data();
    std::uint8_t* to = picture.bytes.data();
    for (std::size_t i = 0; i < pixels; ++i, from += 4, to += 3) {
        to[0] = from[2];
        to[1] = from[1];
        to[2] = from[0];
    }
    return picture;
}

RgbPicture stretched(const RgbPicture& picture, PictureSize size)
{
    if (size.width < 1 || size.height < 1)
        throw std::runtime_error("a picture needs at least one pixel");
    const std::vector<Share> columns = sharesOf(size.width, picture.size.width);
    const std::vector<Share> rows = sharesOf(size.height, picture.size.height);
    const std::size_t stride = static_cast<std::size_t>(size.width) * 3;
    RgbPicture target{size, std::vector<std::uint8_t>(stride * static_cast<std::size_t>(size.height))};
    std::vector<int> sums(static_cast<std::size_t>(picture.size.width) * 3);
    std::uint8_t* out = target.bytes.data();
    for (const Share& row : rows) {
        mixRows(picture, row, sums);
        mixColumns(sums, columns, out);
        out += stride;
    }
    return target;
}

} // namespace quillora::deck::libreoffice
