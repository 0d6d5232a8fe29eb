#include "capture/recording_engine.h"

#include "capture/capture_settings.h"
#include "capture/platform/ffmpeg/asf_writer.h"
#include "capture/platform/pulse/pulse_sound_source.h"
#include "capture/platform/x11/x11_screen_source.h"
#include "tests/platform/decoded_media.h"
#include "tests/support/private_sound_server.h"
#include "tests/support/private_x_server.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace quillora::capture;
using namespace quillora::tests;
using namespace std::chrono_literals;

namespace {

/// The engine as the program composes it, on a display and a sound server of the test's own. Time is real and
/// the machine may be busy: lengths are compared with what the test itself measured.
class WholeEngine : public testing::Test {
  protected:
    WholeEngine()
        : engine({[this] { return std::make_unique<X11ScreenSource>(display.display()); },
                  [this] { return std::make_unique<PulseSoundSource>(sound.address()); },
                  [](const MediaFormat& format) { return std::make_unique<AsfWriter>(format); }})
    {
        engine.setFrameRate(24);
        engine.setOutputWidth(kOutputWidth);
        engine.setOutputHeight(kOutputHeight);
        engine.setWidth(747);
        engine.setHeight(420);
        engine.setFileName(file());
    }

    std::filesystem::path file() const { return folder.path() / "video.wmv"; }

    template <typename Meanwhile>
    void record(Meanwhile meanwhile)
    {
        const auto outer = CaptureClock::now();
        engine.Start();
        const auto inner = CaptureClock::now();
        meanwhile();
        const auto innerEnd = CaptureClock::now();
        engine.Pause();
        shortest += std::chrono::duration<double>(innerEnd - inner).count();
        longest += std::chrono::duration<double>(CaptureClock::now() - outer).count();
    }

    DecodedMedia stopped()
    {
        engine.Stop();
        DecodedMedia media = decodeMedia(file());
        EXPECT_EQ(media.errors, 0);
        EXPECT_GE(double(media.frames.size()), std::floor(shortest * 24) - 1);
        EXPECT_LE(double(media.frames.size()), std::ceil(longest * 24) + 1);
        EXPECT_NEAR(media.soundSeconds(), double(media.frames.size()) / 24, 0.1);
        for (const auto& frame : media.frames) {
            EXPECT_EQ(frame.width, kOutputWidth);
            EXPECT_EQ(frame.height, kOutputHeight);
        }
        return media;
    }

    /// How loud a second of the recording is, from its loudest sample.
    static float loudness(const DecodedMedia& media, double from)
    {
        float loudest = 0;
        const auto begin = std::size_t(from * media.soundRate);
        for (std::size_t i = begin; i < std::min(media.sound.size(), begin + std::size_t(media.soundRate));
             ++i)
            loudest = std::max(loudest, std::abs(media.sound[i]));
        return loudest;
    }

    TemporaryFolder folder{};
    PrivateXServer display{};
    /// A tone that plays to a monitored loudspeaker; a source that makes it up itself delivers seconds at a
    /// time.
    PrivateSoundServer sound{{PrivateSoundServer::kNullSink, "module-sine sink=null frequency=440"}};
    RecordingEngine engine;
    double shortest = 0;
    double longest = 0;
};

} // namespace

TEST_F(WholeEngine, MakesAFileOfPicturesAndSound)
{
    record([] { std::this_thread::sleep_for(3s); });
    const DecodedMedia media = stopped();
    EXPECT_GT(loudness(media, 2), 0.05F);
    EXPECT_GT(media.declaredSeconds, 2.5);
}

TEST_F(WholeEngine, ScalesRegionsOfEverySizeToTheVideoFrame)
{
    for (const auto& [width, height] : {std::pair{747, 420}, {1, 1}, {801, 601}, {333, 77}}) {
        engine.setWidth(width);
        engine.setHeight(height);
        record([] { std::this_thread::sleep_for(300ms); });
    }
    engine.setLeft(-400);
    engine.setTop(500);
    record([] { std::this_thread::sleep_for(300ms); });
    engine.setCaptureMode(CaptureMode::wholeScreen);
    record([] { std::this_thread::sleep_for(300ms); });
    engine.setCaptureMode(CaptureMode::aroundMouse);
    record([] { std::this_thread::sleep_for(300ms); });
    stopped();
}

TEST_F(WholeEngine, RecordsSilenceWithoutASoundServer)
{
    sound.kill();
    record([] { std::this_thread::sleep_for(2s); });
    EXPECT_LT(loudness(stopped(), 0.5), 0.01F);
}

TEST_F(WholeEngine, HearsAgainAfterTheSoundServerDiedAndReturned)
{
    record([&] {
        std::this_thread::sleep_for(2s);
        sound.kill();
        std::this_thread::sleep_for(1s);
        sound.restart();
        std::this_thread::sleep_for(6s);
    });
    const DecodedMedia media = stopped();
    EXPECT_GT(loudness(media, media.soundSeconds() - 1.2), 0.05F);
}

TEST_F(WholeEngine, GoesOnWhileTheSoundServerHangs)
{
    record([&] {
        std::this_thread::sleep_for(1s);
        sound.freeze();
        std::this_thread::sleep_for(2s);
    });
    const auto begin = CaptureClock::now();
    stopped();
    sound.thaw();
    EXPECT_LT(CaptureClock::now() - begin, 20s);
}

TEST_F(WholeEngine, GoesOnWhereTheDisplayDies)
{
    record([&] {
        std::this_thread::sleep_for(1s);
        display.kill();
        std::this_thread::sleep_for(2s);
    });
    stopped();
}

TEST_F(WholeEngine, GoesOnWhileTheDisplayHangs)
{
    record([&] {
        std::this_thread::sleep_for(1s);
        display.freeze();
        std::this_thread::sleep_for(3s);
    });
    const auto begin = CaptureClock::now();
    stopped();
    display.thaw();
    EXPECT_LT(CaptureClock::now() - begin, 20s);
}

TEST_F(WholeEngine, RecordsWhereNoDisplayIs)
{
    display.kill();
    record([] { std::this_thread::sleep_for(1500ms); });
    stopped();
}

// Without sound the pictures wait longest for it, and most is lost.
TEST_F(WholeEngine, LosesAtMostTwoSecondsWhenKilledWithoutASoundServer)
{
    sound.kill();
    int started[2];
    ASSERT_EQ(::pipe(started), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        engine.Start();
        if (::write(started[1], "s", 1) == 1)
            std::this_thread::sleep_for(1min);
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(started[0], &byte, 1), 1);
    const auto begin = CaptureClock::now();
    std::this_thread::sleep_for(5s);
    const std::chrono::duration<double> recorded = CaptureClock::now() - begin;
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(started[0]);
    ::close(started[1]);
    const DecodedMedia media = decodeMedia(file());
    EXPECT_GE(double(media.frames.size()) / 24, recorded.count() - 2);
    EXPECT_GE(media.soundSeconds(), recorded.count() - 2);
}

TEST_F(WholeEngine, SaysThatAFolderIsNoFile)
{
    engine.setFileName(folder.path());
    EXPECT_THROW(engine.Start(), std::runtime_error);
}

TEST_F(WholeEngine, RecordsOneFileAfterAnother)
{
    for (int i = 0; i < 3; ++i) {
        shortest = longest = 0;
        record([] { std::this_thread::sleep_for(700ms); });
        stopped();
    }
}
