#pragma once

#include <array>
#include <string_view>

namespace quillora::drawing {

/// The tools by their ids, which are the indices of the option buttons `optTools`.
enum class Tool {
    selectArea = 0,
    pickColor,
    eraser,
    fill,
    pencil,
    line,
    rectangle,
    ellipse,
    text,
    arrow,
    airBrush,
    roundedRectangle,
    polygon,
    curve,
    filterBrush,
    zoom,
    brush,
    hand,
};

inline constexpr int kToolCount = 18;

constexpr int toolId(Tool tool) { return static_cast<int>(tool); }

/// The frames of options that choosing a tool brings up. No tool takes one away again.
enum class OptionFrames { none, fraOptDot, fraOptDotAndFill };

/// Left and top in the frame that holds a control, in twips.
struct TwipsPosition {
    int Left = 0;
    int Top = 0;

    constexpr bool operator==(const TwipsPosition&) const = default;
};

/// Width and height in twips.
struct TwipsSize {
    int Width = 0;
    int Height = 0;

    constexpr bool operator==(const TwipsSize&) const = default;
};

/// What the palette shows of a tool. What its gesture means stands in tool_gestures.h.
struct ToolDescription {
    std::string_view toolTip;
    /// File beside the program; empty for the system's arrow.
    std::string_view cursor;
    OptionFrames optionFrames;
    TwipsPosition position;
    bool visible;
};

inline constexpr std::string_view kCrossCursor = "cross.cur";
inline constexpr std::string_view kDrawCursor = "draw.cur";
/// The Hand's cursor while its button is held.
inline constexpr std::string_view kHandGrabCursor = "handgrab.cur";
inline constexpr std::string_view kHandFlatCursor = "handflat.cur";

/// In the order of the ids. Positions are in frame `fraTools`, whose height shows its two upper rows only.
extern const std::array<ToolDescription, kToolCount> kTools;

inline constexpr TwipsSize kToolButtonSize{390, 375};
/// The button `Command2`, which clears the canvas, stands among the tools.
inline constexpr TwipsPosition kClearButtonPosition{1560, 240};

/// The cursor file of tool number @p id, empty for the system's arrow. A number past the last tool's gives
/// the cross.
std::string_view toolCursor(int id);
/// The frames that tool number @p id brings up; none for a number that is no tool's.
OptionFrames toolOptionFrames(int id);

} // namespace quillora::drawing
