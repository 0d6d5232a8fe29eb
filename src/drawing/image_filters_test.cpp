#include "drawing/image_filters.h"

#include "tests/support/fake_random_numbers.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace quillora::drawing {
namespace {

using tests::expectedGrid;
using tests::kInk;
using tests::kPaper;
using tests::pictureOf;
using tests::pixelGrid;
using tests::PixelKey;

constexpr Colour grey(int value) { return rgb(value, value, value); }

struct ImageFiltersTest : testing::Test {
    tests::FakeRandomNumbers random;
    ImageFilters filters{random};

    RasterImage applied(Filter filter, RasterImage picture, FilterRectangle rectangle = kWholeSurface)
    {
        filters.applyUnseen(static_cast<int>(filter), picture, rectangle);
        return picture;
    }
};

TEST_F(ImageFiltersTest, BlackAndWhiteReachesThePixelsOfTheRectangleBothEndsIncluded)
{
    EXPECT_EQ(pixelGrid(applied(Filter::blackAndWhite, RasterImage(6, 5, grey(100)), {1, 1, 3, 2}),
                        {{'g', grey(100)}, {'#', kInk}}),
              expectedGrid(R"(
        gggggg
        g###gg
        g###gg
        gggggg
        gggggg
    )"));
}

TEST_F(ImageFiltersTest, BrightenAndDarkenReachTheWholeSurface)
{
    EXPECT_EQ(applied(Filter::brighten, RasterImage(20, 20, grey(100))), RasterImage(20, 20, grey(132)));
    EXPECT_EQ(applied(Filter::darken, RasterImage(20, 20, grey(100))), RasterImage(20, 20, grey(68)));
}

TEST_F(ImageFiltersTest, ARectangleIsSmallBelow256PixelsBetweenItsCorners)
{
    EXPECT_EQ(applied(Filter::brighten, RasterImage(40, 40, grey(100)), {0, 0, 15, 17}).at(0, 0), grey(102));
    EXPECT_EQ(applied(Filter::brighten, RasterImage(40, 40, grey(100)), {0, 0, 16, 16}).at(0, 0), grey(132));
    EXPECT_EQ(applied(Filter::darken, RasterImage(40, 40, grey(100)), {0, 0, 15, 17}).at(0, 0), grey(98));
}

TEST_F(ImageFiltersTest, SoftBlurLeavesTheRectanglesEdge)
{
    EXPECT_EQ(pixelGrid(applied(Filter::softBlur, RasterImage(6, 5, grey(100)), {0, 0, 4, 4}),
                        {{'.', grey(100)}, {'b', grey(90)}}),
              expectedGrid(R"(
        ......
        .bbb..
        .bbb..
        .bbb..
        ......
    )"));
}

TEST_F(ImageFiltersTest, SoftBlurOfAWholeSurfaceReadsMissingPixelsPastItsRightAndBottom)
{
    // Six pixels of 100 and three missing ones in the last column and row: 600 over ten, the red less 3. In
    // the corner, four and five.
    EXPECT_EQ(pixelGrid(applied(Filter::softBlur, RasterImage(4, 4, grey(100))),
                        {{'.', grey(100)}, {'b', grey(90)}, {'e', grey(60)}, {'c', rgb(40, 40, 40)}}),
              expectedGrid(R"(
        ....
        .bbe
        .bbe
        .eec
    )"));
}

TEST_F(ImageFiltersTest, SoftBlurReadsThePictureAsItWasBeforeItBegan)
{
    RasterImage picture(5, 5, grey(0));
    picture.at(1, 1) = grey(100);
    EXPECT_EQ(pixelGrid(applied(Filter::softBlur, picture, {0, 0, 4, 4}), {{'.', grey(0)}, {'b', grey(10)}}),
              expectedGrid(R"(
        .....
        .bb..
        .bb..
        .....
        .....
    )"));
}

TEST_F(ImageFiltersTest, EmbossLeavesTheLastColumnAndRowOfTheRectangle)
{
    RasterImage picture(5, 4, grey(0));
    picture.at(1, 1) = grey(100);
    EXPECT_EQ(pixelGrid(applied(Filter::emboss, picture, {0, 0, 3, 3}),
                        {{'.', grey(0)}, {'m', grey(128)}, {'d', grey(28)}, {'w', grey(228)}}),
              expectedGrid(R"(
        wmm..
        mdm..
        mmm..
        .....
    )"));
}

TEST_F(ImageFiltersTest, EmbossOfAWholeSurfaceReadsMissingPixelsPastItsRightAndBottom)
{
    EXPECT_EQ(pixelGrid(applied(Filter::emboss, RasterImage(3, 3, grey(0))),
                        {{'m', grey(128)}, {'e', rgb(127, 128, 128)}}),
              expectedGrid(R"(
        mme
        mme
        eee
    )"));
}

TEST_F(ImageFiltersTest, SharpenLeavesTheFirstColumnAndRowAndReadsFromAboveAndLeft)
{
    RasterImage picture(4, 4, grey(60));
    picture.at(1, 1) = grey(100);
    EXPECT_EQ(pixelGrid(applied(Filter::sharpen, picture, {0, 0, 3, 3}),
                        {{'.', grey(60)}, {'b', grey(120)}, {'d', grey(40)}}),
              expectedGrid(R"(
        ....
        .b..
        ..d.
        ....
    )"));
}

TEST_F(ImageFiltersTest, StrongSharpenHasTheSameReach)
{
    RasterImage picture(4, 4, grey(60));
    picture.at(1, 1) = grey(65);
    EXPECT_EQ(
        pixelGrid(applied(Filter::strongSharpen, picture, {0, 0, 3, 3}), {{'.', grey(60)}, {'b', grey(185)}}),
        expectedGrid(R"(
        ....
        .b..
        ....
        ....
    )"));
}

TEST_F(ImageFiltersTest, StrongSharpenDropsTheSignOfADarkResult)
{
    RasterImage picture(3, 3, grey(60));
    picture.at(0, 0) = grey(65);
    EXPECT_EQ(applied(Filter::strongSharpen, picture).at(1, 1), grey(60));
}

TEST_F(ImageFiltersTest, WaveShiftsColumnsBySinesAndClearsNothing)
{
    RasterImage picture(4, 12, kPaper);
    for (int x = 0; x < 4; ++x)
        picture.at(x, 5) = kInk;
    // 4 sin x is 0, 3.37, 3.64, 0.56: the columns after the first go 3, 4 and 1 down.
    EXPECT_EQ(pixelGrid(applied(Filter::wave, picture, {0, 0, 3, 11})), expectedGrid(R"(
        ....
        ....
        ....
        ....
        ....
        #...
        ...#
        ....
        .#..
        ..#.
        ....
        ....
    )"));
}

TEST_F(ImageFiltersTest, WaveLeavesWhatNothingWasMovedOnto)
{
    RasterImage picture(2, 6, kInk);
    picture.at(1, 4) = kPaper;
    // Column 1 goes 3 down: its upper three pixels are not written, and its dot falls off.
    EXPECT_EQ(pixelGrid(applied(Filter::wave, picture, {0, 0, 1, 5})), expectedGrid(R"(
        ##
        ##
        ##
        ##
        ##
        ##
    )"));
}

TEST_F(ImageFiltersTest, WaveOfAWholeSurfaceBringsMissingPixelsInAsWhite)
{
    // 4 sin 4 is -3.03: the row past the last one comes up by three.
    const auto picture = applied(Filter::wave, RasterImage(6, 6, kInk));
    EXPECT_EQ(picture.at(4, 3), kPaper);
    EXPECT_EQ(picture.at(4, 4), kInk);
    EXPECT_EQ(picture.at(0, 5), kInk);
}

TEST_F(ImageFiltersTest, ScatterShiftsColumnsByHundreds)
{
    RasterImage picture(4, 500, kPaper);
    for (int x = 0; x < 4; ++x)
        picture.at(x, 10) = kInk;
    const auto scattered = applied(Filter::scatterColumns, picture, {0, 0, 3, 499});
    // 512 sin x is 0, 430.83, 465.56, 72.25.
    EXPECT_EQ(scattered.at(0, 10), kInk);
    EXPECT_EQ(scattered.at(1, 441), kInk);
    EXPECT_EQ(scattered.at(2, 476), kInk);
    EXPECT_EQ(scattered.at(3, 82), kInk);
    EXPECT_EQ(scattered.at(1, 10), kInk);
}

TEST_F(ImageFiltersTest, DiffuseTakesEachChannelFromAPixelOfItsOwn)
{
    RasterImage picture(6, 6, grey(0));
    picture.at(2, 4) = rgb(200, 1, 1);
    picture.at(0, 2) = rgb(1, 150, 1);
    picture.at(1, 3) = rgb(1, 1, 100);
    // Int(5 u - 2) is 2 for red, -2 for green, -1 and 1 for blue.
    random.numbers = {0.9F, 0.1F, 0.3F, 0.7F};
    EXPECT_EQ(applied(Filter::diffuse, picture, {0, 0, 5, 5}).at(2, 2), rgb(200, 150, 100));
}

TEST_F(ImageFiltersTest, DiffuseLeavesTwoColumnsBeforeAndThreeAfter)
{
    RasterImage picture(7, 7, grey(50));
    random.numbers = {0.5F};
    const auto whole = applied(Filter::diffuse, picture, {0, 0, 6, 6});
    EXPECT_EQ(whole, picture);
    // Two columns by two rows, four numbers a pixel.
    EXPECT_EQ(random.given, 2U * 2U * 4U);
}

TEST_F(ImageFiltersTest, DiffuseGoesDownTheColumnsOneAfterTheOther)
{
    RasterImage picture(8, 8, grey(0));
    picture.at(2, 3) = grey(90);
    // The second pixel that is set is the one below the first: it alone takes all from itself.
    random.numbers = {0.9F, 0.9F, 0.9F, 0.9F, 0.5F, 0.5F, 0.5F, 0.5F, 0.9F, 0.9F, 0.9F, 0.9F};
    const auto diffused = applied(Filter::diffuse, picture, {0, 0, 7, 7});
    EXPECT_EQ(diffused.at(2, 3), grey(90));
    EXPECT_EQ(diffused.at(3, 2), grey(0));
}

TEST_F(ImageFiltersTest, DiffuseStaysInTheRectangleWhateverTheNumbers)
{
    random.numbers = {0.0F, 0.999999F, 1.0F};
    EXPECT_EQ(applied(Filter::diffuse, RasterImage(9, 9, grey(50)), {0, 0, 8, 8}),
              RasterImage(9, 9, grey(50)));
}

TEST_F(ImageFiltersTest, ComicGreyGoesDownTheColumnsAndStopsAtTheFirstPixelThatIsTooBright)
{
    RasterImage picture(3, 3, rgb(80, 90, 60));
    picture.at(1, 1) = kPaper;
    EXPECT_THROW(filters.applyUnseen(static_cast<int>(Filter::comicGrey), picture, kWholeSurface),
                 std::overflow_error);
    EXPECT_EQ(pixelGrid(picture, {{'c', grey(33)}, {'-', rgb(80, 90, 60)}, {'.', kPaper}}), expectedGrid(R"(
        cc-
        c.-
        c--
    )"));
}

TEST_F(ImageFiltersTest, GreyAndReplaceColourReachTheRectangle)
{
    EXPECT_EQ(applied(Filter::grey, RasterImage(2, 2, kPaper)), RasterImage(2, 2, grey(245)));
    filters.replacement = {kPaper, kInk};
    EXPECT_EQ(pixelGrid(applied(Filter::replaceColour, RasterImage(3, 3, kPaper), {1, 1, 2, 2})),
              expectedGrid(R"(
        ...
        .##
        .##
    )"));
}

TEST_F(ImageFiltersTest, AnyOtherIdChangesNoPixel)
{
    const auto picture = pictureOf(R"(
        #.#.
        .#o.
    )");
    for (const int id : {9, 14, 99, -1, std::numeric_limits<int>::max()}) {
        auto same = picture;
        filters.applyUnseen(id, same, kWholeSurface);
        EXPECT_EQ(same, picture) << id;
    }
}

TEST_F(ImageFiltersTest, EffectsThatReadTheirNeighbourhoodFailBeforeTheFirstColumnAndRow)
{
    for (const auto filter : {Filter::softBlur, Filter::scatterColumns, Filter::diffuse, Filter::emboss,
                              Filter::sharpen, Filter::strongSharpen, Filter::wave}) {
        RasterImage picture(4, 4, grey(10));
        EXPECT_THROW(filters.applyUnseen(static_cast<int>(filter), picture, {-1, 0, 3, 3}),
                     std::out_of_range);
        EXPECT_THROW(filters.applyUnseen(static_cast<int>(filter), picture, {0, -1, 3, 3}),
                     std::out_of_range);
        EXPECT_EQ(picture, RasterImage(4, 4, grey(10)));
    }
}

TEST_F(ImageFiltersTest, TheOthersWriteNothingOutside)
{
    EXPECT_EQ(pixelGrid(applied(Filter::brighten, RasterImage(4, 3, grey(10)), {-2, -2, 1, 0}),
                        {{'.', grey(10)}, {'b', grey(12)}}),
              expectedGrid(R"(
        bb..
        ....
        ....
    )"));
    EXPECT_EQ(applied(Filter::comicGrey, RasterImage(2, 2, grey(0)), {-5, -5, 9, 9}),
              RasterImage(2, 2, grey(0)));
}

TEST_F(ImageFiltersTest, BearTheEndsOfTheNumbers)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    for (int id = -1; id <= 14; ++id) {
        for (const auto& rectangle :
             {FilterRectangle{0, 0, highest, highest}, FilterRectangle{highest, highest, highest, highest},
              FilterRectangle{lowest, lowest, highest, highest}, FilterRectangle{3, 3, lowest, lowest}}) {
            RasterImage picture(5, 5, grey(20));
            try {
                filters.applyUnseen(id, picture, rectangle);
            } catch (const std::out_of_range&) {
                EXPECT_LT(rectangle.x0, 0);
            }
        }
    }
}

TEST_F(ImageFiltersTest, AnEmptyPictureIsNoTrouble)
{
    for (int id = -1; id <= 14; ++id) {
        RasterImage picture;
        EXPECT_NO_THROW(filters.applyUnseen(id, picture, kWholeSurface)) << id;
    }
}

} // namespace
} // namespace quillora::drawing
