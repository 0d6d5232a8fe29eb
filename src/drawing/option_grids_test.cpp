#include "drawing/option_grids.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillora::drawing {
namespace {

constexpr OptionShape kAllBlack{kBlack, kBlack};
constexpr OptionShape kAllWhite{kWhite, kWhite};

TEST(WidthGridCell, IsTakenFromARowAndAColumn)
{
    EXPECT_EQ(widthGridCell(75, 150), 0);
    EXPECT_EQ(widthGridCell(325, 150), 1);
    EXPECT_EQ(widthGridCell(200, 500), 2);
    EXPECT_EQ(widthGridCell(400, 500), 3);
    EXPECT_EQ(widthGridCell(200, 700), 4);
    EXPECT_EQ(widthGridCell(400, 700), 5);
    EXPECT_EQ(widthGridCell(200, 1000), 6);
    EXPECT_EQ(widthGridCell(400, 1000), 7);
}

TEST(WidthGridCell, EndsWhereTheNextOneBegins)
{
    EXPECT_EQ(widthGridCell(324.9F, 399.9F), 0);
    EXPECT_EQ(widthGridCell(325, 399.9F), 1);
    EXPECT_EQ(widthGridCell(324.9F, 400), 2);
    EXPECT_EQ(widthGridCell(324.9F, 650), 4);
    EXPECT_EQ(widthGridCell(324.9F, 900), 6);
    EXPECT_EQ(widthGridCell(574.9F, 1149.9F), 7);
}

TEST(WidthGridCell, IsNoneOutsideTheGrid)
{
    EXPECT_FALSE(widthGridCell(74.9F, 500));
    EXPECT_FALSE(widthGridCell(575, 500));
    EXPECT_FALSE(widthGridCell(200, 149.9F));
    EXPECT_FALSE(widthGridCell(200, 1150));
    EXPECT_FALSE(widthGridCell(std::nanf(""), 500));
}

TEST(WidthMarker, StandsAtTheCornerOfItsCell)
{
    EXPECT_EQ(widthMarkerPosition(0), (TwipsPosition{75, 150}));
    EXPECT_EQ(widthMarkerPosition(1), (TwipsPosition{325, 150}));
    EXPECT_EQ(widthMarkerPosition(2), (TwipsPosition{75, 400}));
    EXPECT_EQ(widthMarkerPosition(3), (TwipsPosition{325, 400}));
    EXPECT_EQ(widthMarkerPosition(4), (TwipsPosition{75, 650}));
    EXPECT_EQ(widthMarkerPosition(5), (TwipsPosition{325, 650}));
    EXPECT_EQ(widthMarkerPosition(6), (TwipsPosition{75, 900}));
    EXPECT_EQ(widthMarkerPosition(7), (TwipsPosition{325, 900}));
}

TEST(WidthGrid, ShowsTheChosenDotWhiteInsideAndAtItsBorder)
{
    WidthGrid grid;
    grid.paintChosen(3);
    EXPECT_EQ(grid.shpDot[3], kAllWhite);
    grid.paintAllBlack();
    EXPECT_EQ(grid.shpDot[3], kAllBlack);
    grid.paintInsideWhite(4);
    EXPECT_EQ(grid.shpDot[4], (OptionShape{kWhite, kBlack}));
}

TEST(FillModeAt, IsTakenFromTheHeightAlone)
{
    EXPECT_EQ(fillModeAt(125), 0);
    EXPECT_EQ(fillModeAt(424.9F), 0);
    EXPECT_EQ(fillModeAt(450), 1);
    EXPECT_EQ(fillModeAt(749.9F), 1);
    EXPECT_EQ(fillModeAt(775), 2);
    EXPECT_EQ(fillModeAt(1074.9F), 2);
}

TEST(FillModeAt, IsNoneInTheGaps)
{
    for (const float gap : {0.0F, 124.9F, 425.0F, 449.9F, 750.0F, 774.9F, 1075.0F, std::nanf("")})
        EXPECT_FALSE(fillModeAt(gap)) << gap;
}

TEST(FillColumn, GivesTheChosenRectangleAWhiteBorderAndMovesTheMarker)
{
    FillColumn column;
    const std::array<int, 3> tops{300, 580, 900};
    for (int mode = 2; mode >= 0; --mode) {
        column.choose(mode);
        EXPECT_EQ(column.lblFillTop, tops[mode]);
        for (int i = 0; i < FillColumn::kModes; ++i)
            EXPECT_EQ(column.shpRect[i].BorderColor, i == mode ? kWhite : kBlack);
    }
}

TEST(OptionFrames, StandBelowThePalette)
{
    EXPECT_EQ(kWidthGridPosition, (TwipsPosition{960, 3180}));
    EXPECT_EQ(kWidthGridSize, (TwipsSize{660, 1215}));
    EXPECT_EQ(kFillColumnPosition, (TwipsPosition{105, 3180}));
    EXPECT_EQ(kFillColumnSize, (TwipsSize{660, 1230}));
}

} // namespace
} // namespace quillora::drawing
