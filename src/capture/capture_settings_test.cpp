#include "capture/capture_settings.h"

#include <gtest/gtest.h>

using quillora::capture::CaptureSettings;

TEST(CaptureSettings, BeginWithTheDefaultsOfTheOptionsForm)
{
    const CaptureSettings settings;
    EXPECT_EQ(settings.txtfps, "24");
    EXPECT_EQ(settings.bitrate_txt, "700");
    EXPECT_TRUE(settings.capturecursor_chk);
    EXPECT_FALSE(settings.highlightCursor_chk);
}
