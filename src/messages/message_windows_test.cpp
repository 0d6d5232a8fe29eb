#include "messages/message_windows.h"

#include "tests/support/plain_message_queue.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace quillora::messages;
using quillora::tests::PlainMessageQueue;

namespace {

class Procedure : public WindowProcedure {
  public:
    std::function<Result(const WindowMessage&)> action;

    explicit Procedure(std::function<Result(const WindowMessage&)> does) : action(std::move(does)) {}
    Result process(const WindowMessage& message) override { return action(message); }
};

class MessageWindowsTest : public testing::Test {
  protected:
    std::shared_ptr<WindowProcedure> exchange(WindowHandle window,
                                              std::function<Result(const WindowMessage&)> action)
    {
        return windows.exchangeProcedure(window, std::make_shared<Procedure>(std::move(action)));
    }

    PlainMessageQueue queue;
    MessageWindows windows{queue};
};

} // namespace

TEST_F(MessageWindowsTest, WindowHasClassTitleAndAHandleOfItsOwn)
{
    const WindowHandle one = windows.create("STATIC", "one");
    const WindowHandle other = windows.create("FORM", "other");
    EXPECT_NE(one, 0U);
    EXPECT_NE(one, other);
    EXPECT_EQ(windows.titleOf(one), "one");
    EXPECT_EQ(windows.classNameOf(other), "FORM");
    EXPECT_TRUE(windows.isWindow(one));
    EXPECT_TRUE(windows.belongsToThisProcess(one));
    EXPECT_EQ(windows.count(), 2);
}

TEST_F(MessageWindowsTest, AnswersZeroByItself)
{
    EXPECT_EQ(windows.send({windows.create("STATIC", ""), 960, 1, 2}), 0);
}

TEST_F(MessageWindowsTest, NoWindowIsNone)
{
    EXPECT_FALSE(windows.isWindow(0));
    EXPECT_FALSE(windows.isWindow(99));
    EXPECT_FALSE(windows.belongsToThisProcess(99));
    EXPECT_EQ(windows.send({99, 960, 1, 2}), 0);
    EXPECT_EQ(windows.titleOf(99), "");
    EXPECT_EQ(windows.classNameOf(99), "");
    EXPECT_EQ(exchange(99, [](const WindowMessage&) { return 1; }), nullptr);
}

TEST_F(MessageWindowsTest, RunsTheProcedureThatWasPutInPlace)
{
    const WindowHandle window = windows.create("STATIC", "");
    EXPECT_NE(exchange(window, [](const WindowMessage& message) { return message.wParam + message.lParam; }),
              nullptr);
    EXPECT_EQ(windows.send({window, 960, 40, 2}), 42);
}

TEST_F(MessageWindowsTest, TakesNoEmptyProcedure)
{
    const WindowHandle window = windows.create("STATIC", "");
    EXPECT_EQ(windows.exchangeProcedure(window, nullptr), nullptr);
    EXPECT_EQ(windows.send({window, 960, 40, 2}), 0);
}

TEST_F(MessageWindowsTest, RunsWhatIsPostedOnlyFromTheQueueAndInOrder)
{
    const WindowHandle window = windows.create("STATIC", "");
    std::vector<int> seen;
    exchange(window, [&](const WindowMessage& message) { return seen.push_back(message.iMsg), Result{0}; });
    windows.post({window, 1, 0, 0});
    windows.post({window, 2, 0, 0});
    EXPECT_TRUE(seen.empty());
    queue.run(windows);
    EXPECT_EQ(seen, (std::vector{1, 2}));
}

TEST_F(MessageWindowsTest, DropsWhatIsPostedToAWindowThatGoes)
{
    const WindowHandle window = windows.create("STATIC", "");
    int calls = 0;
    exchange(window, [&](const WindowMessage& message) { return calls += message.iMsg == 960; });
    windows.post({window, 960, 0, 0});
    windows.destroy(window);
    const WindowHandle next = windows.create("STATIC", "");
    EXPECT_NE(next, window);
    EXPECT_EQ(queue.run(windows), 1);
    EXPECT_EQ(calls, 0);
}

TEST_F(MessageWindowsTest, TellsAWindowOfItsEnd)
{
    const WindowHandle window = windows.create("STATIC", "");
    std::vector<int> seen;
    bool stillThere = false;
    exchange(window, [&](const WindowMessage& message) {
        seen.push_back(message.iMsg);
        stillThere = windows.isWindow(window);
        return Result{0};
    });
    EXPECT_TRUE(windows.destroy(window));
    EXPECT_EQ(seen, std::vector{kDestroyMessage});
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(windows.isWindow(window));
    EXPECT_EQ(windows.count(), 0);
}

TEST_F(MessageWindowsTest, DestroysNoWindowWithoutAWord) { EXPECT_FALSE(windows.destroy(0)); }

TEST_F(MessageWindowsTest, LetsAWindowGoWhoseProcedureFailsAtItsEnd)
{
    const WindowHandle window = windows.create("STATIC", "");
    exchange(window, [](const WindowMessage&) -> Result { throw std::runtime_error("no"); });
    EXPECT_THROW(windows.destroy(window), std::runtime_error);
    EXPECT_FALSE(windows.isWindow(window));
}

TEST_F(MessageWindowsTest, ProcedureMayEndItsOwnWindow)
{
    const WindowHandle window = windows.create("STATIC", "");
    exchange(window, [&, keep = std::make_shared<int>(7)](const WindowMessage& message) {
        if (message.iMsg == 1)
            windows.destroy(window);
        return Result{*keep};
    });
    EXPECT_EQ(windows.send({window, 1, 0, 0}), 7);
}

TEST_F(MessageWindowsTest, TellsAWindowOfItsEndOnceThoughItsProcedureEndsItAgain)
{
    const WindowHandle window = windows.create("STATIC", "");
    int told = 0;
    bool endedAgain = true;
    exchange(window, [&](const WindowMessage&) {
        if (++told == 1)
            endedAgain = windows.destroy(window);
        return Result{0};
    });
    EXPECT_TRUE(windows.destroy(window));
    EXPECT_FALSE(endedAgain);
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(windows.isWindow(window));
}
