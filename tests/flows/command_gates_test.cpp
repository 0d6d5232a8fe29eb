#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Calls = std::vector<std::string>;

class CommandGates : public LectureWorld {
  protected:
    CommandGates() { openDeck(); }

    void expectNothingFrom(std::string_view key)
    {
        const auto state = fields.recordState;
        const auto buttons = window.buttonVisible;
        log.clear();
        press(key);
        EXPECT_EQ(log.calls, Calls{}) << key;
        EXPECT_EQ(fields.recordState, state) << key;
        EXPECT_EQ(window.buttonVisible, buttons) << key;
    }
    void expectButtons(bool record, bool pause, bool resume, bool stop)
    {
        EXPECT_EQ(window.buttonVisible["record"], record);
        EXPECT_EQ(window.buttonVisible["pause"], pause);
        EXPECT_EQ(window.buttonVisible["resume"], resume);
        EXPECT_EQ(window.buttonVisible["stop"], stop);
    }
};

TEST_F(CommandGates, PauseResumeAndStop_BeforeARecording_DoNothing)
{
    for (const auto* key : {"pause", "resume", "stop"})
        expectNothingFrom(key);
}

TEST_F(CommandGates, PauseResumeAndStop_DuringTheCountdown_DoNothing)
{
    press("record");
    for (const auto* key : {"pause", "resume", "stop"})
        expectNothingFrom(key);
}

TEST_F(CommandGates, RecordAndResume_WhileRecording_DoNothing)
{
    startRecording();
    for (const auto* key : {"record", "resume"})
        expectNothingFrom(key);
}

TEST_F(CommandGates, Open_WhileRecording_DoesNothing)
{
    startRecording();
    expectNothingFrom("open");
}

TEST_F(CommandGates, Open_DuringTheCountdown_OpensADeck)
{
    press("record");
    openDeck(8);
    EXPECT_EQ(fields.slideStatus, "Slide 1/8");
    secondsPass(5);
    EXPECT_EQ(fields.recordState, "record");
}

TEST_F(CommandGates, Stop_WhilePaused_DoesNothing)
{
    startRecording();
    press("pause");
    expectNothingFrom("stop");
    EXPECT_TRUE(window.buttonVisible["stop"]);
}

TEST_F(CommandGates, RecordAndPause_WhilePaused_DoNothing)
{
    startRecording();
    press("pause");
    for (const auto* key : {"record", "pause"})
        expectNothingFrom(key);
}

TEST_F(CommandGates, KeysWithoutAnOperation_DoNothing)
{
    for (const auto* key : {"", "Open", "OPEN ", "sep3", "sepa1", "nonsense", "upload"})
        expectNothingFrom(key);
}

TEST_F(CommandGates, TheButtons_ShowTheState)
{
    expectButtons(true, true, false, true);
    startRecording();
    expectButtons(true, true, false, true);
    press("pause");
    expectButtons(true, false, true, true);
    press("resume");
    expectButtons(true, true, false, true);
    stopAndSave();
    expectButtons(true, true, false, true);
}

TEST_F(CommandGates, Record_AfterAStop_RecordsAgain)
{
    startRecording();
    stopAndSave();
    startRecording();
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(engines.recordings, 2);
}

} // namespace
} // namespace quillora::tests
