#include "messages/message_hook_service.h"

#include "tests/support/hooked_windows.h"

#include <gtest/gtest.h>

using namespace quillora::messages;
using namespace quillora::tests;

namespace {

class Sink : public ISubclass {
  public:
    int response = kDefaultProcessingFollows;
    std::vector<WindowMessage> seen{};
    std::function<void(const WindowMessage&, Result&)> action{};

    int MsgResponse() const override { return response; }
    void MsgResponse(int) override {}
    void WindowProc(WindowHandle hwnd, int iMsg, Parameter wParam, Parameter lParam, Result& result) override
    {
        seen.push_back({hwnd, iMsg, wParam, lParam});
        if (action)
            action(seen.back(), result);
    }
};

class OldProcedure : public WindowProcedure {
  public:
    int calls = 0;
    Result process(const WindowMessage&) override { return ++calls, 70; }
};

class MessageHookServiceTest : public testing::Test {
  protected:
    MessageHookServiceTest() { world.windows.exchangeProcedure(window, old); }

    HookedWindows world;
    std::shared_ptr<OldProcedure> old = std::make_shared<OldProcedure>();
    WindowHandle window = world.windows.create("FORM", "");
    MessageHookService service{world.ports()};
    Sink sink;
    Sink other;
};

} // namespace

TEST_F(MessageHookServiceTest, ShowsASinkTheMessageThatItIsAttachedForAndNoOther)
{
    service.attach(sink, window, 786);
    EXPECT_EQ(world.windows.send({window, 786, 3, 4}), 70);
    world.windows.send({window, 2, 0, 0});
    EXPECT_EQ(sink.seen, (std::vector<WindowMessage>{{window, 786, 3, 4}}));
    EXPECT_EQ(old->calls, 2);
}

TEST_F(MessageHookServiceTest, KeepsTheMessageFromTheWindowWhenTheSinkSaysSo)
{
    sink.response = 1;
    sink.action = [](const WindowMessage&, Result& result) { result = 5; };
    service.attach(sink, window, 786);
    EXPECT_EQ(world.windows.send({window, 786, 3, 4}), 5);
    EXPECT_EQ(old->calls, 0);
}

TEST_F(MessageHookServiceTest, ServesSeveralSinksMessagesAndWindows)
{
    const WindowHandle second = world.windows.create("FORM", "");
    service.attach(sink, window, 786);
    service.attach(sink, window, 2);
    service.attach(other, window, 786);
    service.attach(other, second, 786);
    world.windows.send({window, 786, 0, 0});
    world.windows.send({window, 2, 0, 0});
    world.windows.send({second, 786, 0, 0});
    EXPECT_EQ(sink.seen, (std::vector<WindowMessage>{{window, 786, 0, 0}, {window, 2, 0, 0}}));
    EXPECT_EQ(other.seen, (std::vector<WindowMessage>{{window, 786, 0, 0}, {second, 786, 0, 0}}));
}

TEST_F(MessageHookServiceTest, AttachingTwiceCallsOnce)
{
    service.attach(sink, window, 786);
    service.attach(sink, window, 786);
    world.windows.send({window, 786, 0, 0});
    EXPECT_EQ(sink.seen.size(), 1U);
    service.detach(sink, window, 786);
    world.windows.send({window, 786, 0, 0});
    EXPECT_EQ(sink.seen.size(), 1U);
    EXPECT_TRUE(world.log.calls.empty());
}

TEST_F(MessageHookServiceTest, DetachedSinkSeesNothingWhileTheOtherStillDoes)
{
    service.attach(sink, window, 786);
    service.attach(other, window, 786);
    service.detach(sink, window, 786);
    world.windows.send({window, 786, 0, 0});
    EXPECT_TRUE(sink.seen.empty());
    EXPECT_EQ(other.seen.size(), 1U);
}

TEST_F(MessageHookServiceTest, AttachesAnewRightAfterTheLastSinkLeft)
{
    service.attach(sink, window, 786);
    service.detach(sink, window, 786);
    service.attach(other, window, 786);
    world.windows.send({window, 786, 0, 0});
    world.windows.send({window, 786, 0, 0});
    EXPECT_EQ(other.seen.size(), 2U);
}

TEST_F(MessageHookServiceTest, DetachingWhatIsNotAttachedIsNothing)
{
    service.detach(sink, window, 786);
    service.attach(sink, window, 786);
    service.detach(sink, window, 2);
    service.detach(other, window, 786);
    EXPECT_TRUE(world.log.calls.empty());
    world.windows.send({window, 786, 0, 0});
    EXPECT_EQ(sink.seen.size(), 1U);
}

TEST_F(MessageHookServiceTest, SinkMayDetachItselfAndOthersWhileItIsCalled)
{
    service.attach(sink, window, 786);
    service.attach(other, window, 786);
    sink.action = [&](const WindowMessage&, Result&) {
        service.detach(sink, window, 786);
        service.detach(other, window, 786);
    };
    EXPECT_EQ(world.windows.send({window, 786, 0, 0}), 70);
    EXPECT_TRUE(other.seen.empty());
    world.windows.send({window, 786, 0, 0});
    EXPECT_EQ(sink.seen.size(), 1U);
}

TEST_F(MessageHookServiceTest, ReportsAWindowThatCannotBeHooked)
{
    service.attach(sink, 99, 786);
    EXPECT_EQ(world.log.calls,
              (std::vector<std::string>{"log MessageHookService.sc_Subclass: Invalid window handle",
                                        "box Invalid window handle."}));
    service.detach(sink, 99, 786);
}

TEST_F(MessageHookServiceTest, OutlivesTheWindow)
{
    service.attach(sink, window, 2);
    world.windows.destroy(window);
    EXPECT_EQ(sink.seen.size(), 1U);
    service.detach(sink, window, 2);
    EXPECT_TRUE(world.log.calls.empty());
}
