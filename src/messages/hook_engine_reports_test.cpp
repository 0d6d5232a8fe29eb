#include "tests/support/hook_engine_fixture.h"

#include <new>

using namespace quillora::messages;
using namespace quillora::tests;

namespace {

/// Memory that can run out.
class SmallMemory : public std::pmr::memory_resource {
  public:
    bool exhausted = false;

  private:
    void* do_allocate(std::size_t bytes, std::size_t alignment) override
    {
        if (exhausted)
            throw std::bad_alloc();
        return std::pmr::new_delete_resource()->allocate(bytes, alignment);
    }
    void do_deallocate(void* memory, std::size_t bytes, std::size_t alignment) override
    {
        std::pmr::new_delete_resource()->deallocate(memory, bytes, alignment);
    }
    bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
};

/// A test whose hooks lie in such memory.
class HookMemoryTest : public HookEngineTest {
  protected:
    HookMemoryTest()
    {
        world.errors.number = 12;
        engine = makeEngine({.windows = world.windows,
                             .log = world.events,
                             .boxes = world.boxes,
                             .errors = world.errors,
                             .memory = memory});
    }
    /// Lets go of the memory while it is there.
    ~HookMemoryTest() override
    {
        world.windows.destroy(window);
        engine.reset();
    }

    SmallMemory memory;
};

} // namespace

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

TEST_F(HookMemoryTest, ReportsThatThereIsNone)
{
    memory.exhausted = true;
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "VirtualAlloc failed, error: 12");
}

TEST_F(HookEngineTest, HookThatFindsNoCallbackLeavesSubclassingUnstarted)
{
    engine->sc_Subclass(window, 0, 3);
    world.log.clear();
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Subclassing hasn't been started");
}

TEST_F(HookMemoryTest, HookThatFindsNoneHasStartedSubclassing)
{
    memory.exhausted = true;
    engine->sc_Subclass(window);
    world.log.clear();
    engine->sc_WatchMsg(window, kMessage, MSG_AFTER);
    expectReport("zMap_hWnd", "Window handle isn't subclassed");
}

TEST_F(HookMemoryTest, OfSeveralReasonsTheFirstIsReported)
{
    constexpr int kNoMethod = 3;
    ASSERT_TRUE(engine->sc_Subclass(window));
    memory.exhausted = true;
    EXPECT_FALSE(engine->sc_Subclass(window));
    expectReport("sc_Subclass", "VirtualAlloc failed, error: 12");
    EXPECT_FALSE(engine->sc_Subclass(window, 0, kNoMethod));
    expectReport("sc_Subclass", "Callback method not found");
    world.windows.foreign = window;
    EXPECT_FALSE(engine->sc_Subclass(window, 0, kNoMethod));
    expectReport("sc_Subclass", "Window handle belongs to another process");
    world.windows.foreign = 99;
    EXPECT_FALSE(engine->sc_Subclass(99, 0, kNoMethod));
    expectReport("sc_Subclass", "Invalid window handle");
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
