#include "capture/timeline_writer.h"

#include "tests/support/fake_capture_ports.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillora::capture;
using namespace std::chrono_literals;
using quillora::tests::MemoryMediaWriter;
using quillora::tests::WrittenMedia;

namespace {

/// A recording that began at zero and goes on.
class TimelineWriterTest : public testing::Test {
  protected:
    TimelineWriterTest() { clock.resume(kBegin); }

    static NumberedPicture picture(std::int64_t frame, int luma)
    {
        auto shown = std::make_shared<VideoPicture>(2, 2);
        shown->luma[0] = std::uint8_t(luma);
        return {frame, shown, 4};
    }
    Delivery delivery(std::int64_t frames, std::deque<NumberedPicture> pictures = {}) const
    {
        return {std::move(pictures), {}, clock, frames, false};
    }

    static constexpr CaptureClock::time_point kBegin{1h};
    std::shared_ptr<WrittenMedia> media = std::make_shared<WrittenMedia>();
    TimelineWriter writer{std::make_unique<MemoryMediaWriter>(media, MediaFormat{})};
    SegmentClock clock{};
};

TEST_F(TimelineWriterTest, RepeatsAPictureUntilTheFrameOfTheNext)
{
    writer.write(delivery(6, {picture(0, 10), picture(3, 20)}), kBegin);
    EXPECT_EQ(media->frames, (std::vector<int>{10, 10, 10, 20, 20, 20}));
    writer.write(delivery(8), kBegin);
    writer.write(delivery(9, {picture(8, 30)}), kBegin);
    EXPECT_EQ(media->frames, (std::vector<int>{10, 10, 10, 20, 20, 20, 20, 20, 30}));
}

TEST_F(TimelineWriterTest, WaitsASecondForSoundAndThenTakesItToBeNone)
{
    writer.write(delivery(0), kBegin + 1s);
    EXPECT_TRUE(media->sound.empty());
    writer.write(delivery(0), kBegin + 1500ms);
    EXPECT_EQ(media->sound, std::vector<float>(kSoundRate / 2, 0.0F));
}

TEST_F(TimelineWriterTest, KnowsHowFarTheSoundGoes)
{
    Delivery heard = delivery(0);
    heard.sound.push_back({kBegin, std::vector<float>(kSoundRate, 0.5F)});
    writer.write(heard, kBegin + 1s);
    EXPECT_TRUE(writer.hasSoundUntil(1s));
    EXPECT_FALSE(writer.hasSoundUntil(1001ms));
    writer.fillSound(2s);
    EXPECT_TRUE(writer.hasSoundUntil(2s));
    ASSERT_EQ(media->sound.size(), std::size_t{2 * kSoundRate});
    EXPECT_EQ(media->sound[kSoundRate / 2], 0.5F);
    EXPECT_EQ(media->sound.back(), 0.0F);
}

TEST_F(TimelineWriterTest, FlushesFourTimesASecondAtMost)
{
    for (int i = 0; i < 100; ++i)
        writer.flush(kBegin + i * 10ms);
    EXPECT_EQ(media->flushed, 4);
}

TEST_F(TimelineWriterTest, FailsWhereTheFileCannotBeContinued)
{
    media->diskFullAfterFrames = 2;
    writer.write(delivery(2, {picture(0, 10)}), kBegin);
    EXPECT_THROW(writer.write(delivery(3), kBegin), std::runtime_error);
}

} // namespace
