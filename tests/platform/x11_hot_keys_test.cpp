#include "messages/platform/x11/x11_hot_keys.h"

#include "tests/platform/held_display.h"
#include "tests/platform/key_presser.h"
#include "tests/support/plain_message_queue.h"
#include "tests/support/private_x_server.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <thread>

using namespace quillora::messages;
using namespace quillora::tests;
using namespace std::chrono_literals;

namespace {

constexpr WindowHandle kWindow = 7;
constexpr std::int32_t kId = -16384;
constexpr Parameter kCtrlR = (82 << 16) | 2;

/// Longer than any of its calls may take, for the sake of a busy machine.
constexpr auto kGenerous = 5s;

class X11HotKeysTest : public testing::Test {
  protected:
    /// What a socket notifier does, for a while.
    static void turn(X11HotKeys& keys, std::chrono::milliseconds limit = 300ms)
    {
        const auto deadline = std::chrono::steady_clock::now() + limit;
        auto left = limit;
        while (left > 0ms && keys.descriptor() >= 0) {
            pollfd readable{keys.descriptor(), POLLIN, 0};
            if (poll(&readable, 1, static_cast<int>(left.count())) > 0)
                keys.processEvents();
            left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        }
    }

    /// How often the hot key was pressed since this was asked last.
    std::size_t presses()
    {
        turn(hotKeys);
        const std::size_t now = queue.posted().size();
        return now - std::exchange(m_pressesBefore, now);
    }

    bool waitForPress()
    {
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        while (std::chrono::steady_clock::now() < deadline) {
            turn(hotKeys, 50ms);
            if (queue.posted().size() > m_pressesBefore)
                return true;
        }
        return false;
    }

    /// Moves Ctrl+R to another place. A server tells of a change of keyboard at the first press of all, too:
    /// that comes before, so that later presses are no help to who missed this change.
    void moveKey()
    {
        keyboard.press({"t"});
        keyboard.swapSymbols("r", "k");
    }

    /// Presses Ctrl+R until @p keys tell of it; false when they don't.
    bool find(X11HotKeys& keys)
    {
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        while (queue.posted().empty() && std::chrono::steady_clock::now() < deadline) {
            keyboard.press({"Control_L", "r"});
            turn(keys, 100ms);
        }
        return !queue.posted().empty();
    }

    PrivateXServer server;
    PlainMessageQueue queue;
    PlainMessageQueue otherQueue;
    X11HotKeys hotKeys{queue, server.display()};
    KeyPresser keyboard{server.display()};

  private:
    std::size_t m_pressesBefore = 0;
};

} // namespace

TEST_F(X11HotKeysTest, PostsAPressToTheWindow)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.press({"Control_L", "r"});
    ASSERT_TRUE(waitForPress());
    EXPECT_EQ(queue.posted().front(), (WindowMessage{kWindow, 786, kId, kCtrlR}));
}

TEST_F(X11HotKeysTest, TakesNoOtherCombination)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.press({"r"});
    keyboard.press({"Control_L", "t"});
    keyboard.press({"Control_L", "Shift_L", "r"});
    keyboard.press({"Alt_L", "r"});
    EXPECT_EQ(presses(), 0U);
}

TEST_F(X11HotKeysTest, KnowsEveryModifierAndKindOfKey)
{
    struct Case {
        std::uint32_t modifiers;
        std::uint32_t key;
        std::vector<std::string> keys;
    };
    const Case cases[] = {
        {kModifierAlt, 'Q', {"Alt_L", "q"}},
        {kModifierShift, '7', {"Shift_L", "7"}},
        {kModifierAlt | kModifierControl | kModifierShift, 'Z', {"Alt_L", "Control_L", "Shift_L", "z"}},
        {0, 0x70, {"F1"}},
        {kModifierControl, 0x7B, {"Control_L", "F12"}},
        {kModifierShift, 44, {"Shift_L", "Print"}},
    };
    for (const Case& each : cases) {
        ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, 1, each.modifiers, each.key)) << each.key;
        keyboard.press(each.keys);
        EXPECT_TRUE(waitForPress()) << each.key;
        EXPECT_EQ(presses(), 1U) << each.key;
        EXPECT_TRUE(hotKeys.UnregisterHotKey(kWindow, 1));
        keyboard.press(each.keys);
        EXPECT_EQ(presses(), 0U) << each.key;
    }
}

TEST_F(X11HotKeysTest, WorksInAllStatesOfNumLockAndCapsLock)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    for (const char* lock : {"", "Num_Lock", "Caps_Lock", "Num_Lock"}) {
        if (*lock != '\0')
            keyboard.press({lock});
        keyboard.press({"Control_L", "r"});
        EXPECT_TRUE(waitForPress()) << lock;
        EXPECT_EQ(presses(), 1U) << lock;
    }
}

TEST_F(X11HotKeysTest, FindsNumLockOnAnyModifier)
{
    keyboard.moveNumLockTo(KeyPresser::Modifier::mod5);
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.press({"Num_Lock"});
    ASSERT_EQ(keyboard.state(), 1U << 7);
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
}

TEST_F(X11HotKeysTest, FollowsNumLockToAnotherModifier)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.moveNumLockTo(KeyPresser::Modifier::mod5);
    turn(hotKeys);
    keyboard.press({"Num_Lock"});
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
}

TEST_F(X11HotKeysTest, FollowsTheKeyWhereAChangeOfKeyboardMovesIt)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    const auto before = keyboard.codeOf("r");
    keyboard.swapSymbols("r", "k");
    const auto after = keyboard.codeOf("r");
    ASSERT_NE(before, after);
    turn(hotKeys);
    keyboard.press({"Control_L", "k"});
    EXPECT_EQ(presses(), 0U);
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
    EXPECT_EQ(presses(), 1U);
}

TEST_F(X11HotKeysTest, FollowsTheKeyAcrossWholeLayouts)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    for (const char* layout : {"us(dvorak)", "us", "fr", "ara,us", "us"}) {
        keyboard.useLayout(layout);
        turn(hotKeys);
        keyboard.press({"Control_L", "r"});
        EXPECT_TRUE(waitForPress()) << layout;
        EXPECT_EQ(presses(), 1U) << layout;
    }
}

TEST_F(X11HotKeysTest, TakesTheUsualPlaceOfALetterThatTheKeyboardHasNot)
{
    const auto place = keyboard.codeOf("r");
    keyboard.useLayout("ara");
    ASSERT_EQ(keyboard.codeOf("r"), 0);
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.pressCodes({keyboard.codeOf("Control_L"), place});
    EXPECT_TRUE(waitForPress());
}

TEST_F(X11HotKeysTest, LosesTheKeyToWhoHoldsItsNewPlaceAndGetsItAtTheNextChange)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.grab("k", KeyPresser::kControlMask);
    moveKey();
    turn(hotKeys);
    keyboard.press({"Control_L", "r"});
    EXPECT_EQ(presses(), 0U);
    keyboard.ungrabAll();
    keyboard.swapSymbols("q", "w");
    EXPECT_TRUE(find(hotKeys));
}

TEST_F(X11HotKeysTest, FindsTheKeyAgainWhenTheServerHangsAfterAChangeOfKeyboard)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    moveKey();
    pollfd change{hotKeys.descriptor(), POLLIN, 0};
    ASSERT_EQ(poll(&change, 1, 10'000), 1);
    server.freeze();
    hotKeys.processEvents();
    server.thaw();
    EXPECT_TRUE(find(hotKeys));
}

TEST_F(X11HotKeysTest, FindsTheKeyAgainWhenTheServerIsSlowToGiveIt)
{
    HeldDisplay way(server.number());
    X11HotKeys slow(queue, way.display());
    ASSERT_TRUE(slow.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    moveKey();
    // One change comes as several events, of which none is to be left for later.
    std::this_thread::sleep_for(200ms);
    way.holdFrom(XCB_UNGRAB_KEY);
    slow.processEvents();
    way.letGo();
    EXPECT_TRUE(find(slow));
}

TEST_F(X11HotKeysTest, CountsAKeyThatIsHeldOnce)
{
    FocusedWindow other(server.display());
    keyboard.down({"t"});
    const auto begun = std::chrono::steady_clock::now();
    while (other.keyPresses(keyboard.codeOf("t")) < 5)
        ASSERT_LT(std::chrono::steady_clock::now() - begun, 20s) << "the server repeats no key";
    keyboard.up({"t"});
    const auto timeOfRepeats = std::chrono::steady_clock::now() - begun;

    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.down({"Control_L", "r"});
    std::this_thread::sleep_for(2 * timeOfRepeats);
    EXPECT_EQ(presses(), 1U);
    keyboard.up({"r", "Control_L"});
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
    EXPECT_EQ(presses(), 1U);
}

TEST_F(X11HotKeysTest, IsRefusedWhatAnotherProgramHolds)
{
    X11HotKeys other(otherQueue, server.display());
    ASSERT_TRUE(other.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    EXPECT_EQ(errno, EACCES);
    keyboard.press({"Control_L", "r"});
    EXPECT_EQ(presses(), 0U);
    turn(other);
    EXPECT_EQ(otherQueue.posted().size(), 1U);
}

TEST_F(X11HotKeysTest, IsRefusedWhatAnotherProgramHoldsInOneStateOfTheLocksOnlyAndKeepsNothingOfTheRest)
{
    keyboard.grab("r", KeyPresser::kControlMask | KeyPresser::kLockMask);
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    X11HotKeys other(otherQueue, server.display());
    keyboard.ungrabAll();
    EXPECT_TRUE(other.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
}

TEST_F(X11HotKeysTest, GetsTheKeyOnceTheOtherProgramHasGone)
{
    {
        X11HotKeys other(otherQueue, server.display());
        ASSERT_TRUE(other.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    }
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (!hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'))
        ASSERT_LT(std::chrono::steady_clock::now(), deadline);
}

TEST_F(X11HotKeysTest, GivesTheKeyBackAtOnce)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    X11HotKeys other(otherQueue, server.display());
    ASSERT_TRUE(hotKeys.UnregisterHotKey(kWindow, kId));
    EXPECT_TRUE(other.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
}

TEST_F(X11HotKeysTest, RefusesOneCombinationTwiceAndAnIdThatIsUnknown)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, 1, kModifierControl, 'R'));
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, 2, kModifierControl, 'R'));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_FALSE(hotKeys.UnregisterHotKey(kWindow, 2));
    EXPECT_FALSE(hotKeys.UnregisterHotKey(kWindow + 1, 1));
    EXPECT_TRUE(hotKeys.UnregisterHotKey(kWindow, 1));
}

TEST_F(X11HotKeysTest, RefusesAKeyThatItDoesNotKnow)
{
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, 1, kModifierControl, 0xFE));
}

TEST_F(X11HotKeysTest, WorksWhileAnotherProgramHasTheFocus)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    FocusedWindow other(server.display());
    ASSERT_TRUE(other.hasFocus());
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
    EXPECT_EQ(other.keyPresses(keyboard.codeOf("r")), 0);
    keyboard.press({"r"});
    EXPECT_EQ(other.keyPresses(keyboard.codeOf("r")), 1);
}

TEST_F(X11HotKeysTest, GivesUpOnAServerThatStopsAnswering)
{
    server.freeze();
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, kGenerous);
    server.thaw();
    EXPECT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    keyboard.press({"Control_L", "r"});
    EXPECT_TRUE(waitForPress());
}

TEST_F(X11HotKeysTest, GivesUpOnAServerThatDoesNotAnswerFromTheStart)
{
    server.freeze();
    const auto begun = std::chrono::steady_clock::now();
    X11HotKeys late(otherQueue, server.display());
    EXPECT_FALSE(late.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, kGenerous);
    EXPECT_EQ(late.descriptor(), -1);
    server.thaw();
}

TEST_F(X11HotKeysTest, RunsWithoutADisplay)
{
    X11HotKeys none(otherQueue, ":4095");
    EXPECT_FALSE(none.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    EXPECT_EQ(errno, ENOTCONN);
    EXPECT_EQ(none.descriptor(), -1);
    none.processEvents();
    EXPECT_FALSE(none.UnregisterHotKey(kWindow, kId));
}

TEST_F(X11HotKeysTest, OutlivesTheDisplay)
{
    ASSERT_TRUE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
    server.kill();
    turn(hotKeys);
    hotKeys.processEvents();
    EXPECT_EQ(hotKeys.descriptor(), -1);
    EXPECT_TRUE(hotKeys.UnregisterHotKey(kWindow, kId));
    EXPECT_FALSE(hotKeys.RegisterHotKey(kWindow, kId, kModifierControl, 'R'));
}
