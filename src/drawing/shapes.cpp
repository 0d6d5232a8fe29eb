#include "drawing/shapes.h"

#include "base/rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace quillora::drawing {

namespace {

// The precision that the angles of a head are told in decides which way a half is rounded.
constexpr double kPi = 3.14159265358979;

int to16Bits(double value)
{
    const int rounded = base::roundToInt(value);
    if (rounded < std::numeric_limits<std::int16_t>::min() ||
        rounded > std::numeric_limits<std::int16_t>::max())
        throw std::overflow_error("an arrow's head lies beyond 16-bit coordinates");
    return rounded;
}

int directionOf(double difference) { return difference > 0 ? 1 : difference < 0 ? -1 : 0; }

} // namespace

EllipseShape ellipseBetween(const base::PixelPoint& one, const base::PixelPoint& other)
{
    const double across = std::abs(static_cast<double>(other.x) - one.x);
    const double down = std::abs(static_cast<double>(other.y) - one.y);
    return {(static_cast<double>(one.x) + other.x) / 2, (static_cast<double>(one.y) + other.y) / 2,
            (across > down ? across : down) / 2, static_cast<float>(down / across)};
}

ArrowHead arrowHead(const base::PixelPoint& tail, const base::PixelPoint& tip)
{
    constexpr double kStroke = 10;
    constexpr double kSpread = 45;
    const double across = static_cast<double>(tip.x) - tail.x;
    const double down = static_cast<double>(tip.y) - tail.y;
    const double angle = across == 0 ? 90.0 : static_cast<float>(std::atan(down / across) * 180 / kPi);
    const int direction = across != 0 ? directionOf(across) : directionOf(down);
    const double one = (angle + kSpread) * kPi / 180;
    const double other = (kSpread - angle) * kPi / 180;
    return {{to16Bits(tip.x - std::cos(one) * kStroke * direction),
             to16Bits(tip.y - std::sin(one) * kStroke * direction)},
            {to16Bits(tip.x - std::cos(other) * kStroke * direction),
             to16Bits(tip.y + std::sin(other) * kStroke * direction)}};
}

void drawArrow(Surface& surface, const base::PixelPoint& tail, const base::PixelPoint& tip)
{
    surface.Line(tail.x, tail.y, tip.x, tip.y);
    const ArrowHead head = arrowHead(tail, tip);
    surface.Line(tip.x, tip.y, head.first.x, head.first.y);
    surface.Line(tip.x, tip.y, head.second.x, head.second.y);
}

} // namespace quillora::drawing
