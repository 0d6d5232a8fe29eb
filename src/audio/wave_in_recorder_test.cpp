#include "audio/wave_in_recorder.h"

#include "tests/support/fake_mixer.h"
#include "tests/support/fake_wave_input.h"
#include "tests/support/hooked_windows.h"

#include <gtest/gtest.h>

#include <optional>

using namespace quillora::audio;
using namespace quillora::tests;

namespace {

using Calls = std::vector<std::string>;

struct Delivery {
    std::vector<std::int16_t> samples;
    std::uint32_t byteCount;

    bool operator==(const Delivery&) const = default;
};

class WaveInRecorderTest : public testing::Test {
  protected:
    WaveInRecorderTest()
    {
        recorder->BufferCount(3);
        recorder->BufferSize(8);
        recorder->GotData = [this](std::span<std::int16_t> samples, std::uint32_t byteCount) {
            deliveries.push_back({{samples.begin(), samples.end()}, byteCount});
        };
    }

    const Calls& calls() const { return world.log.calls; }
    void start()
    {
        ASSERT_TRUE(recorder->StartRecord(44100, 1));
        world.log.clear();
    }
    void runQueue() { world.queue.run(world.windows); }

    HookedWindows world;
    FakeWaveInput input{world.log, world.windows};
    FakeMixer mixer{world.log};
    std::vector<Delivery> deliveries;
    std::optional<WaveInRecorder> recorder{std::in_place,
                                           WaveInRecorder::Ports{input, mixer, world.windows, world.ports()}};
};

} // namespace

TEST_F(WaveInRecorderTest, HasFiveBuffersOf10240BytesAtFirst)
{
    const WaveInRecorder fresh({input, mixer, world.windows, world.ports()});
    EXPECT_EQ(fresh.BufferCount(), 5);
    EXPECT_EQ(fresh.BufferSize(), 10240);
    EXPECT_FALSE(fresh.IsRecording());
}

TEST_F(WaveInRecorderTest, StartsTheDeviceBeforeItQueuesBuffers)
{
    EXPECT_TRUE(recorder->StartRecord(44100, 2));
    EXPECT_TRUE(recorder->IsRecording());
    EXPECT_EQ(calls(), (Calls{"waveInOpen -1", "waveInPrepareHeader 0", "waveInPrepareHeader 1",
                              "waveInPrepareHeader 2", "waveInStart", "waveInAddBuffer 0",
                              "waveInAddBuffer 1", "waveInAddBuffer 2"}));
}

TEST_F(WaveInRecorderTest, AsksForPcmOf16Bits)
{
    recorder->StartRecord(22050, 2);
    EXPECT_EQ(input.format.wFormatTag, 1);
    EXPECT_EQ(input.format.nChannels, 2);
    EXPECT_EQ(input.format.nSamplesPerSec, 22050U);
    EXPECT_EQ(input.format.wBitsPerSample, 16);
    EXPECT_EQ(input.format.nBlockAlign, 4);
    EXPECT_EQ(input.format.nAvgBytesPerSec, 88200U);
    EXPECT_EQ(input.format.cbSize, 0);
}

TEST_F(WaveInRecorderTest, RecordsFromTheDeviceThatIsSelected)
{
    input.devices = {"One", "Other"};
    recorder->SelectDevice(1);
    recorder->StartRecord(44100, 1);
    EXPECT_EQ(world.log.count("waveInOpen 1"), 1);
}

TEST_F(WaveInRecorderTest, DeliversEachFullBufferAndQueuesItAgain)
{
    start();
    input.record({1, 2, 3, 4});
    input.record({5, 6, 7, 8});
    EXPECT_TRUE(deliveries.empty());
    runQueue();
    EXPECT_EQ(deliveries, (std::vector<Delivery>{{{1, 2, 3, 4}, 8}, {{5, 6, 7, 8}, 8}}));
    EXPECT_EQ(calls(), (Calls{"waveInAddBuffer 0", "waveInAddBuffer 1"}));
    for (std::int16_t round = 0; round < 7; ++round)
        input.record({round, 0, 0, 0}), runQueue();
    EXPECT_EQ(deliveries.size(), 9U);
}

TEST_F(WaveInRecorderTest, TellsHowFarABufferIsFilled)
{
    start();
    input.record({1, 2});
    runQueue();
    ASSERT_EQ(deliveries.size(), 1U);
    EXPECT_EQ(deliveries[0].byteCount, 4U);
    EXPECT_EQ(deliveries[0].samples.size(), 4U);
}

TEST_F(WaveInRecorderTest, QueuesBuffersAgainWhenNobodyListens)
{
    recorder->GotData = {};
    start();
    input.record({1, 2, 3, 4});
    runQueue();
    EXPECT_EQ(calls(), Calls{"waveInAddBuffer 0"});
}

TEST_F(WaveInRecorderTest, GoesOnWhenABufferIsNotTaken)
{
    input.failing = {"waveInAddBuffer 1"};
    EXPECT_TRUE(recorder->StartRecord(44100, 1));
    EXPECT_EQ(world.log.count("waveInAddBuffer 2"), 1);
}

TEST_F(WaveInRecorderTest, LeavesOtherMessagesAlone)
{
    start();
    world.windows.send(
        {input.notified(), 959, 0, reinterpret_cast<quillora::messages::Parameter>(input.prepared.front())});
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WaveInRecorderTest, DropsAMessageWhoseHeaderIsNone)
{
    start();
    world.windows.send({input.notified(), 960, 0, 0});
    world.windows.send({input.notified(), 960, 0, 4711});
    EXPECT_TRUE(deliveries.empty());
    EXPECT_TRUE(calls().empty());
}

TEST_F(WaveInRecorderTest, DropsAHeaderThatNamesNoBuffer)
{
    start();
    input.queued.front()->dwUser = 3;
    input.record({1});
    runQueue();
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WaveInRecorderTest, StopsInOrder)
{
    start();
    EXPECT_TRUE(recorder->StopRecord());
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(calls(), (Calls{"waveInStop", "waveInReset", "waveInUnprepareHeader 0",
                              "waveInUnprepareHeader 1", "waveInUnprepareHeader 2", "waveInClose"}));
}

TEST_F(WaveInRecorderTest, StopsWhateverFails)
{
    start();
    input.failing = {"waveInStop", "waveInReset", "waveInUnprepareHeader 0", "waveInClose"};
    EXPECT_TRUE(recorder->StopRecord());
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(calls().size(), 6U);
}

TEST_F(WaveInRecorderTest, StopWithoutARecordingTouchesNoDevice)
{
    EXPECT_TRUE(recorder->StopRecord());
    EXPECT_TRUE(calls().empty());
    EXPECT_EQ(world.windows.count(), 0);
}

TEST_F(WaveInRecorderTest, DeliversNothingAfterTheStop)
{
    start();
    input.record({1, 2, 3, 4});
    recorder->StopRecord();
    runQueue();
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WaveInRecorderTest, LeavesAHiddenWindowForEachRecording)
{
    for (int cycle = 1; cycle <= 3; ++cycle) {
        recorder->StartRecord(44100, 1);
        recorder->StopRecord();
        EXPECT_EQ(world.windows.count(), cycle);
    }
    EXPECT_EQ(world.windows.titleOf(input.notified()), "WAVE_IN_WINDOW");
    EXPECT_EQ(world.windows.classNameOf(input.notified()), "STATIC");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(WaveInRecorderTest, ReportsAWindowThatCannotBeHooked)
{
    world.windows.stubborn = world.windows.create("STATIC", "the last one before the recorder's") + 1;
    world.errors.number = 5;
    EXPECT_TRUE(recorder->StartRecord(44100, 1));
    EXPECT_EQ(world.log.count("log WaveInRecorder.sc_Subclass: SetWindowLong failed, error #5"), 1);
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].text, "SetWindowLong failed, error #5.");
    EXPECT_EQ(world.boxes.shown[0].title, "Error in WaveInRecorder.sc_Subclass");
}

TEST_F(WaveInRecorderTest, IsCalledAfterTheWindowsOwnProcedureAndAsksTheHost)
{
    int asked = 0;
    auto hooks = world.ports();
    hooks.hostProbe = [&] { return ++asked, 1; };
    world.windows.old = std::make_shared<OldProcedure>(world.log);
    recorder.emplace(WaveInRecorder::Ports{input, mixer, world.windows, hooks});
    recorder->GotData = [&](std::span<std::int16_t>, std::uint32_t) { world.log.add("GotData"); };
    start();
    input.record({1});
    runQueue();
    EXPECT_EQ(calls(), (Calls{"old 960", "GotData", "waveInAddBuffer 0"}));
    EXPECT_EQ(asked, 1);
}

TEST_F(WaveInRecorderTest, GivesUpWhenTheDeviceDoesNotOpen)
{
    input.failing = {"waveInOpen -1"};
    EXPECT_FALSE(recorder->StartRecord(44100, 1));
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(calls(), Calls{"waveInOpen -1"});
    EXPECT_EQ(world.windows.count(), 1);
}

TEST_F(WaveInRecorderTest, UnpreparesTheHeaderThatFailedAsOftenAsOthersDidNot)
{
    input.failing = {"waveInPrepareHeader 2"};
    EXPECT_FALSE(recorder->StartRecord(44100, 1));
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(calls(), (Calls{"waveInOpen -1", "waveInPrepareHeader 0", "waveInPrepareHeader 1",
                              "waveInPrepareHeader 2", "waveInUnprepareHeader 2", "waveInUnprepareHeader 2",
                              "waveInClose"}));
}

TEST_F(WaveInRecorderTest, UnpreparesNothingWhenTheFirstHeaderFails)
{
    input.failing = {"waveInPrepareHeader 0"};
    EXPECT_FALSE(recorder->StartRecord(44100, 1));
    EXPECT_EQ(calls(), (Calls{"waveInOpen -1", "waveInPrepareHeader 0", "waveInClose"}));
}

TEST_F(WaveInRecorderTest, UnpreparesAllHeadersWhenTheDeviceDoesNotStart)
{
    input.failing = {"waveInStart"};
    EXPECT_FALSE(recorder->StartRecord(44100, 1));
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(calls(), (Calls{"waveInOpen -1", "waveInPrepareHeader 0", "waveInPrepareHeader 1",
                              "waveInPrepareHeader 2", "waveInStart", "waveInUnprepareHeader 0",
                              "waveInUnprepareHeader 1", "waveInUnprepareHeader 2", "waveInClose"}));
}

TEST_F(WaveInRecorderTest, HeaderTellsAddressLengthAndNumberOfItsBuffer)
{
    start();
    ASSERT_EQ(input.prepared.size(), 3U);
    for (std::size_t index = 0; index < 3; ++index) {
        EXPECT_EQ(input.prepared[index]->dwBufferLength, 8U);
        EXPECT_EQ(input.prepared[index]->dwUser, index);
        EXPECT_NE(input.prepared[index]->lpData, nullptr);
    }
}

TEST_F(WaveInRecorderTest, OddBufferSizeHasRoundedHalfAsManySamples)
{
    for (const auto& [bytes, samples] : {std::pair{9, 4U}, std::pair{11, 6U}, std::pair{1, 0U}}) {
        recorder->BufferSize(bytes);
        start();
        EXPECT_EQ(input.prepared.front()->dwBufferLength, static_cast<std::uint32_t>(bytes));
        deliveries.clear();
        input.record({});
        runQueue();
        ASSERT_EQ(deliveries.size(), 1U);
        EXPECT_EQ(deliveries[0].samples.size(), samples);
        recorder->StopRecord();
    }
}

TEST_F(WaveInRecorderTest, NewCountAndSizeTakeEffectAtTheNextRecording)
{
    start();
    recorder->BufferCount(1);
    recorder->BufferSize(4);
    recorder->StopRecord();
    EXPECT_EQ(world.log.count("waveInUnprepareHeader 2"), 1);
    start();
    ASSERT_EQ(input.prepared.size(), 1U);
    EXPECT_EQ(input.prepared.front()->dwBufferLength, 4U);
}

TEST_F(WaveInRecorderTest, RecordsWithNoBufferAtAll)
{
    recorder->BufferCount(-1);
    recorder->BufferSize(-1);
    EXPECT_TRUE(recorder->StartRecord(44100, 1));
    EXPECT_EQ(calls(), (Calls{"waveInOpen -1", "waveInStart"}));
}

TEST_F(WaveInRecorderTest, StartingAgainStopsTheRecordingThatIsOn)
{
    start();
    recorder->StartRecord(44100, 1);
    EXPECT_EQ(calls().front(), "waveInStop");
    input.record({1, 2, 3, 4});
    runQueue();
    EXPECT_EQ(deliveries.size(), 1U);
}

TEST_F(WaveInRecorderTest, HandlerMayStopTheRecording)
{
    recorder->GotData = [&](std::span<std::int16_t>, std::uint32_t) { recorder->StopRecord(); };
    start();
    input.record({1});
    runQueue();
    EXPECT_FALSE(recorder->IsRecording());
    EXPECT_EQ(world.log.count("waveInAddBuffer 0"), 0);
}

TEST_F(WaveInRecorderTest, HandlerMayBeginAnotherRecordingWithFewerBuffers)
{
    recorder->GotData = [&](std::span<std::int16_t>, std::uint32_t) {
        recorder->BufferCount(1);
        recorder->StartRecord(44100, 1);
    };
    start();
    input.record({1});
    input.record({2});
    runQueue();
    EXPECT_TRUE(recorder->IsRecording());
}

TEST_F(WaveInRecorderTest, HandlerMayTakeItselfAway)
{
    bool gone = false;
    bool goneInTheMiddle = true;
    const auto noteEnd = [&gone](const int* object) {
        gone = true;
        delete object;
    };
    recorder->GotData = [this, &gone, &goneInTheMiddle,
                         held = std::shared_ptr<const int>(new int(0), noteEnd)](std::span<std::int16_t>,
                                                                                 std::uint32_t) {
        // What it refers to is read first: a handler that has ended can't.
        const bool& ended = gone;
        bool& seen = goneInTheMiddle;
        recorder->GotData = {};
        seen = ended;
    };
    start();
    input.record({1});
    runQueue();
    EXPECT_FALSE(goneInTheMiddle);
    EXPECT_TRUE(gone);
}

TEST_F(WaveInRecorderTest, EndStopsTheRecordingFirstAndClosesTheMixerThen)
{
    recorder->SelectDevice(0);
    start();
    recorder.reset();
    EXPECT_EQ(calls().front(), "waveInStop");
    EXPECT_EQ(calls().back(), "mixerClose");
    EXPECT_EQ(world.log.count("waveInClose"), 1);
}

TEST_F(WaveInRecorderTest, EndWithoutARecordingTouchesNoDevice)
{
    recorder.reset();
    EXPECT_TRUE(calls().empty());
}
