#include "drawing/option_grids.h"

namespace quillora::drawing {
namespace {

/// From, and up to but not including, and what stands for the band.
struct Band {
    float from;
    float to;
    int marker;
};

constexpr std::array<Band, 2> kDotColumns{{{75, 325, 75}, {325, 575, 325}}};
constexpr std::array<Band, 4> kDotRows{{{150, 400, 150}, {400, 650, 400}, {650, 900, 650}, {900, 1150, 900}}};
constexpr std::array<Band, 3> kFillRows{{{125, 425, 300}, {450, 750, 580}, {775, 1075, 900}}};

template <std::size_t count>
std::optional<int> bandAt(const std::array<Band, count>& bands, float place)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (place >= bands[i].from && place < bands[i].to)
            return static_cast<int>(i);
    }
    return {};
}

} // namespace

void WidthGrid::paintAllBlack() { shpDot.fill(OptionShape{}); }

void WidthGrid::paintChosen(int cell) { shpDot.at(cell) = {.FillColor = kWhite, .BorderColor = kWhite}; }

void WidthGrid::paintInsideWhite(int cell) { shpDot.at(cell).FillColor = kWhite; }

std::optional<int> widthGridCell(float x, float y)
{
    const auto column = bandAt(kDotColumns, x);
    const auto row = bandAt(kDotRows, y);
    if (!column || !row)
        return {};
    return *row * 2 + *column;
}

TwipsPosition widthMarkerPosition(int cell)
{
    return {kDotColumns.at(cell % 2).marker, kDotRows.at(cell / 2).marker};
}

void FillColumn::choose(int mode)
{
    for (auto& shape : shpRect)
        shape.BorderColor = kBlack;
    shpRect.at(mode).BorderColor = kWhite;
    lblFillTop = kFillRows.at(mode).marker;
}

std::optional<int> fillModeAt(float y) { return bandAt(kFillRows, y); }

} // namespace quillora::drawing
