#pragma once

#include "drawing/tool_table.h"

#include <array>
#include <string_view>

namespace quillora::drawing {

/// A sheet that can lie behind the drawing, and the option button that chooses it in the panel `Picture2`.
struct Background {
    std::string_view option;
    std::string_view caption;
    /// File beside the program; empty for no picture.
    std::string_view picture;
    TwipsPosition position;
};

enum class Sheet { blank, grid, squares, xyAxis };

/// In the order of Sheet. The panel is 1575 twips high: "Squares" lies below it.
inline constexpr std::array<Background, 4> kBackgrounds{{
    {"Option4", "Blank", "", {0, 1245}},
    {"Option1", "Grid", "grid.gif", {800, 1245}},
    {"Option2", "Squares", "squares.jpg", {2160, 2280}},
    {"Option3", "XY Axis", "xy.gif", {1560, 1245}},
}};

constexpr const Background& background(Sheet sheet) { return kBackgrounds[static_cast<int>(sheet)]; }

} // namespace quillora::drawing
