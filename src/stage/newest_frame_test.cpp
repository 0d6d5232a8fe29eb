#include "stage/newest_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

using quillora::stage::CameraFrame;
using quillora::stage::NewestFrame;

namespace {

CameraFrame frameOf(std::uint32_t colour) { return {2, 1, {colour, colour}}; }

class NewestFrameTest : public testing::Test {
  protected:
    NewestFrameTest()
    {
        newest.onChange([this] { ++announcements; });
    }

    void put(std::uint32_t colour)
    {
        auto frame = frameOf(colour);
        newest.put(frame);
    }

    NewestFrame newest;
    CameraFrame taken;
    int announcements = 0;
};

} // namespace

TEST_F(NewestFrameTest, HasNothingToTakeAtFirst) { EXPECT_FALSE(newest.take(taken)); }

TEST_F(NewestFrameTest, GivesAPictureOnce)
{
    put(7);
    ASSERT_TRUE(newest.take(taken));
    EXPECT_EQ(taken.pixels, frameOf(7).pixels);
    EXPECT_FALSE(newest.take(taken));
}

TEST_F(NewestFrameTest, GivesTheNewestToAWindowThatComesLateAndCallsItOnce)
{
    for (const std::uint32_t colour : {1U, 2U, 3U})
        put(colour);
    EXPECT_EQ(announcements, 1);
    ASSERT_TRUE(newest.take(taken));
    EXPECT_EQ(taken.pixels, frameOf(3).pixels);
    put(4);
    EXPECT_EQ(announcements, 2);
}

TEST_F(NewestFrameTest, GivesAnEmptyPictureAfterTheCameraIsOff)
{
    put(7);
    newest.take(taken);
    newest.clear();
    EXPECT_EQ(announcements, 2);
    ASSERT_TRUE(newest.take(taken));
    EXPECT_TRUE(taken.empty());
}

TEST_F(NewestFrameTest, LetsBuffersGoRound)
{
    std::vector<const std::uint32_t*> seen;
    CameraFrame filled = frameOf(0);
    for (std::uint32_t i = 0; i < 12; ++i) {
        filled.pixels.resize(2);
        filled.pixels[0] = i;
        newest.put(filled);
        newest.take(taken);
        if (i > 4) {
            EXPECT_NE(std::ranges::find(seen, taken.pixels.data()), seen.end());
        }
        seen.push_back(taken.pixels.data());
    }
}

TEST_F(NewestFrameTest, IsFilledAndTakenByTwoThreadsAtOnce)
{
    constexpr std::uint32_t kPictures = 10'000;
    std::atomic<bool> done = false;
    newest.onChange([] {});
    std::thread camera([&] {
        for (std::uint32_t i = 1; i <= kPictures; ++i) {
            // The colour by the room of the moment: of what a torn picture would be made.
            put(newest.room().width > 1 ? i : i | 0x80000000U);
            if (i % 1000 == 0)
                newest.clear();
        }
        put(kPictures + 1);
        done = true;
    });
    std::uint32_t last = 0;
    for (bool end = false; !end;) {
        end = done;
        newest.setRoom({last % 2 == 0 ? 1 : 640, 480});
        if (!newest.take(taken) || taken.empty())
            continue;
        EXPECT_EQ(taken.pixels.at(0), taken.pixels.at(1));
        EXPECT_GT(taken.pixels[0] & 0x7FFFFFFFU, last) << "an older picture came back";
        last = taken.pixels[0] & 0x7FFFFFFFU;
    }
    camera.join();
    EXPECT_EQ(last, kPictures + 1);
}
