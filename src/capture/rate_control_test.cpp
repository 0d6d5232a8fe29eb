#include "capture/rate_control.h"

#include <gtest/gtest.h>

#include <algorithm>

using quillora::capture::RateControl;

namespace {

constexpr double kBitrate = 700'000;
constexpr double kRate = 24;
constexpr std::int64_t kPixels = 746 * 420;

/// An encoder whose frames grow with what changes and shrink with the quantiser.
class Lecture {
  public:
    /// @p bitsPerPixel at quantiser 1; slides take 3 to 7.
    explicit Lecture(double bitsPerPixel = 5) : m_density(bitsPerPixel) {}

    void change(double share)
    {
        const auto pixels = std::int64_t(share * kPixels);
        const auto quantiser = control.forChange(pixels);
        if (quantiser)
            control.encodedChange(spend(m_density * double(pixels) / *quantiser), *quantiser, pixels);
        else
            control.leftOut(spend(0), pixels);
        m_leftOut += quantiser ? 0 : 1;
        lastQuantiser = quantiser.value_or(0);
    }

    void stay(int frames)
    {
        for (; frames > 0; --frames)
            if (const auto quantiser = control.forStill()) {
                control.encodedStill(
                    spend(0.5 * m_density * kPixels * (1.0 / *quantiser - 1.0 / (lastQuantiser + 1))),
                    *quantiser);
                lastQuantiser = *quantiser;
            } else {
                control.repeated(spend(0));
            }
    }

    double bitsPerSecond() const { return m_bits / (double(m_frames) / kRate); }
    int leftOut() const { return m_leftOut; }

    RateControl control{kBitrate, kRate, kPixels};
    int lastQuantiser = 0;

  private:
    std::int64_t spend(double bits)
    {
        const double all = std::max(0.0, bits) + 3800;
        m_bits += all;
        ++m_frames;
        return std::int64_t(all);
    }

    double m_density;
    double m_bits = 0;
    std::int64_t m_frames = 0;
    int m_leftOut = 0;
};

} // namespace

TEST(RateControl, ShowsTheFirstSlideAtItsFinestWithNothingSavedYet)
{
    Lecture lecture;
    EXPECT_EQ(lecture.control.forKeyFrame(), RateControl::kFinestForKeyFrame);
    EXPECT_EQ(lecture.control.forChange(kPixels), RateControl::kFinestForChange);
}

TEST(RateControl, RefinesASlideAtOnceAndThenLeavesItAlone)
{
    Lecture lecture;
    lecture.stay(24 * 5);
    lecture.change(1);
    EXPECT_EQ(lecture.lastQuantiser, RateControl::kFinestForChange);
    lecture.stay(1);
    EXPECT_EQ(lecture.lastQuantiser, RateControl::kFinestForStill);
    lecture.stay(2);
    EXPECT_EQ(lecture.control.forStill(), std::nullopt);
}

TEST(RateControl, KeepsASlideLectureFarBelowTheBitrate)
{
    Lecture lecture(7);
    for (int slide = 0; slide < 20; ++slide) {
        lecture.change(1);
        EXPECT_EQ(lecture.lastQuantiser, RateControl::kFinestForChange) << slide;
        lecture.stay(8 * 24 - 1);
    }
    EXPECT_LT(lecture.bitsPerSecond(), kBitrate / 2);
}

TEST(RateControl, KeepsTheAverageInFullMotion)
{
    for (const double density : {0.5, 2.0, 10.0, 50.0}) {
        Lecture lecture(density);
        for (int frame = 0; frame < 24 * 60; ++frame)
            lecture.change(1);
        EXPECT_LT(lecture.bitsPerSecond(), 1.03 * kBitrate) << density;
        if (density == 2) {
            EXPECT_GT(lecture.bitsPerSecond(), 0.7 * kBitrate);
        }
    }
}

TEST(RateControl, LeavesFramesOutOnlyWhereTheCoarsestDoesNotFit)
{
    Lecture moderate(1);
    Lecture noise(40);
    for (int frame = 0; frame < 24 * 20; ++frame) {
        moderate.change(1);
        noise.change(1);
    }
    EXPECT_EQ(moderate.leftOut(), 0);
    EXPECT_GT(noise.leftOut(), 24 * 10);
    EXPECT_LT(noise.leftOut(), 24 * 20 - 10);
}

TEST(RateControl, SharpensThePictureSoonAfterMotionStops)
{
    Lecture lecture(1.5);
    for (int frame = 0; frame < 24 * 10; ++frame)
        lecture.change(1);
    EXPECT_GT(lecture.lastQuantiser, 8);
    lecture.stay(24 * 2);
    EXPECT_LE(lecture.lastQuantiser, 2);
}

TEST(RateControl, SpendsLittleOnASmallChange)
{
    Lecture lecture;
    lecture.stay(24);
    const double before = lecture.control.savings();
    for (int frame = 0; frame < 24; ++frame) {
        lecture.change(0.003);
        EXPECT_EQ(lecture.lastQuantiser, RateControl::kFinestForChange);
    }
    EXPECT_GT(lecture.control.savings(), before);
}

TEST(RateControl, SavesAtMostSomeSecondsOfStillness)
{
    Lecture lecture;
    lecture.stay(24 * 3600);
    EXPECT_LE(lecture.control.savings(), 10 * kBitrate);
    EXPECT_GT(lecture.control.savings(), 9 * kBitrate);
}

TEST(RateControl, AffordsAKeyFrameOfAStillPictureOnceEnoughIsSaved)
{
    Lecture lecture;
    EXPECT_FALSE(lecture.control.affordsKeyFrame());
    lecture.stay(24 * 10);
    EXPECT_TRUE(lecture.control.affordsKeyFrame());
}

TEST(RateControl, TellsMotionFromSlidesThatFollowQuickly)
{
    Lecture slides(2);
    for (int slide = 0; slide < 20; ++slide) {
        slides.change(1);
        EXPECT_FALSE(slides.control.inMotion());
        slides.stay(11);
    }
    Lecture film(2);
    for (int frame = 0; frame < 12; ++frame)
        film.change(1);
    EXPECT_TRUE(film.control.inMotion());
    film.stay(48);
    EXPECT_FALSE(film.control.inMotion());
}

TEST(RateControl, EncodesMotionNoFinerThanIsSeenAndSavesTheRestForACut)
{
    Lecture film(0.5);
    for (int frame = 0; frame < 24 * 10; ++frame)
        film.change(1);
    EXPECT_EQ(film.lastQuantiser, RateControl::kFinestForMotion);
    EXPECT_GT(film.control.savings(), kBitrate);
}

TEST(RateControl, GoesOnWithCoarseMotionAfterACutThatTookTooMuch)
{
    Lecture film(1);
    for (int frame = 0; frame < 24 * 5; ++frame)
        film.change(1);
    film.control.encodedChange(std::int64_t(0.35 * kBitrate + film.control.savings()), 10, kPixels);
    EXPECT_NE(film.control.forChange(kPixels), std::nullopt);
}
