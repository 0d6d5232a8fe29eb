#include "drawing/tool_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillora::drawing {
namespace {

struct ExpectedTool {
    Tool tool;
    int id;
    std::string toolTip;
    std::string cursor;
    OptionFrames frames;
};

TEST(ToolTable, HasEachToolWithItsTipItsCursorAndItsOptions)
{
    using enum OptionFrames;
    const std::vector<ExpectedTool> expected{
        {Tool::selectArea, 0, "Select Area", "", none},
        {Tool::pickColor, 1, "Pick Color", "pick.cur", none},
        {Tool::eraser, 2, "Eraser", "eraser.cur", fraOptDot},
        {Tool::fill, 3, "Fill", "fill.cur", none},
        {Tool::pencil, 4, "Pencil", "draw.cur", fraOptDot},
        {Tool::line, 5, "Line", "cross.cur", fraOptDot},
        {Tool::rectangle, 6, "Rectangle", "cross.cur", fraOptDotAndFill},
        {Tool::ellipse, 7, "Ellipse", "cross.cur", fraOptDotAndFill},
        {Tool::text, 8, "Text", "text.cur", none},
        {Tool::arrow, 9, "Arrow", "cross.cur", fraOptDot},
        {Tool::airBrush, 10, "Air Brush", "airbrush.cur", fraOptDot},
        {Tool::roundedRectangle, 11, "Rounded Rectangle", "cross.cur", fraOptDotAndFill},
        {Tool::polygon, 12, "Polygon", "cross.cur", fraOptDotAndFill},
        {Tool::curve, 13, "Curve", "", fraOptDot},
        {Tool::filterBrush, 14, "Filter Brush", "filter.cur", fraOptDot},
        {Tool::zoom, 15, "Zoom", "zoom.cur", none},
        {Tool::brush, 16, "Brush", "brush.cur", fraOptDot},
        {Tool::hand, 17, "Hand", "handflat.cur", none},
    };
    ASSERT_EQ(expected.size(), kTools.size());
    for (const auto& tool : expected) {
        EXPECT_EQ(toolId(tool.tool), tool.id);
        EXPECT_EQ(kTools[tool.id].toolTip, tool.toolTip);
        EXPECT_EQ(toolCursor(tool.id), tool.cursor) << tool.toolTip;
        EXPECT_EQ(toolOptionFrames(tool.id), tool.frames) << tool.toolTip;
    }
}

TEST(ToolTable, PlacesTheButtonsThatThePaletteShowsInTwoRows)
{
    const std::vector<std::pair<Tool, TwipsPosition>> expected{
        {Tool::pencil, {120, 240}},     {Tool::brush, {480, 240}},   {Tool::fill, {840, 240}},
        {Tool::text, {1200, 240}},      {Tool::eraser, {1920, 240}}, {Tool::arrow, {120, 600}},
        {Tool::line, {480, 600}},       {Tool::ellipse, {840, 600}}, {Tool::roundedRectangle, {1200, 600}},
        {Tool::rectangle, {1560, 600}}, {Tool::polygon, {1920, 600}}};
    for (const auto& [tool, position] : expected) {
        EXPECT_EQ(kTools[toolId(tool)].position, position) << kTools[toolId(tool)].toolTip;
        EXPECT_TRUE(kTools[toolId(tool)].visible);
    }
    EXPECT_EQ(kClearButtonPosition, (TwipsPosition{1560, 240}));
    EXPECT_EQ(kToolButtonSize, (TwipsSize{390, 375}));
}

TEST(ToolTable, PlacesFourButtonsBelowThePaletteAndHidesThree)
{
    EXPECT_EQ(kTools[toolId(Tool::airBrush)].position, (TwipsPosition{1080, 2040}));
    EXPECT_EQ(kTools[toolId(Tool::curve)].position, (TwipsPosition{1800, 2040}));
    EXPECT_EQ(kTools[toolId(Tool::pickColor)].position, (TwipsPosition{2160, 2040}));
    EXPECT_EQ(kTools[toolId(Tool::selectArea)].position, (TwipsPosition{2520, 2040}));
    EXPECT_EQ(kTools[toolId(Tool::filterBrush)].position, (TwipsPosition{1080, 5040}));
    EXPECT_EQ(kTools[toolId(Tool::zoom)].position, (TwipsPosition{2520, 4920}));
    EXPECT_EQ(kTools[toolId(Tool::hand)].position, (TwipsPosition{1800, 4920}));
    for (const auto tool : {Tool::airBrush, Tool::curve, Tool::pickColor, Tool::selectArea})
        EXPECT_TRUE(kTools[toolId(tool)].visible);
    for (const auto tool : {Tool::filterBrush, Tool::zoom, Tool::hand})
        EXPECT_FALSE(kTools[toolId(tool)].visible);
}

TEST(ToolTable, GivesTheCrossToANumberThatNoToolHas)
{
    EXPECT_EQ(toolCursor(18), "cross.cur");
    EXPECT_EQ(toolCursor(2147483647), "cross.cur");
    EXPECT_EQ(toolOptionFrames(18), OptionFrames::none);
    EXPECT_EQ(toolOptionFrames(-1), OptionFrames::none);
}

} // namespace
} // namespace quillora::drawing
