#include "capture/platform/ffmpeg/asf_writer.h"

#include "capture/sound_source.h"
#include "tests/platform/decoded_media.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace quillora::capture;
using quillora::tests::DecodedMedia;
using quillora::tests::decodeMedia;
using quillora::tests::psnr;
using quillora::tests::SmallDisk;
using quillora::tests::TemporaryFolder;

namespace {

/// Something like a slide: a light ground with dark bars and a shade, the @p variant shifting all of it.
SharedPicture slide(int width, int height, int variant)
{
    const auto picture = std::make_shared<VideoPicture>(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool bar = ((x + 7 * variant) / 3) % 5 == 0 && (y / 9) % 3 == variant % 3;
            picture->luma[std::size_t(y) * std::size_t(width) + std::size_t(x)] =
                std::uint8_t(bar ? 40 : 150 + (x + y + 13 * variant) % 64);
        }
    return picture;
}

SharedPicture noise(int width, int height, unsigned seed)
{
    const auto picture = std::make_shared<VideoPicture>(width, height);
    std::mt19937 generator(seed);
    for (auto& value : picture->luma)
        value = std::uint8_t(16 + generator() % 220);
    return picture;
}

std::vector<float> tone(double seconds)
{
    std::vector<float> samples(std::size_t(seconds * kSoundRate));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = 0.3F * std::sin(float(i) * 0.06F);
    return samples;
}

class AsfWriterTest : public testing::Test {
  protected:
    std::filesystem::path file(const char* name = "video.wmv") const { return m_folder.path() / name; }
    MediaFormat format(int width = 160, int height = 120, double rate = 24) const
    {
        return {file(), width, height, rate, 700'000};
    }

  private:
    TemporaryFolder m_folder;
};

/// Whole seconds of sound beside @p frames frames at 24 a second.
void writeSoundFor(MediaWriter& writer, double seconds) { writer.writeSound(tone(seconds)); }

} // namespace

TEST_F(AsfWriterTest, WritesEachFrameOnceAtItsTime)
{
    for (const double rate : {12.0, 24.0, 31.0, 32.0, 50.0}) {
        AsfWriter writer(format(160, 120, rate));
        for (int i = 0; i < 60; ++i)
            writer.writePicture(slide(160, 120, i), 160 * 120);
        writeSoundFor(writer, 60 / rate);
        writer.close();

        const DecodedMedia media = decodeMedia(file());
        ASSERT_EQ(media.frames.size(), 60U) << rate;
        EXPECT_EQ(media.errors, 0) << rate;
        for (std::size_t i = 0; i < 60; ++i)
            EXPECT_NEAR(media.frames[i].seconds - media.frames[0].seconds, double(i) / rate, 0.0011) << rate;
        EXPECT_NEAR(media.soundSeconds(), 60 / rate, 0.1) << rate;
    }
}

TEST_F(AsfWriterTest, TakesOddHeightsButNoOddWidth)
{
    AsfWriter writer(format(746, 421));
    writer.writePicture(slide(746, 421, 0), 746 * 421);
    writer.repeatPicture(10);
    writeSoundFor(writer, 0.5);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    ASSERT_EQ(media.frames.size(), 11U);
    EXPECT_EQ(media.frames[10].height, 421);
    EXPECT_GT(psnr(media.frames[10].luma, slide(746, 421, 0)->luma), 44);

    EXPECT_THROW(AsfWriter(format(747, 420)), std::runtime_error);
    EXPECT_THROW(AsfWriter(format(0, 0)), std::runtime_error);
}

TEST_F(AsfWriterTest, RefusesAPlaceWhereNoFileCanBe)
{
    MediaFormat nowhere = format();
    nowhere.path = file("no such folder") / "video.wmv";
    EXPECT_THROW(AsfWriter{nowhere}, std::runtime_error);
}

TEST_F(AsfWriterTest, ShowsASlideSharpAtOnceAndSharperSoonAfter)
{
    AsfWriter writer(format(746, 420));
    for (int i = 0; i < 3; ++i) {
        writer.writePicture(slide(746, 420, i), 746 * 420);
        writer.repeatPicture(47);
    }
    writeSoundFor(writer, 6);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    ASSERT_EQ(media.frames.size(), 144U);
    for (int i = 0; i < 3; ++i) {
        const auto first = std::size_t(i) * 48;
        EXPECT_GT(psnr(media.frames[first + 7].luma, slide(746, 420, i)->luma), 44);
        EXPECT_GT(psnr(media.frames[first + 24].luma, slide(746, 420, i)->luma), 46);
    }
}

TEST_F(AsfWriterTest, CanBeSoughtEveryTenSecondsInMotionWithoutAKeyFrameMoreOften)
{
    AsfWriter writer(format(320, 240));
    for (int i = 0; i < 24 * 25; ++i)
        writer.writePicture(slide(320, 240, i / 2), 320 * 240);
    writeSoundFor(writer, 25);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    EXPECT_EQ(media.frames.size(), 24U * 25);
    const auto keys = std::ranges::count(media.frames, true, &DecodedMedia::Frame::key);
    EXPECT_GE(keys, 3);
    EXPECT_LE(keys, 6);
}

// A repeated frame leaves the decoder rounding half-pixel motion the other way than the encoder, if their
// number is odd. Each step by half a pixel would then brighten or darken the picture a little, and the
// encoder would not know.
TEST_F(AsfWriterTest, StaysTrueToTheSourceAfterRepeatsOfAnyNumber)
{
    const auto waves = [](double shift) {
        const auto picture = std::make_shared<VideoPicture>(320, 240);
        for (int y = 0; y < 240; ++y)
            for (int x = 0; x < 320; ++x)
                picture->luma[std::size_t(y * 320 + x)] = std::uint8_t(
                    126 + 50 * std::sin((x + shift) * 0.23) + 40 * std::sin((y + shift) * 0.31 + x * 0.05));
        return picture;
    };
    AsfWriter writer(format(320, 240));
    std::vector<SharedPicture> shown;
    std::mt19937 generator(5);
    for (int change = 0; change < 60; ++change) {
        shown.push_back(waves(change * 0.5));
        writer.writePicture(shown.back(), 12'000);
        // Two of them are corrections.
        const auto repeats = change < 30 ? 3 : generator() % 9;
        writer.repeatPicture(repeats);
        for (unsigned i = 0; i < repeats; ++i)
            shown.push_back(shown.back());
    }
    writeSoundFor(writer, double(shown.size()) / 24);
    writer.close();

    const DecodedMedia media = decodeMedia(file());
    ASSERT_EQ(media.frames.size(), shown.size());
    EXPECT_EQ(media.errors, 0);
    for (std::size_t i = 0; i < shown.size(); ++i)
        EXPECT_GT(psnr(media.frames[i].luma, shown[i]->luma), 44) << "frame " << i;
}

TEST_F(AsfWriterTest, KeepsAStillPictureUnchangedForMinutes)
{
    AsfWriter writer(format(320, 240));
    writer.writePicture(slide(320, 240, 1), 320 * 240);
    writer.repeatPicture(24 * 120);
    writeSoundFor(writer, 120);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    ASSERT_EQ(media.frames.size(), 24U * 120U + 1U);
    for (std::size_t i = 24; i < media.frames.size(); i += 100)
        EXPECT_GT(psnr(media.frames[i].luma, slide(320, 240, 1)->luma), 46) << "frame " << i;
}

TEST_F(AsfWriterTest, KeepsToTheBitrateWhereEveryPixelChangesInEveryFrame)
{
    AsfWriter writer(format(320, 240));
    constexpr int seconds = 20;
    for (unsigned i = 0; i < 24 * seconds; ++i)
        writer.writePicture(noise(320, 240, i), 320 * 240);
    writeSoundFor(writer, seconds);
    writer.close();
    const double kilobits = double(std::filesystem::file_size(file())) * 8 / 1000;
    // 96 of them are the sound's, and the container takes its share.
    EXPECT_LT(kilobits / seconds, 700 + 96 + 40);
    EXPECT_EQ(decodeMedia(file()).frames.size(), 24U * seconds);
}

TEST_F(AsfWriterTest, BeginsWithBlackWhereNoPictureHasComeYet)
{
    AsfWriter writer(format());
    writer.repeatPicture(5);
    writer.writePicture(slide(160, 120, 0), 160 * 120);
    writeSoundFor(writer, 0.25);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    ASSERT_EQ(media.frames.size(), 6U);
    EXPECT_GT(psnr(media.frames[2].luma, VideoPicture(160, 120).luma), 50);
    EXPECT_GT(psnr(media.frames[5].luma, slide(160, 120, 0)->luma), 40);
}

TEST_F(AsfWriterTest, PutsASoundAtTheMomentAtWhichItWasHeard)
{
    AsfWriter writer(format());
    writer.repeatPicture(48);
    std::vector<float> samples(2 * kSoundRate);
    for (int i = 0; i < 200; ++i)
        samples[std::size_t(kSoundRate + i)] = i % 2 ? 0.9F : -0.9F;
    writer.writeSound(samples);
    writer.close();

    const DecodedMedia media = decodeMedia(file());
    std::size_t first = 0;
    while (first < media.sound.size() && std::abs(media.sound[first]) < 0.2F)
        ++first;
    const double heard = media.soundStart + double(first) / media.soundRate - media.frames[0].seconds;
    EXPECT_NEAR(heard, 1.0, 0.01);
    EXPECT_NEAR(media.soundStart, media.frames[0].seconds, 0.01) << "for players that ignore the first stamp";
}

TEST_F(AsfWriterTest, SurvivesSoundThatNoSoundCardGives)
{
    AsfWriter writer(format());
    writer.repeatPicture(96);
    std::vector<float> samples(4 * kSoundRate);
    std::mt19937 generator(1);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = i < samples.size() / 2 ? float(generator() % 2001) / 1000 - 1 : 1e30F;
    samples[10'000] = std::numeric_limits<float>::quiet_NaN();
    samples[10'001] = std::numeric_limits<float>::infinity();
    samples[10'002] = -std::numeric_limits<float>::infinity();
    writer.writeSound(samples);
    writer.close();
    const DecodedMedia media = decodeMedia(file());
    EXPECT_EQ(media.frames.size(), 96U);
    EXPECT_EQ(media.errors, 0);
    EXPECT_NEAR(media.soundSeconds(), 4, 0.1);
}

TEST_F(AsfWriterTest, LosesAtMostTwoSecondsWhenTheProcessIsKilled)
{
    const auto seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 generator(seed);
    for (int round = 0; round < 20; ++round) {
        int progress[2];
        ASSERT_EQ(::pipe(progress), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            // Faster than life, a report each second of the recording.
            AsfWriter writer(format(320, 240));
            for (char second = 1; second < 120; ++second) {
                writer.writePicture(slide(320, 240, second / 4), 320 * 240);
                writer.repeatPicture(11);
                writer.writeSound(tone(0.5));
                writer.flush();
                writer.repeatPicture(12);
                writer.writeSound(tone(0.5));
                writer.flush();
                if (::write(progress[1], &second, 1) != 1)
                    break;
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
            ::_exit(0);
        }
        ::close(progress[1]);
        const auto moment = char(3 + generator() % 40);
        char last = 0;
        while (last < moment && ::read(progress[0], &last, 1) == 1) {
        }
        std::this_thread::sleep_for(std::chrono::microseconds(generator() % 20'000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        while (::read(progress[0], &last, 1) == 1) {
        }
        ::close(progress[0]);
        ASSERT_GE(last, moment) << "ended before it was killed";
        const DecodedMedia media = decodeMedia(file());
        EXPECT_GE(double(media.frames.size()) / 24, last - 2) << "killed after " << int(last) << " s";
        EXPECT_GE(media.soundSeconds(), last - 2) << "killed after " << int(last) << " s";
    }
}

TEST_F(AsfWriterTest, LeavesAFileThatPlaysWhenItCanGrowNoFurther)
{
    constexpr std::uintmax_t limit = 3 << 20;
    double written = 0;
    {
        const quillora::tests::FileSizeLimit full(limit);
        AsfWriter writer(format(320, 240));
        EXPECT_THROW(
            for (; written < 600; ++written) {
                for (unsigned i = 0; i < 24; ++i)
                    writer.writePicture(noise(320, 240, i), 320 * 240);
                writer.writeSound(tone(1));
                writer.flush();
            },
            std::runtime_error);
        writer.close();
    }
    const DecodedMedia media = decodeMedia(file());
    EXPECT_GT(written, 10);
    EXPECT_NEAR(double(media.frames.size()) / 24, written, 4);
    EXPECT_NEAR(media.declaredSeconds, written, 4);
}

TEST_F(AsfWriterTest, LeavesAFileThatPlaysOnAFullDiskOfAnySize)
{
    std::mt19937 generator(std::random_device{}());
    std::uniform_int_distribution<std::uintmax_t> sizes(3 << 20, 9 << 20);
    for (int round = 0; round < 10; ++round) {
        const std::uintmax_t size = sizes(generator);
        SCOPED_TRACE(size);
        const SmallDisk disk(file("disk"), size);
        if (!disk.mounted())
            GTEST_SKIP() << "mounting a small disk needs root";
        MediaFormat onDisk = format(320, 240);
        onDisk.path = file("disk") / "video.wmv";
        // So that the disk is full within seconds.
        onDisk.bitsPerSecond = 4'000'000;
        double written = 0;
        {
            AsfWriter writer(onDisk);
            EXPECT_THROW(
                for (; written < 600; ++written) {
                    for (unsigned i = 0; i < 24; ++i)
                        writer.writePicture(noise(320, 240, i), 320 * 240);
                    writer.writeSound(tone(1));
                    writer.flush();
                },
                std::runtime_error);
            writer.close();
        }
        const DecodedMedia media = decodeMedia(onDisk.path);
        EXPECT_EQ(media.errors, 0);
        EXPECT_NEAR(double(media.frames.size()) / 24, written, 3);
        EXPECT_NEAR(media.declaredSeconds, written, 3);
        EXPECT_GT(std::filesystem::space(file("disk")).available, 1U << 19)
            << "what was reserved and not needed is given back";
    }
}
