#include "base/twips.h"

#include <gtest/gtest.h>

using namespace quillora::base;

TEST(Twips, GiveAStageOf747By420Pixels)
{
    EXPECT_EQ(toPixels(kStageWidth), 747.0F);
    EXPECT_EQ(toPixels(kStageHeight), 420.0F);
}

TEST(Twips, KeepFractionsOfAPixel) { EXPECT_FLOAT_EQ(toPixels(Twips{2600}), 173.33333F); }
