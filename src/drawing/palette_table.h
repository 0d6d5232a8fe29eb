#pragma once

#include "drawing/colour.h"
#include "drawing/tool_table.h"

#include <array>

namespace quillora::drawing {

inline constexpr Colour kBlack = rgb(0, 0, 0);
inline constexpr Colour kWhite = rgb(255, 255, 255);

/// A cell of the palette, `lblColor`, in frame `fraColor`.
struct ColourCell {
    Colour BackColor;
    TwipsPosition position;
    bool visible;
};

inline constexpr int kColourCells = 26;
inline constexpr TwipsSize kColourCellSize{255, 255};
/// The one cell that shows the colour that windows have inside; the form sets it to what that is.
inline constexpr int kSystemWindowCell = 1;

/// In the order of their indices. The frame's height shows those at top 240 only: black, blue, green and red.
extern const std::array<ColourCell, kColourCells> kColourPalette;

inline constexpr TwipsSize kColourFrameSize{2055, 615};
/// Frame `fraTools`, in the panel `Picture2`.
inline constexpr TwipsPosition kToolsFramePosition{-120, -240};
inline constexpr TwipsSize kToolsFrameSize{2415, 1035};

/// The cells that show the two colours in force, as they come up.
inline constexpr Colour kFirstPenColour = kBlack;
inline constexpr Colour kFirstFillColour = rgb(255, 255, 192);

} // namespace quillora::drawing
