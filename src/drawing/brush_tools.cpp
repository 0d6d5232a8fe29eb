#include "drawing/brush_tools.h"

#include "base/rounding.h"
#include "drawing/sixteen_bits.h"

#include <array>
#include <optional>

namespace quillora::drawing {
namespace {

enum class Tip { filledBox, box, circle, lines };

/// A line of a tip, in units of its size from the point.
struct TipLine {
    int x1;
    int y1;
    int x2;
    int y2;
};

constexpr TipLine kRising{-1, 1, 1, -1};
constexpr TipLine kFalling{-1, -1, 1, 1};
constexpr TipLine kLevel{-1, 0, 1, 0};
constexpr TipLine kUpright{0, -1, 0, 1};

struct BrushTip {
    Tip form;
    /// Whether the inside of the tip is filled in the pattern of filled shapes; none leaves it as it stands.
    enum class Inside { pattern, transparent, asItStands } inside;
    std::array<std::optional<TipLine>, 2> lines{};
};

constexpr std::array<BrushTip, kBrushShapes> kBrushTips{{
    {Tip::filledBox, BrushTip::Inside::pattern},
    {Tip::circle, BrushTip::Inside::pattern},
    {Tip::box, BrushTip::Inside::transparent},
    {Tip::circle, BrushTip::Inside::transparent},
    {Tip::lines, BrushTip::Inside::asItStands, {kLevel, kUpright}},
    {Tip::lines, BrushTip::Inside::asItStands, {kRising, kFalling}},
    {Tip::lines, BrushTip::Inside::asItStands, {kRising}},
    {Tip::lines, BrushTip::Inside::asItStands, {kFalling}},
    {Tip::lines, BrushTip::Inside::asItStands, {kLevel}},
    {Tip::lines, BrushTip::Inside::asItStands, {kUpright}},
}};

void stamp(Surface& surface, const BrushTip& tip, double x, double y, int size)
{
    switch (tip.form) {
    case Tip::filledBox:
        surface.Line(x - size, y - size, x + size, y + size, LineForm::filledBox);
        return;
    case Tip::box:
        surface.Line(x - size, y - size, x + size, y + size, LineForm::box);
        return;
    case Tip::circle:
        surface.Circle(x, y, size);
        return;
    case Tip::lines:
        for (const auto& line : tip.lines) {
            if (line)
                surface.Line(x + line->x1 * size, y + line->y1 * size, x + line->x2 * size,
                             y + line->y2 * size);
        }
        return;
    }
}

} // namespace

void SprayDots(Surface& surface, RandomNumbers& random, float x, float y, int size)
{
    const int left = sixteenBits(base::roundToInt(x));
    const int top = sixteenBits(base::roundToInt(y));
    const int width = surface.DrawWidth;
    surface.DrawWidth = 1;
    random.reseedFromClock();
    const int side = sixteenBits(size);
    const int count = base::roundToInt(sixteenBits(side * side) * 0.25);
    const double half = side / 2.0;
    for (int i = 0; i < count; ++i) {
        const double across = random.next();
        const double down = random.next();
        surface.PSet(left - half + side * across, top - half + side * down);
    }
    surface.DrawWidth = width;
}

void StampBrush(Surface& surface, FillPattern inside, int shape, float x, float y)
{
    const int width = surface.DrawWidth;
    surface.DrawWidth = 1;
    const int size = sixteenBits(sixteenBits(width) * 3);
    if (shape >= 0 && shape < kBrushShapes) {
        const auto& tip = kBrushTips[shape];
        if (tip.inside != BrushTip::Inside::asItStands)
            surface.FillStyle = tip.inside == BrushTip::Inside::pattern ? inside : FillPattern::transparent;
        stamp(surface, tip, x, y, size);
    }
    surface.DrawWidth = width;
}

} // namespace quillora::drawing
