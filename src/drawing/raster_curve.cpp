#include "drawing/raster_curve.h"

#include "base/rounding.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace quillora::drawing {

namespace {

struct Place {
    double x;
    double y;
};

using Curve = std::array<Place, 4>;

Place middle(const Place& one, const Place& other) { return {(one.x + other.x) / 2, (one.y + other.y) / 2}; }

std::pair<Curve, Curve> halves(const Curve& curve)
{
    // De Casteljau's construction: only middles are taken.
    const Place startPull = middle(curve[0], curve[1]);
    const Place between = middle(curve[1], curve[2]);
    const Place endPull = middle(curve[2], curve[3]);
    const Place left = middle(startPull, between);
    const Place right = middle(between, endPull);
    const Place centre = middle(left, right);
    return {{curve[0], startPull, left, centre}, {centre, right, endPull, curve[3]}};
}

bool isFlat(const Curve& curve)
{
    // The curve is no farther from its chord than an eighth of its largest second derivative, which is six
    // times the larger second difference of its points: in each coordinate, hence the root of two.
    constexpr double kTolerance = 0.25;
    constexpr double kStraightEnough = kTolerance / 0.75 / std::numbers::sqrt2;
    const auto bend = [](const Place& one, const Place& two, const Place& three) {
        return std::max(std::abs(one.x - 2 * two.x + three.x), std::abs(one.y - 2 * two.y + three.y));
    };
    return std::max(bend(curve[0], curve[1], curve[2]), bend(curve[1], curve[2], curve[3])) <=
           kStraightEnough;
}

bool misses(const Curve& curve, const base::PixelRectangle& window)
{
    const auto [left, right] = std::minmax({curve[0].x, curve[1].x, curve[2].x, curve[3].x});
    const auto [top, bottom] = std::minmax({curve[0].y, curve[1].y, curve[2].y, curve[3].y});
    constexpr double kRounding = 1;
    return right < window.left - kRounding || left > static_cast<double>(window.right()) + kRounding ||
           bottom < window.top - kRounding || top > static_cast<double>(window.bottom()) + kRounding;
}

base::PixelPoint toPixel(const Place& place)
{
    return {base::roundToInt(place.x), base::roundToInt(place.y)};
}

void flatten(const Curve& curve, const base::PixelRectangle& window, int depth, std::vector<Edge>& pieces)
{
    // Sixteen halvings straighten the largest curve that coordinates can tell; more only guard the recursion.
    constexpr int kDeepest = 24;
    if (misses(curve, window))
        return;
    if (depth == kDeepest || isFlat(curve)) {
        pieces.push_back({toPixel(curve.front()), toPixel(curve.back())});
        return;
    }
    const auto [first, second] = halves(curve);
    flatten(first, window, depth + 1, pieces);
    flatten(second, window, depth + 1, pieces);
}

} // namespace

std::vector<Edge> flattenCurve(const std::array<base::PixelPoint, 4>& points,
                               const base::PixelRectangle& window)
{
    Curve curve;
    std::transform(points.begin(), points.end(), curve.begin(), [](const base::PixelPoint& point) {
        return Place{static_cast<double>(point.x), static_cast<double>(point.y)};
    });
    std::vector<Edge> pieces;
    flatten(curve, window, 0, pieces);
    return pieces;
}

} // namespace quillora::drawing
