#include "capture/recording_engine.h"

#include "capture/capture_settings.h"
#include "capture/platform/ffmpeg/asf_writer.h"
#include "capture/platform/pulse/pulse_sound_source.h"
#include "capture/platform/x11/x11_screen_source.h"
#include "tests/platform/decoded_media.h"
#include "tests/support/private_sound_server.h"
#include "tests/support/private_x_server.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/timed_segments.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

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
        segments.record(meanwhile);
    }

    DecodedMedia stopped()
    {
        engine.Stop();
        DecodedMedia media = decodeMedia(file());
        EXPECT_EQ(media.errors, 0);
        segments.expectLength(double(media.frames.size()), media.soundSeconds(), 24);
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
    TimedSegments segments{engine};
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

namespace {

/// A recorder of its own process, which says when it has begun.
class Victim {
  public:
    Victim(RecordingEngine& engine, const std::filesystem::path& file) : m_file(file)
    {
        int started[2];
        if (::pipe(started) != 0)
            throw std::runtime_error("no pipe");
        m_process = ::fork();
        if (m_process == 0) {
            engine.setFileName(file);
            engine.Start();
            if (::write(started[1], "s", 1) == 1)
                std::this_thread::sleep_for(5min);
            ::_exit(0);
        }
        ::close(started[1]);
        m_started = started[0];
    }

    bool begins()
    {
        char byte = 0;
        const bool said = ::read(m_started, &byte, 1) == 1;
        ::close(m_started);
        m_begin = CaptureClock::now();
        return said;
    }

    void kill()
    {
        m_recorded = CaptureClock::now() - m_begin;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }

    /// Looks whether all but the last two seconds can be read.
    void expectReadable() const
    {
        const DecodedMedia media = decodeMedia(m_file);
        EXPECT_EQ(media.errors, 0);
        EXPECT_GE(double(media.frames.size()) / 24, m_recorded.count() - 2);
        EXPECT_GE(media.soundSeconds(), m_recorded.count() - 2);
    }

  private:
    std::filesystem::path m_file;
    pid_t m_process = 0;
    int m_started = -1;
    CaptureClock::time_point m_begin{};
    std::chrono::duration<double> m_recorded{};
};

} // namespace

// Without sound the pictures wait longest for it, and most is lost.
TEST_F(WholeEngine, LosesAtMostTwoSecondsWhenKilledWithoutASoundServer)
{
    sound.kill();
    Victim victim(engine, file());
    ASSERT_TRUE(victim.begins());
    std::this_thread::sleep_for(5s);
    victim.kill();
    victim.expectReadable();
}

// Side by side in four rounds, since each of them has to record for some seconds.
TEST_F(WholeEngine, LosesAtMostTwoSecondsWhenKilledAtTwentyMoments)
{
    const auto seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 generator(seed);
    std::uniform_int_distribution<int> milliseconds(0, 1500);
    for (int round = 0; round < 4; ++round) {
        std::vector<Victim> victims;
        for (int i = 0; i < 5; ++i)
            victims.emplace_back(engine, folder.path() / (std::to_string(round * 5 + i) + ".wmv"));
        for (Victim& victim : victims)
            ASSERT_TRUE(victim.begins());
        std::this_thread::sleep_for(2s);
        for (Victim& victim : victims) {
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(generator)));
            victim.kill();
        }
        for (const Victim& victim : victims)
            victim.expectReadable();
    }
}

TEST_F(WholeEngine, SaysThatAFolderIsNoFile)
{
    engine.setFileName(folder.path());
    EXPECT_THROW(engine.Start(), std::runtime_error);
}

TEST_F(WholeEngine, RecordsOneFileAfterAnother)
{
    for (int i = 0; i < 3; ++i) {
        segments.forget();
        engine.setFileName(file());
        record([] { std::this_thread::sleep_for(700ms); });
        stopped();
    }
}
