#include "deck/platform/libreoffice/picture_size.h"

#include <gtest/gtest.h>

namespace quillora::deck::libreoffice {
namespace {

TEST(SeriesSize, CommonSlidesAre1280WideInTheirOwnRatio)
{
    EXPECT_EQ(seriesSize(720, 540), (PictureSize{1280, 960}));
    EXPECT_EQ(seriesSize(960, 540), (PictureSize{1280, 720}));
    EXPECT_EQ(seriesSize(540, 720), (PictureSize{1280, 1707}));
}

TEST(SeriesSize, ATinyPageIsEnlarged) { EXPECT_EQ(seriesSize(28, 28), (PictureSize{1280, 1280})); }

TEST(SeriesSize, AVeryTallPageKeepsItsRatioAndStaysPaintable)
{
    EXPECT_EQ(seriesSize(100, 1000), (PictureSize{512, 5120}));
    EXPECT_EQ(seriesSize(1, 20000), (PictureSize{1, 5120}));
}

TEST(SeriesSize, AVeryFlatPageHasAtLeastARow) { EXPECT_EQ(seriesSize(20000, 1), (PictureSize{1280, 1})); }

} // namespace
} // namespace quillora::deck::libreoffice
