#include "deck/platform/libreoffice/rgb_picture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillora::deck::libreoffice {
namespace {

RgbPicture plain(PictureSize size, std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    RgbPicture picture{size};
    for (int i = 0; i < size.width * size.height; ++i)
        picture.bytes.insert(picture.bytes.end(), {red, green, blue});
    return picture;
}

TEST(RgbPicture, ASlotHoldsBlueFirstAndAFourthByteThatIsNoColour)
{
    const std::vector<std::uint8_t> slot{3, 2, 1, 99, 6, 5, 4, 99, 0, 0, 0, 0};
    EXPECT_EQ(rgbOf(slot, {2, 1}).bytes, (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6}));
}

TEST(RgbPicture, APictureLargerThanItsSlotIsRefused)
{
    const std::vector<std::uint8_t> slot(15);
    EXPECT_THROW(rgbOf(slot, {2, 2}), std::runtime_error);
}

TEST(Stretched, APlainColourStaysExactlyWhatItWas)
{
    for (const PictureSize size :
         {PictureSize{560, 420}, PictureSize{7, 3}, PictureSize{1, 1}, PictureSize{300, 300}})
        EXPECT_EQ(stretched(plain({128, 72}, 255, 131, 7), size).bytes, plain(size, 255, 131, 7).bytes);
}

TEST(Stretched, TheSameSizeGivesTheSamePicture)
{
    RgbPicture picture = plain({3, 2}, 0, 0, 0);
    for (std::size_t i = 0; i < picture.bytes.size(); ++i)
        picture.bytes[i] = static_cast<std::uint8_t>(i * 14);
    EXPECT_EQ(stretched(picture, {3, 2}).bytes, picture.bytes);
}

TEST(Stretched, EveryPixelCountsWhenMadeSmaller)
{
    // A black line of one pixel in white must not fall between the pixels that are looked at.
    for (int line = 0; line < 12; ++line) {
        RgbPicture picture = plain({12, 1}, 255, 255, 255);
        for (int channel = 0; channel < 3; ++channel)
            picture.bytes[static_cast<std::size_t>(line * 3 + channel)] = 0;
        const RgbPicture small = stretched(picture, {3, 1});
        int missing = 0;
        for (int x = 0; x < 3; ++x)
            missing += 255 - small.bytes[static_cast<std::size_t>(x) * 3];
        // A fourth of a target pixel, a little more or less at the border.
        EXPECT_GT(missing, 255 / 8) << line;
        EXPECT_LT(missing, 255 / 2) << line;
    }
}

TEST(Stretched, EachAxisIsStretchedForItself)
{
    // Left half red, right half blue.
    RgbPicture picture = plain({4, 4}, 200, 0, 0);
    for (std::size_t i = 0; i < 16; ++i) {
        if (i % 4 >= 2) {
            picture.bytes[i * 3] = 0;
            picture.bytes[i * 3 + 2] = 200;
        }
    }
    const RgbPicture wide = stretched(picture, {8, 2});
    EXPECT_EQ(wide.size, (PictureSize{8, 2}));
    EXPECT_EQ(wide.bytes[0], 200);
    EXPECT_EQ(wide.bytes[7 * 3], 0);
    EXPECT_EQ(wide.bytes[7 * 3 + 2], 200);
}

TEST(Stretched, ASizeOfNothingIsRefused)
{
    EXPECT_THROW(stretched(plain({2, 2}, 0, 0, 0), {0, 5}), std::runtime_error);
}

} // namespace
} // namespace quillora::deck::libreoffice
