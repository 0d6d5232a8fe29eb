#include "capture/picture_pool.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

using namespace quillora::capture;

TEST(PicturePool, GivesPicturesOfItsSize)
{
    PicturePool pool(6, 5);
    const auto picture = pool.take();
    EXPECT_EQ(picture->width, 6);
    EXPECT_EQ(picture->luma.size(), 30U);
    EXPECT_EQ(picture->blueChroma.size(), 9U);
}

TEST(PicturePool, GivesNoPictureThatIsHeld)
{
    PicturePool pool(2, 2);
    const auto first = pool.take();
    EXPECT_NE(pool.take(), first);
}

TEST(PicturePool, GivesAPictureAgainThatNobodyHolds)
{
    PicturePool pool(2, 2);
    const VideoPicture* first = pool.take().get();
    EXPECT_EQ(pool.take().get(), first);
}

TEST(PicturePool, KeepsNoMoreSparePicturesThanAreOfUse)
{
    PicturePool pool(2, 2);
    std::vector<std::shared_ptr<VideoPicture>> many;
    for (int i = 0; i < 40; ++i) {
        many.push_back(pool.take());
        many.back()->luma[0] = 200;
    }
    many.clear();
    int again = 0;
    for (int i = 0; i < 40; ++i) {
        many.push_back(pool.take());
        again += many.back()->luma[0] == 200;
    }
    EXPECT_EQ(again, 16);
}

TEST(PicturePool, IsOutlivedByItsPictures)
{
    std::optional<PicturePool> pool(std::in_place, 2, 2);
    const auto picture = pool->take();
    pool.reset();
    picture->luma[0] = 7;
    EXPECT_EQ(picture->luma[0], 7);
}
