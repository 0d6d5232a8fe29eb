#include "tests/support/hook_engine_fixture.h"

#include <stdexcept>

using namespace quillora::messages;
using namespace quillora::tests;

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

TEST_F(HookEngineTest, UnwatchedMessageIsNotSeenAnyMore)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    engine->sc_UnwatchMsg(window, kMessage, MSG_BEFORE_AND_AFTER);
    send();
    EXPECT_EQ(calls(), std::vector<std::string>{"old 960"});
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

TEST_F(HookEngineTest, ReleaseInTheAfterCallWaitsForTheNextMessage)
{
    engine->sc_Subclass(window);
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    callback = [&](HookedMessage&) { engine->sc_UnSubclass(window); };
    EXPECT_EQ(send(), 70);
    const auto hook = world.windows.exchangeProcedure(window, old);
    EXPECT_NE(hook, old);
    world.windows.exchangeProcedure(window, hook);
    EXPECT_EQ(send(), 70);
    EXPECT_EQ(calls(), (std::vector<std::string>{"old 960", "last after 960 70", "old 960"}));
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

TEST_F(HookEngineTest, ReleasesAllHooks)
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
