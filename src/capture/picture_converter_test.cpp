#include "capture/picture_converter.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillora::capture;

namespace {

ScreenImage even(int width, int height, std::uint8_t value)
{
    ScreenImage image;
    image.resize(width, height);
    std::ranges::fill(image.pixels, value);
    return image;
}

bool isAll(const VideoPicture& picture, int luma)
{
    return std::ranges::all_of(picture.luma, [&](int value) { return value == luma; });
}

} // namespace

TEST(PictureConverter, BeginsBlack)
{
    PictureConverter converter(20, 10);
    EXPECT_TRUE(isAll(*converter.handOut(), 16));
}

TEST(PictureConverter, TakesUpTheChangedPartAlone)
{
    PictureConverter converter(20, 10);
    EXPECT_EQ(converter.update(even(20, 10, 255), {4, 2, 6, 4}), 24);
    EXPECT_EQ(std::ranges::count(converter.handOut()->luma, 235), 24);
}

TEST(PictureConverter, ScalesEverySizeToItsOwn)
{
    PictureConverter converter(20, 10);
    int shade = 0;
    for (const auto& [width, height] : {std::pair{21, 10}, {40, 20}, {7, 33}, {20, 10}, {1, 1}}) {
        shade += 51;
        converter.update(even(width, height, std::uint8_t(shade)), {0, 0, width, height});
        EXPECT_TRUE(isAll(*converter.handOut(), 16 + (shade * 219 + 127) / 255)) << width << "x" << height;
    }
}

TEST(PictureConverter, TakesUpAllOfAnImageWhoseSizeIsNew)
{
    PictureConverter converter(20, 10);
    converter.update(even(40, 20, 255), {0, 0, 1, 1});
    EXPECT_TRUE(isAll(*converter.handOut(), 235));
}

TEST(PictureConverter, LeavesAPictureAloneThatItHasHandedOut)
{
    PictureConverter converter(20, 10);
    converter.update(even(20, 10, 255), {0, 0, 20, 10});
    const SharedPicture before = converter.handOut();
    converter.update(even(20, 10, 0), {0, 0, 2, 2});
    const SharedPicture part = converter.handOut();
    converter.update(even(20, 10, 0), {0, 0, 20, 10});
    EXPECT_TRUE(isAll(*before, 235));
    EXPECT_EQ(std::ranges::count(part->luma, 235), 196);
    EXPECT_TRUE(isAll(*converter.handOut(), 16));
}
