#include "audio/volume_scale.h"

#include <gtest/gtest.h>

using namespace quillora::audio;

TEST(VolumeScale, BringsEveryVolumeBackAsItWent)
{
    for (std::uint32_t volume = 0; volume <= kLoudest; ++volume)
        ASSERT_EQ(fromServerVolume(toServerVolume(volume)), volume);
}

TEST(VolumeScale, RisesWithTheVolume)
{
    for (std::uint32_t volume = 0; volume < kLoudest; ++volume)
        ASSERT_LT(toServerVolume(volume), toServerVolume(volume + 1));
}

TEST(VolumeScale, ShowsEveryVolumeOfTheServerAsItIs)
{
    for (std::uint32_t volume = 0; volume < kServerNormal; ++volume)
        ASSERT_EQ(fromServerVolume(volume), volume);
}

TEST(VolumeScale, MeetsAtBothEnds)
{
    EXPECT_EQ(toServerVolume(0), 0U);
    EXPECT_EQ(toServerVolume(65535), 65536U);
    EXPECT_EQ(fromServerVolume(0), 0U);
    EXPECT_EQ(fromServerVolume(65536), 65535U);
}

TEST(VolumeScale, CutsWhatIsLouderThanTheLoudest)
{
    EXPECT_EQ(fromServerVolume(99'000), 65535U);
    EXPECT_EQ(toServerVolume(70'000), 65536U);
}
