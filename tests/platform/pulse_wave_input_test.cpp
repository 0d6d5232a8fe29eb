#include "audio/platform/pulse/pulse_wave_input.h"

#include "audio/platform/pulse/pulse_server.h"
#include "audio/text_field.h"
#include "audio/wave_in_recorder.h"
#include "tests/platform/heard_sound.h"
#include "tests/support/fake_mixer.h"
#include "tests/support/hooked_windows.h"
#include "tests/support/private_sound_server.h"

#include <gtest/gtest.h>

#include <thread>

using namespace quillora::audio;
using namespace quillora::tests;
using namespace std::chrono_literals;

namespace {

constexpr int kRate = 44100;
/// The test's sources give two seconds at a time; a ring that holds less loses some of it.
constexpr int kBuffersOfTwoSeconds = 64;
constexpr const char* kOtherTone = "module-sine-source source_name=other frequency=1000";

/// A recorder on a real server, and what it delivered.
class PulseWaveInputTest : public testing::Test {
  protected:
    PulseWaveInputTest()
    {
        recorder.GotData = [this](std::span<std::int16_t> samples, std::uint32_t byteCount) {
            sizes.push_back(byteCount);
            for (const std::int16_t sample : samples.first(byteCount / 2))
                heard.push_back(static_cast<float>(sample) / 32768.0F);
        };
    }

    /// Lets messages run until so many deliveries came; false when they don't.
    bool waitFor(std::size_t deliveries)
    {
        const auto deadline = std::chrono::steady_clock::now() + 20s;
        while (sizes.size() < deliveries && std::chrono::steady_clock::now() < deadline) {
            world.queue.run(world.windows);
            std::this_thread::sleep_for(2ms);
        }
        return sizes.size() >= deliveries;
    }

    /// Plugs in an input that gives silence, and selects it.
    void selectQuietInput()
    {
        ASSERT_TRUE(server.control({"load-module", "module-null-source", "source_name=quiet"}));
        ASSERT_EQ(recorder.DeviceCount(), 3);
        ASSERT_TRUE(recorder.SelectDevice(2));
    }
    bool pullQuietInput() { return server.control({"unload-module", "module-null-source"}); }

    PrivateSoundServer server{{PrivateSoundServer::kToneSource, kOtherTone}};
    HookedWindows world;
    PulseServer pulse{server.address()};
    InputNumbers numbers{pulse};
    PulseWaveInput input{numbers, world.queue, server.address()};
    FakeMixer mixer{world.log};
    std::vector<std::uint32_t> sizes;
    std::vector<float> heard;
    WaveInRecorder recorder{{input, mixer, world.windows, world.ports()}};
};

} // namespace

TEST_F(PulseWaveInputTest, RecordsTheDefaultInputThroughTheRing)
{
    recorder.BufferSize(4096);
    recorder.BufferCount(kBuffersOfTwoSeconds);
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(12));
    EXPECT_TRUE(recorder.StopRecord());
    EXPECT_EQ(std::vector<std::uint32_t>(sizes.begin(), sizes.begin() + 12),
              std::vector<std::uint32_t>(12, 4096));
    EXPECT_NEAR(amplitudeAt(440, heard), 0.5, 0.1);
}

TEST_F(PulseWaveInputTest, DeliversOnTheThreadThatRunsTheQueue)
{
    const auto here = std::this_thread::get_id();
    std::thread::id there;
    recorder.GotData = [&](std::span<std::int16_t>, std::uint32_t) {
        there = std::this_thread::get_id();
        sizes.push_back(0);
    };
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(1));
    EXPECT_EQ(there, here);
}

TEST_F(PulseWaveInputTest, RecordsTheInputThatIsSelected)
{
    ASSERT_EQ(recorder.DeviceCount(), 2);
    ASSERT_TRUE(recorder.SelectDevice(1));
    recorder.BufferCount(kBuffersOfTwoSeconds);
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(6));
    recorder.StopRecord();
    EXPECT_NEAR(amplitudeAt(1000, heard), 0.5, 0.1);
    EXPECT_LT(amplitudeAt(440, heard), 0.05);
}

TEST_F(PulseWaveInputTest, RecordsTwoChannelsAtAnotherRate)
{
    ASSERT_TRUE(recorder.StartRecord(8000, 2));
    ASSERT_TRUE(waitFor(2));
    recorder.StopRecord();
    ASSERT_GE(heard.size(), 10240U);
    for (std::size_t index = 0; index + 1 < heard.size(); index += 2)
        ASSERT_EQ(heard[index], heard[index + 1]);
}

TEST_F(PulseWaveInputTest, FillsWholeSamplesOfAnOddBuffer)
{
    recorder.BufferSize(4099);
    ASSERT_TRUE(recorder.StartRecord(kRate, 2));
    ASSERT_TRUE(waitFor(3));
    EXPECT_EQ(sizes[0], 4096U);
}

TEST_F(PulseWaveInputTest, DeliversNothingInABufferTooSmallForASample)
{
    recorder.BufferSize(1);
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(3));
    EXPECT_TRUE(recorder.StopRecord());
    EXPECT_EQ(sizes, std::vector<std::uint32_t>(sizes.size(), 0));
}

TEST_F(PulseWaveInputTest, GoesOnWhenTheHandlerWasSlow)
{
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(1));
    const auto full = std::chrono::steady_clock::now() + 10s;
    while (world.queue.posted().size() < 5 && std::chrono::steady_clock::now() < full)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(world.queue.posted().size(), 5U);
    EXPECT_TRUE(waitFor(12));
}

TEST_F(PulseWaveInputTest, RecordsAgainAfterAStop)
{
    for (int cycle = 0; cycle < 3; ++cycle) {
        sizes.clear();
        ASSERT_TRUE(recorder.StartRecord(kRate, 1));
        ASSERT_TRUE(waitFor(2));
        recorder.StopRecord();
    }
    EXPECT_EQ(world.windows.count(), 3);
}

TEST_F(PulseWaveInputTest, StopPostsWhatThereIs)
{
    const WaveFormat format{kWaveFormatPcm, 1, kRate, kRate * 2, 2, 16, 0};
    const auto window = world.windows.create("STATIC", "");
    const WaveHandle handle = input.waveInOpen(-1, format, window);
    ASSERT_NE(handle, 0U);
    std::vector<std::int16_t> samples(10'000'000);
    WaveHeader header{.lpData = samples.data(), .dwBufferLength = 20'000'000, .dwUser = 0};
    WaveHeader spare = header;
    EXPECT_FALSE(input.waveInAddBuffer(handle, header));
    EXPECT_TRUE(input.waveInPrepareHeader(handle, header));
    EXPECT_TRUE(input.waveInPrepareHeader(handle, header));
    EXPECT_TRUE(input.waveInPrepareHeader(handle, spare));
    EXPECT_TRUE(input.waveInStart(handle));
    EXPECT_TRUE(input.waveInAddBuffer(handle, header));
    EXPECT_TRUE(input.waveInAddBuffer(handle, spare));
    EXPECT_FALSE(input.waveInAddBuffer(handle, spare));
    std::this_thread::sleep_for(300ms);
    EXPECT_TRUE(input.waveInStop(handle));
    EXPECT_LE(world.queue.posted().size(), 1U);
    EXPECT_TRUE(input.waveInReset(handle));
    ASSERT_EQ(world.queue.posted().size(), 2U);
    const auto first = input.headerAt(world.queue.posted()[0].lParam);
    EXPECT_EQ(first, &header);
    EXPECT_EQ(spare.dwBytesRecorded, 0U);
    EXPECT_TRUE(input.waveInUnprepareHeader(handle, header));
    EXPECT_FALSE(input.waveInUnprepareHeader(handle, header));
    EXPECT_EQ(input.headerAt(world.queue.posted()[0].lParam), nullptr);
    EXPECT_TRUE(input.waveInClose(handle));
    EXPECT_FALSE(input.waveInClose(handle));
}

TEST_F(PulseWaveInputTest, FailsOnAHandleThatIsNone)
{
    WaveHeader header;
    EXPECT_FALSE(input.waveInPrepareHeader(9, header));
    EXPECT_FALSE(input.waveInUnprepareHeader(9, header));
    EXPECT_FALSE(input.waveInAddBuffer(9, header));
    EXPECT_FALSE(input.waveInStart(9));
    EXPECT_FALSE(input.waveInStop(9));
    EXPECT_FALSE(input.waveInReset(9));
}

TEST_F(PulseWaveInputTest, RefusesADeviceAndAFormatThatAreNone)
{
    const WaveFormat format{kWaveFormatPcm, 1, kRate, kRate * 2, 2, 16, 0};
    EXPECT_EQ(input.waveInOpen(7, format, 1), 0U);
    EXPECT_FALSE(recorder.StartRecord(0, 1));
    EXPECT_FALSE(recorder.StartRecord(kRate, 0));
    EXPECT_FALSE(recorder.StartRecord(kRate, 1000));
    EXPECT_EQ(input.waveInGetDevName(7), std::string(32, '\0'));
}

TEST_F(PulseWaveInputTest, RefusesAnInputThatHasGoneSinceItWasSelected)
{
    selectQuietInput();
    ASSERT_TRUE(pullQuietInput());
    EXPECT_FALSE(recorder.StartRecord(kRate, 1));
    EXPECT_FALSE(recorder.IsRecording());
}

TEST_F(PulseWaveInputTest, TakesNoOtherInputForTheOneThatWasChosenAndGoes)
{
    selectQuietInput();
    const WaveFormat format{kWaveFormatPcm, 1, kRate, kRate * 2, 2, 16, 0};
    const WaveHandle handle = input.waveInOpen(recorder.SelectedDevice(), format, 1);
    ASSERT_NE(handle, 0U);
    std::vector<std::int16_t> samples(1000);
    WaveHeader header{.lpData = samples.data(), .dwBufferLength = 2000, .dwUser = 0};
    ASSERT_TRUE(input.waveInPrepareHeader(handle, header));
    ASSERT_TRUE(pullQuietInput());
    // An input that has gone takes no buffers; one that is there takes this one whenever it isn't queued.
    bool taken = true;
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (taken && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(5ms);
        input.waveInReset(handle);
        taken = input.waveInAddBuffer(handle, header);
    }
    EXPECT_FALSE(taken);
}

TEST_F(PulseWaveInputTest, GoesOnWithAnotherInputWhenTheDefaultOneGoes)
{
    ASSERT_TRUE(server.control({"load-module", "module-null-source", "source_name=quiet"}));
    ASSERT_TRUE(server.control({"set-default-source", "quiet"}));
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(1));
    ASSERT_TRUE(pullQuietInput());
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (peakOf(heard) == 0 && std::chrono::steady_clock::now() < deadline)
        waitFor(sizes.size() + 1);
    EXPECT_GT(peakOf(heard), 0.1);
}

TEST_F(PulseWaveInputTest, FailsWithoutAServer)
{
    server.kill();
    EXPECT_FALSE(recorder.StartRecord(kRate, 1));
    EXPECT_FALSE(recorder.IsRecording());
}

TEST_F(PulseWaveInputTest, GivesUpOnAServerThatHangs)
{
    server.freeze();
    EXPECT_FALSE(recorder.StartRecord(kRate, 1));
    server.thaw();
    EXPECT_TRUE(recorder.StartRecord(kRate, 1));
}

TEST_F(PulseWaveInputTest, OutlivesTheServer)
{
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(1));
    server.kill();
    std::this_thread::sleep_for(200ms);
    world.queue.run(world.windows);
    EXPECT_TRUE(recorder.IsRecording());
    EXPECT_TRUE(recorder.StopRecord());
}

TEST_F(PulseWaveInputTest, StopsWhileTheServerHangs)
{
    ASSERT_TRUE(recorder.StartRecord(kRate, 1));
    ASSERT_TRUE(waitFor(1));
    server.freeze();
    EXPECT_TRUE(recorder.StopRecord());
    server.thaw();
}

TEST_F(PulseWaveInputTest, EndsWhileItRecords)
{
    WaveInRecorder other({input, mixer, world.windows, world.ports()});
    ASSERT_TRUE(other.StartRecord(kRate, 1));
}
