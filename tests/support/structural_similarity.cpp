#include "tests/support/structural_similarity.h"

#include <algorithm>
#include <vector>

namespace quillora::tests {

namespace {

constexpr int kWidth = 747;
constexpr int kHeight = 420;
constexpr int kWindow = 8;
constexpr double kC1 = 0.01 * 255 * 0.01 * 255;
constexpr double kC2 = 0.03 * 255 * 0.03 * 255;

double greyAt(const SlidePicture& picture, int x, int y)
{
    const std::uint32_t colour = picture.at(x, y);
    return 0.299 * (colour >> 16 & 255) + 0.587 * (colour >> 8 & 255) + 0.114 * (colour & 255);
}

/// Every pixel of the small picture is the mean of the large one's pixels that it covers.
std::vector<double> smallGrey(const SlidePicture& picture)
{
    std::vector<double> grey;
    grey.reserve(kWidth * kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const int left = x * picture.width() / kWidth;
            const int top = y * picture.height() / kHeight;
            const int right = std::max(left + 1, (x + 1) * picture.width() / kWidth);
            const int bottom = std::max(top + 1, (y + 1) * picture.height() / kHeight);
            double sum = 0;
            for (int v = top; v < bottom; ++v)
                for (int u = left; u < right; ++u)
                    sum += greyAt(picture, u, v);
            grey.push_back(sum / ((right - left) * (bottom - top)));
        }
    }
    return grey;
}

double similarityOfWindow(const std::vector<double>& a, const std::vector<double>& b, int left, int top)
{
    double sumA = 0;
    double sumB = 0;
    double sumAA = 0;
    double sumBB = 0;
    double sumAB = 0;
    for (int y = top; y < top + kWindow; ++y) {
        for (int x = left; x < left + kWindow; ++x) {
            const std::size_t i = static_cast<std::size_t>(y * kWidth + x);
            sumA += a[i];
            sumB += b[i];
            sumAA += a[i] * a[i];
            sumBB += b[i] * b[i];
            sumAB += a[i] * b[i];
        }
    }
    constexpr double kCount = kWindow * kWindow;
    const double meanA = sumA / kCount;
    const double meanB = sumB / kCount;
    const double varianceA = sumAA / kCount - meanA * meanA;
    const double varianceB = sumBB / kCount - meanB * meanB;
    const double covariance = sumAB / kCount - meanA * meanB;
    return (2 * meanA * meanB + kC1) * (2 * covariance + kC2) /
           ((meanA * meanA + meanB * meanB + kC1) * (varianceA + varianceB + kC2));
}

} // namespace

double structuralSimilarity(const SlidePicture& first, const SlidePicture& second)
{
    const std::vector<double> a = smallGrey(first);
    const std::vector<double> b = smallGrey(second);
    double sum = 0;
    int windows = 0;
    for (int top = 0; top + kWindow <= kHeight; top += 2) {
        for (int left = 0; left + kWindow <= kWidth; left += 2) {
            sum += similarityOfWindow(a, b, left, top);
            ++windows;
        }
    }
    return sum / windows;
}

} // namespace quillora::tests
