#include "messages/hook_engine.h"

#include "tests/support/hooked_windows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quillora::messages;
using namespace quillora::tests;

namespace {

constexpr int kMessage = 960;

/// Says in the log that it was called, and answers what it is told to.
class OldProcedure : public WindowProcedure {
  public:
    explicit OldProcedure(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    Result answer = 70;
    std::function<void(const WindowMessage&)> action{};

    Result process(const WindowMessage& message) override
    {
        log.add("old " + std::to_string(message.iMsg));
        if (action)
            action(message);
        return answer;
    }
};

class HookEngineTest : public testing::Test {
  protected:
    HookEngineTest() { world.windows.exchangeProcedure(window, old); }

    /// An engine whose owner has the methods "first" and "last".
    std::unique_ptr<HookEngine> makeEngine(HookEngine::Ports ports)
    {
        const auto method = [this](std::string name) {
            return [this, name](HookedMessage& message) {
                world.log.add(name + (message.bBefore ? " before " : " after ") +
                              std::to_string(message.iMsg) + " " + std::to_string(message.lReturn));
                if (callback)
                    callback(message);
            };
        };
        return std::make_unique<HookEngine>(ports, std::make_shared<HookOwner>(HookOwner{
                                                       "WaveInRecorder", {method("first"), method("last")}}));
    }

    Result send(int message = kMessage) { return world.windows.send({window, message, 11, 22}); }
    const std::vector<std::string>& calls() const { return world.log.calls; }

    /// What a report in @p routine leaves behind: a line in the log, then a box.
    void expectReport(const std::string& routine, const std::string& text)
    {
        EXPECT_EQ(calls(), (std::vector<std::string>{"log WaveInRecorder." + routine + ": " + text,
                                                     "box " + text + "."}));
        ASSERT_FALSE(world.boxes.shown.empty());
        EXPECT_EQ(world.boxes.shown.back().title, "Error in WaveInRecorder." + routine);
        EXPECT_EQ(world.boxes.shown.back().icon, quillora::base::BoxIcon::warning);
        EXPECT_EQ(world.boxes.shown.back().buttons, quillora::base::BoxButtons::ok);
        world.log.clear();
    }

    HookedWindows world;
    std::shared_ptr<OldProcedure> old = std::make_shared<OldProcedure>(world.log);
    WindowHandle window = world.windows.create("STATIC", "window");
    std::function<void(HookedMessage&)> callback{};
    std::unique_ptr<HookEngine> engine = makeEngine(world.ports());
};

} // namespace

TEST_F(HookEngineTest, CallsNobodyForAMessageInNoTable)
{
    ASSERT_TRUE(engine->sc_Subclass(window));
    EXPECT_EQ(send(), 70);
    engine->sc_WatchMsg(window, 1, MSG_BEFORE_AND_AFTER);
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), (std::vector<std::string>{"old 960", "old 960"}));
}

TEST_F(HookEngineTest, CallsBeforeAndAfterTheOldProcedure)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 960 0", "old 960", "last after 960 70"}));
}

TEST_F(HookEngineTest, CallsOnlyBeforeOrOnlyAfterAsAsked)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, 1, MSG_BEFORE);
    engine->sc_WatchMsg(window, 2, MSG_AFTER);
    send(1);
    send(2);
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 1 0", "old 1", "old 2", "last after 2 70"}));
}

TEST_F(HookEngineTest, HandsOnTheMessageWithItsParameters)
{
    engine->sc_Subclass(window, 5);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    callback = [&](HookedMessage& message) {
        EXPECT_FALSE(message.bBefore);
        EXPECT_EQ(message.hwnd, window);
        EXPECT_EQ(message.iMsg, kMessage);
        EXPECT_EQ(message.wParam, 11);
        EXPECT_EQ(message.lParam, 22);
        EXPECT_EQ(message.userParam, 5);
    };
    send();
    EXPECT_EQ(world.log.count("last after 960 70"), 1);
}

TEST_F(HookEngineTest, SeesAllMessages)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, ALL_MESSAGES, MSG_BEFORE);
    send(1);
    send(2);
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 1 0", "old 1", "last before 2 0", "old 2"}));
}

TEST_F(HookEngineTest, HandledMessageReachesNeitherTheOldProcedureNorTheAfterCall)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    callback = [](HookedMessage& message) {
        message.bHandled = true;
        message.lReturn = 33;
    };
    EXPECT_EQ(send(), 33);
    EXPECT_EQ(calls(), std::vector<std::string>{"last before 960 0"});
}

TEST_F(HookEngineTest, ResultOfTheBeforeCallGivesWayToTheOldProceduresOwn)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE);
    callback = [](HookedMessage& message) { message.lReturn = 33; };
    EXPECT_EQ(send(), 70);
}

TEST_F(HookEngineTest, AfterCallMayChangeTheResult)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    callback = [](HookedMessage& message) { message.lReturn += 1; };
    EXPECT_EQ(send(), 71);
}

TEST_F(HookEngineTest, CallsTheOldProcedureOnRequest)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE);
    callback = [&](HookedMessage& message) {
        message.lReturn = engine->sc_CallPrevious(window, 5, message.wParam, message.lParam) + 1;
        message.bHandled = true;
    };
    EXPECT_EQ(send(), 71);
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 960 0", "old 5"}));
}

TEST_F(HookEngineTest, KeepsAUserParameterThatCallbacksMayWrite)
{
    engine->sc_Subclass(window, 5);
    EXPECT_EQ(engine->sc_UserParam(window), 5);
    engine->sc_UserParam(window, 6);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    callback = [](HookedMessage& message) { message.userParam += 10; };
    send();
    EXPECT_EQ(engine->sc_UserParam(window), 16);
}

TEST_F(HookEngineTest, FindsTheCallbackByCountingFromTheLastMethod)
{
    engine->sc_Subclass(window, 0, 2);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE);
    send();
    EXPECT_EQ(calls(), (std::vector<std::string>{"first before 960 0", "old 960"}));
}

TEST_F(HookEngineTest, CallsBackAnotherObjectThanTheOwner)
{
    int calls = 0;
    const auto other = std::make_shared<HookOwner>(HookOwner{"Other", {[&](HookedMessage&) { ++calls; }}});
    engine->sc_Subclass(window, 0, 1, other);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    send();
    EXPECT_EQ(calls, 1);
}

TEST_F(HookEngineTest, CallsNobodyWhenTheObjectToCallIsGone)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    engine.reset();
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
}

TEST_F(HookEngineTest, ReportsAWindowThatIsNone)
{
    EXPECT_FALSE(engine->sc_Subclass(99));
    expectReport("sc_Subclass", "Invalid window handle");
}

TEST_F(HookEngineTest, ReportsAWindowOfAnotherProcess)
{
    world.windows.foreign = window;
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "Window handle belongs to another process");
}

TEST_F(HookEngineTest, ReportsACallbackThatIsNotThere)
{
    for (const int ordinal : {3, 0, -1}) {
        EXPECT_FALSE(engine->sc_Subclass(window, 0, ordinal));
        expectReport("sc_Subclass", "Callback method not found");
    }
}

TEST_F(HookEngineTest, ReportsThatThereIsNoMemory)
{
    world.errors.number = 12;
    engine = makeEngine({.windows = world.windows,
                         .log = world.events,
                         .boxes = world.boxes,
                         .errors = world.errors,
                         .memory = *std::pmr::null_memory_resource()});
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "VirtualAlloc failed, error: 12");
}

TEST_F(HookEngineTest, ReportsAWindowThatRefusesTheHook)
{
    world.windows.stubborn = window;
    world.errors.number = 5;
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "SetWindowLong failed, error #5");
    EXPECT_EQ(send(), 70);
}

TEST_F(HookEngineTest, WindowThatRefusedOnceCountsAsSubclassedUntilItIsUnsubclassed)
{
    world.windows.stubborn = window;
    engine->sc_Subclass(window);
    world.log.clear();
    world.windows.stubborn = 0;
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "Window handle is already subclassed");
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    engine->sc_UnSubclass(window);
    EXPECT_TRUE(engine->sc_Subclass(window));
    EXPECT_TRUE(calls().empty());
}

TEST_F(HookEngineTest, ReportsASecondHookOfOneWindowAndKeepsTheFirst)
{
    engine->sc_Subclass(window, 5);
    EXPECT_FALSE(engine->sc_Subclass(window, 6));
    expectReport("sc_Subclass", "Window handle is already subclassed");
    EXPECT_EQ(engine->sc_UserParam(window), 5);
}

TEST_F(HookEngineTest, ReportsTheOverflowOfATable)
{
    engine->sc_Subclass(window);
    for (int message = 1; message <= 32; ++message)
        engine->sc_WatchMsg(window, message, MSG_AFTER);
    EXPECT_TRUE(calls().empty());
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zAddMsg", "Message table overflow. Either increase the value of Const MSG_ENTRIES or use "
                            "ALL_MESSAGES instead of specific message values");
    send();
    send(32);
    EXPECT_EQ(calls(), (std::vector<std::string>{"old 960", "old 32", "last after 32 70"}));
}

TEST_F(HookEngineTest, ReportsAMessageThatIsNotInTheTable)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    engine->sc_UnwatchMsg(window, kMessage, MSG_BEFORE);
    expectReport("zDelMsg", "Message &H3C0 not found in table");
    send();
    EXPECT_EQ(world.log.count("last after 960 70"), 1);
}

TEST_F(HookEngineTest, ReportsAMessageThatIsTakenOutOfATableOfAll)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, ALL_MESSAGES, MSG_AFTER);
    engine->sc_UnwatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zDelMsg", "Message &H3C0 not found in table");
    send();
    EXPECT_EQ(world.log.count("last after 960 70"), 1);
}

TEST_F(HookEngineTest, UnwatchedMessageIsNotSeenAnyMore)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    engine->sc_UnwatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    send();
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
}

TEST_F(HookEngineTest, ReportsThatNoHookWasEverSet)
{
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
    engine->sc_UnwatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
    EXPECT_EQ(engine->sc_CallPrevious(window, kMessage, 0, 0), 0);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
    EXPECT_EQ(engine->sc_UserParam(window), 0);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
    engine->sc_UserParam(window, 1);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
    engine->sc_UnSubclass(window);
    expectReport("sc_UnSubclass", "Window handle isn't subclassed");
}

TEST_F(HookEngineTest, ReportsAWindowWithoutAHook)
{
    const WindowHandle other = world.windows.create("STATIC", "other");
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(other, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Window handle isn't subclassed");
    engine->sc_UnSubclass(other);
    expectReport("zMap_hWnd", "Window handle isn't subclassed");
}

TEST_F(HookEngineTest, ReleasedHookSeesNothingAndLeavesWithTheNextMessage)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    engine->sc_UnSubclass(window);
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
    const auto now = world.windows.exchangeProcedure(window, old);
    EXPECT_EQ(now, old);
}

TEST_F(HookEngineTest, ReleasedHookStaysInTheWindowUntilAMessageComes)
{
    engine->sc_Subclass(window);
    engine->sc_UnSubclass(window);
    EXPECT_NE(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, ReleaseInTheBeforeCallTakesEffectAfterTheOldProcedureReturned)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    callback = [&](HookedMessage&) { engine->sc_UnSubclass(window); };
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 960 0", "old 960"}));
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, ReleaseInAHandledBeforeCallWaitsForTheNextMessage)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE);
    callback = [&](HookedMessage& message) {
        message.bHandled = true;
        engine->sc_UnSubclass(window);
    };
    send();
    EXPECT_EQ(calls(), std::vector<std::string>{"last before 960 0"});
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, ReleaseDuringTheOldProcedureSkipsTheAfterCall)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    old->action = [&](const WindowMessage&) { engine->sc_UnSubclass(window); };
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, ReleaseWaitsForTheOutermostOfNestedCalls)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, 2, MSG_BEFORE);
    std::shared_ptr<WindowProcedure> afterInnerCall;
    old->action = [&](const WindowMessage& message) {
        if (message.iMsg != 1)
            return;
        callback = [&](HookedMessage&) { engine->sc_UnSubclass(window); };
        send(2);
        afterInnerCall = world.windows.exchangeProcedure(window, old);
        world.windows.exchangeProcedure(window, afterInnerCall);
    };
    EXPECT_EQ(send(1), 70);
    EXPECT_EQ(calls(), (std::vector<std::string>{"old 1", "last before 2 0", "old 2"}));
    EXPECT_NE(afterInnerCall, old);
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, CountsNestedCallsAlsoWhenTheOldProcedureFails)
{
    engine->sc_Subclass(window);
    old->action = [](const WindowMessage&) { throw std::runtime_error("no"); };
    EXPECT_THROW(send(), std::runtime_error);
    old->action = {};
    engine->sc_UnSubclass(window);
    send();
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HookEngineTest, ReleasedWindowMayBeHookedAgainOnceItsHookHasLeft)
{
    engine->sc_Subclass(window);
    engine->sc_UnSubclass(window);
    send();
    EXPECT_TRUE(engine->sc_Subclass(window));
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    send();
    EXPECT_EQ(world.log.count("last after 960 70"), 1);
}

TEST_F(HookEngineTest, HookThatLeavesTakesTheOneInFrontOfItAlong)
{
    engine->sc_Subclass(window);
    engine->sc_UnSubclass(window);
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE);
    send();
    send();
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 960 0", "old 960", "old 960"}));
}

TEST_F(HookEngineTest, ReleasesAllHooksTheNewestFirst)
{
    const WindowHandle other = world.windows.create("STATIC", "other");
    engine->sc_Subclass(window);
    engine->sc_Subclass(other);
    engine->sc_WatchMsg(window, ALL_MESSAGES, MSG_BEFORE);
    engine->sc_WatchMsg(other, ALL_MESSAGES, MSG_BEFORE);
    engine->sc_RemoveAll();
    send();
    world.windows.send({other, kMessage, 0, 0});
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
    world.log.clear();
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
}

TEST_F(HookEngineTest, ReleasesAllOfNoHooksWithoutAWord)
{
    engine->sc_RemoveAll();
    EXPECT_TRUE(calls().empty());
}

TEST_F(HookEngineTest, LeavesAWindowAloneThatIsGone)
{
    engine->sc_Subclass(window, 5);
    world.windows.destroy(window);
    world.log.clear();
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    engine->sc_UnwatchMsg(window, kMessage, MSG_AFTER);
    EXPECT_EQ(engine->sc_CallPrevious(window, kMessage, 0, 0), 0);
    EXPECT_EQ(engine->sc_UserParam(window), 0);
    engine->sc_UserParam(window, 1);
    engine->sc_RemoveAll();
    EXPECT_TRUE(calls().empty());
}

TEST_F(HookEngineTest, ReleasesAWindowThatIsGoneWithoutAWord)
{
    engine->sc_Subclass(window);
    world.windows.destroy(window);
    world.log.clear();
    engine->sc_UnSubclass(window);
    EXPECT_TRUE(calls().empty());
}

namespace {

class HostProbeTest : public HookEngineTest {
  protected:
    HostProbeTest()
    {
        auto ports = world.ports();
        ports.hostProbe = [this] { return answer; };
        engine = makeEngine(ports);
    }

    int answer = 1;
};

} // namespace

TEST_F(HostProbeTest, RunningHostChangesNothing)
{
    engine->sc_Subclass(window, 0, 1, nullptr, HookEngine::HostSafety::on);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    send();
    EXPECT_EQ(calls(), (std::vector<std::string>{"last before 960 0", "old 960", "last after 960 70"}));
}

TEST_F(HostProbeTest, HostAtABreakpointGetsTheOldProcedureOnly)
{
    engine->sc_Subclass(window, 0, 1, nullptr, HookEngine::HostSafety::on);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    answer = 2;
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
    answer = 1;
    send();
    EXPECT_EQ(world.log.count("last before 960 0"), 1);
}

TEST_F(HostProbeTest, StoppedHostEndsTheHookAndTheMessage)
{
    engine->sc_Subclass(window, 0, 1, nullptr, HookEngine::HostSafety::on);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    answer = 0;
    EXPECT_EQ(send(), 0);
    EXPECT_TRUE(calls().empty());
    EXPECT_EQ(world.windows.exchangeProcedure(window, old), old);
}

TEST_F(HostProbeTest, IsNotAskedWithoutHostSafety)
{
    engine->sc_Subclass(window);
    answer = 0;
    EXPECT_EQ(send(), 70);
}
