#include "drawing/tool_table.h"

namespace quillora::drawing {

// The rows from 2040 down lie below the frame's height, and the last three buttons are hidden: those tools
// are whole, but no pointer reaches their buttons.
const std::array<ToolDescription, kToolCount> kTools{{
    {"Select Area", "", OptionFrames::none, {2520, 2040}, true},
    {"Pick Color", "pick.cur", OptionFrames::none, {2160, 2040}, true},
    {"Eraser", "eraser.cur", OptionFrames::fraOptDot, {1920, 240}, true},
    {"Fill", "fill.cur", OptionFrames::none, {840, 240}, true},
    {"Pencil", kDrawCursor, OptionFrames::fraOptDot, {120, 240}, true},
    {"Line", kCrossCursor, OptionFrames::fraOptDot, {480, 600}, true},
    {"Rectangle", kCrossCursor, OptionFrames::fraOptDotAndFill, {1560, 600}, true},
    {"Ellipse", kCrossCursor, OptionFrames::fraOptDotAndFill, {840, 600}, true},
    {"Text", "text.cur", OptionFrames::none, {1200, 240}, true},
    {"Arrow", kCrossCursor, OptionFrames::fraOptDot, {120, 600}, true},
    {"Air Brush", "airbrush.cur", OptionFrames::fraOptDot, {1080, 2040}, true},
    {"Rounded Rectangle", kCrossCursor, OptionFrames::fraOptDotAndFill, {1200, 600}, true},
    {"Polygon", kCrossCursor, OptionFrames::fraOptDotAndFill, {1920, 600}, true},
    {"Curve", "", OptionFrames::fraOptDot, {1800, 2040}, true},
    {"Filter Brush", "filter.cur", OptionFrames::fraOptDot, {1080, 5040}, false},
    {"Zoom", "zoom.cur", OptionFrames::none, {2520, 4920}, false},
    {"Brush", "brush.cur", OptionFrames::fraOptDot, {480, 240}, true},
    {"Hand", kHandFlatCursor, OptionFrames::none, {1800, 4920}, false},
}};

std::string_view toolCursor(int id) { return id >= 0 && id < kToolCount ? kTools[id].cursor : kCrossCursor; }

OptionFrames toolOptionFrames(int id)
{
    return id >= 0 && id < kToolCount ? kTools[id].optionFrames : OptionFrames::none;
}

} // namespace quillora::drawing
