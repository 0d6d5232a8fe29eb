#pragma once

#include "drawing/palette_table.h"
#include "drawing/tool_table.h"

#include <array>
#include <optional>

namespace quillora::drawing {

/// The colours of a dot or rectangle in the option grids.
struct OptionShape {
    Colour FillColor = kBlack;
    Colour BorderColor = kBlack;

    constexpr bool operator==(const OptionShape&) const = default;
};

/// The line width grid in frame `fraOptDot`: two columns by four rows of dots. The chosen one is white. A
/// choice that is made without a hit shows the old cell again; which cell that is, is the canvas's state.
struct WidthGrid {
    static constexpr int kCells = 8;
    /// What `lblDot` and the grid come back to whenever drawing begins: the marker then stands at cell 4,
    /// whose dot has a white inside, while cell 1 is the one in force.
    static constexpr TwipsPosition kFirstMarkerPosition{75, 645};
    static constexpr int kFirstCell = 1;
    static constexpr int kCellWithWhiteInside = 4;

    std::array<OptionShape, kCells> shpDot{};
    TwipsPosition lblDot = kFirstMarkerPosition;

    void paintAllBlack();
    /// White inside and border.
    void paintChosen(int cell);
    /// White inside, the border as it is.
    void paintInsideWhite(int cell);
};

/// The cell under a position in the frame, in twips; none between and around the cells.
std::optional<int> widthGridCell(float x, float y);
/// Where `lblDot` stands for a cell that was hit.
TwipsPosition widthMarkerPosition(int cell);

/// The fill mode column in frame `fraOptFill`: three rectangles, the chosen one with a white border.
struct FillColumn {
    static constexpr int kModes = 3;

    std::array<OptionShape, kModes> shpRect{OptionShape{.FillColor = kBlack, .BorderColor = kWhite}, {}, {}};
    int lblFillTop = 300;

    void choose(int mode);
};

/// The fill mode at a height in the frame, in twips; none in the gaps. The place across doesn't matter.
std::optional<int> fillModeAt(float y);

inline constexpr TwipsPosition kWidthGridPosition{960, 3180};
inline constexpr TwipsSize kWidthGridSize{660, 1215};
inline constexpr TwipsPosition kFillColumnPosition{105, 3180};
inline constexpr TwipsSize kFillColumnSize{660, 1230};

} // namespace quillora::drawing
