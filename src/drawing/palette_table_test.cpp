#include "drawing/backgrounds.h"
#include "drawing/palette_table.h"

#include <gtest/gtest.h>

namespace quillora::drawing {
namespace {

struct ExpectedCell {
    int red;
    int green;
    int blue;
    TwipsPosition position;
};

TEST(PaletteTable, HasTwentySixCellsWithTheirColoursAndPlaces)
{
    const std::array<ExpectedCell, kColourCells> expected{{
        {0, 0, 0, {360, 240}},         {255, 255, 255, {720, 720}},  {128, 128, 128, {360, 720}},
        {192, 192, 192, {1560, 720}},  {128, 0, 0, {1800, 1200}},    {255, 0, 0, {1320, 240}},
        {128, 128, 0, {2040, 1080}},   {255, 255, 0, {1560, 960}},   {0, 128, 0, {600, 960}},
        {0, 192, 0, {1000, 240}},      {0, 128, 128, {840, 840}},    {0, 255, 255, {1080, 840}},
        {0, 0, 128, {1320, 1080}},     {0, 0, 192, {680, 240}},      {128, 0, 128, {1800, 840}},
        {255, 0, 255, {1560, 1080}},   {64, 64, 0, {2280, 1920}},    {255, 255, 192, {2040, 1080}},
        {0, 64, 0, {960, 1080}},       {128, 255, 128, {1320, 840}}, {128, 128, 255, {1920, 840}},
        {192, 255, 255, {1560, 2880}}, {64, 0, 64, {120, 3480}},     {255, 128, 255, {360, 3480}},
        {128, 64, 0, {120, 3720}},     {255, 128, 0, {360, 3720}},
    }};
    for (int i = 0; i < kColourCells; ++i) {
        EXPECT_EQ(kColourPalette[i].BackColor, rgb(expected[i].red, expected[i].green, expected[i].blue))
            << i;
        EXPECT_EQ(kColourPalette[i].position, expected[i].position) << i;
        EXPECT_EQ(kColourPalette[i].visible, i != 21) << i;
    }
}

TEST(PaletteTable, ShowsBlackBlueGreenAndRedWithinTheFrame)
{
    std::vector<Colour> inRow;
    for (const auto& cell : kColourPalette) {
        if (cell.position.Top < kColourFrameSize.Height)
            inRow.push_back(cell.BackColor);
    }
    EXPECT_EQ(inRow, (std::vector<Colour>{rgb(0, 0, 0), rgb(255, 0, 0), rgb(0, 192, 0), rgb(0, 0, 192)}));
}

TEST(PaletteTable, KeepsTheRedOfAColourInTheLowByte)
{
    EXPECT_EQ(kColourPalette[5].BackColor, 0x0000FFU);
    EXPECT_EQ(kColourPalette[13].BackColor, 0xC00000U);
}

TEST(PaletteTable, PlacesTheFrames)
{
    EXPECT_EQ(kToolsFramePosition, (TwipsPosition{-120, -240}));
    EXPECT_EQ(kToolsFrameSize, (TwipsSize{2415, 1035}));
    EXPECT_EQ(kColourFrameSize, (TwipsSize{2055, 615}));
    EXPECT_EQ(kColourCellSize, (TwipsSize{255, 255}));
}

TEST(Backgrounds, AreFourWithTheirCaptionsFilesAndPlaces)
{
    EXPECT_EQ(background(Sheet::blank).option, "Option4");
    EXPECT_EQ(background(Sheet::blank).caption, "Blank");
    EXPECT_EQ(background(Sheet::blank).picture, "");
    EXPECT_EQ(background(Sheet::blank).position, (TwipsPosition{0, 1245}));
    EXPECT_EQ(background(Sheet::grid).option, "Option1");
    EXPECT_EQ(background(Sheet::grid).caption, "Grid");
    EXPECT_EQ(background(Sheet::grid).picture, "grid.gif");
    EXPECT_EQ(background(Sheet::grid).position, (TwipsPosition{800, 1245}));
    EXPECT_EQ(background(Sheet::squares).option, "Option2");
    EXPECT_EQ(background(Sheet::squares).caption, "Squares");
    EXPECT_EQ(background(Sheet::squares).picture, "squares.jpg");
    EXPECT_EQ(background(Sheet::squares).position, (TwipsPosition{2160, 2280}));
    EXPECT_EQ(background(Sheet::xyAxis).option, "Option3");
    EXPECT_EQ(background(Sheet::xyAxis).caption, "XY Axis");
    EXPECT_EQ(background(Sheet::xyAxis).picture, "xy.gif");
    EXPECT_EQ(background(Sheet::xyAxis).position, (TwipsPosition{1560, 1245}));
}

} // namespace
} // namespace quillora::drawing
