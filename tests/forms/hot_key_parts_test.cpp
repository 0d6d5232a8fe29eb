#include "app/hot_key_parts.h"

#include "tests/forms/form_fixture.h"
#include "tests/support/fake_hot_key_ports.h"
#include "tests/support/fake_message_boxes.h"

#include <QDialog>
#include <QLineEdit>
#include <QSignalSpy>

using namespace quillora;

namespace {

class HotKey : public tests::FormTest {
  protected:
    HotKey()
    {
        hotKey.ReturnWindow = [this] { ++returns; };
    }

    /// Gives the focus to another window than the form.
    bool giveFocusTo(QLineEdit& other)
    {
        other.show();
        other.activateWindow();
        return tests::waitUntil([&] { return other.isActiveWindow(); });
    }

    bool inFront()
    {
        return tests::waitUntil(
            [this] { return form.isActiveWindow() && !form.isMinimized() && probe.isMapped(window()); });
    }

    bool returned()
    {
        return tests::waitUntil([this] { return returns > 0; });
    }

    tests::CallLog log;
    tests::FakeMessageBoxes boxes{log};
    app::MessageParts messages{boxes};
    app::HotKeyParts hotKey{messages, form};
    int returns = 0;
};

} // namespace

TEST_F(HotKey, BringsTheWindowBack)
{
    hotKey.ActivateHotKey();
    type("ctrl+r");
    EXPECT_TRUE(returned());
    tests::settle();
    EXPECT_EQ(returns, 1);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(HotKey, WorksWhileTheWindowIsAwayAndAnotherOneHasTheFocus)
{
    hotKey.ActivateHotKey();
    form.hide();
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(tests::waitUntil([&] { return other.isActiveWindow(); }));
    type("ctrl+r");
    EXPECT_TRUE(returned());
}

TEST_F(HotKey, WorksInsideAModalDialog)
{
    hotKey.ActivateHotKey();
    QDialog dialog(&form);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(tests::waitUntil([&] { return dialog.isActiveWindow(); }));
    type("ctrl+r");
    EXPECT_TRUE(returned());
}

TEST_F(HotKey, MadeAnewIsPressedOnce)
{
    hotKey.ActivateHotKey();
    type("ctrl+r");
    ASSERT_TRUE(returned());
    hotKey.ActivateHotKey();
    hotKey.ActivateHotKey();
    returns = 0;
    type("ctrl+r");
    EXPECT_TRUE(returned());
    tests::settle();
    EXPECT_EQ(returns, 1);
}

TEST_F(HotKey, OfASecondCopyOfTheProgramIsMissingWithoutAWord)
{
    hotKey.ActivateHotKey();
    app::HotKeyParts second(messages, form);
    int secondReturns = 0;
    second.ReturnWindow = [&] { ++secondReturns; };
    EXPECT_NO_THROW(second.ActivateHotKey());
    type("ctrl+r");
    EXPECT_TRUE(returned());
    EXPECT_EQ(secondReturns, 0);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(HotKey, ThatCouldNotBeHadIsAShortcutOfTheWindowWithoutUse)
{
    ASSERT_TRUE(shown);
    QSignalSpy record(&form, &forms::Vantry_frm::record_Click);
    type("ctrl+r");
    ASSERT_TRUE(tests::waitUntil([&] { return record.count() > 0; }));
    type("ctrl+p");
    type("ctrl+s");
    tests::settle();
    EXPECT_EQ(record.count(), 1);
    EXPECT_EQ(returns, 0);
}

TEST_F(HotKey, LeavesTheShortcutOfTheWindowNothing)
{
    ASSERT_TRUE(shown);
    QSignalSpy record(&form, &forms::Vantry_frm::record_Click);
    hotKey.ActivateHotKey();
    type("ctrl+r");
    ASSERT_TRUE(returned());
    tests::settle();
    EXPECT_EQ(record.count(), 0);
}

TEST_F(HotKey, LeadsBackWhicheverKeyIsTold)
{
    constexpr messages::WindowHandle kMainWindow = 1;
    ASSERT_EQ(messages.windows().classNameOf(kMainWindow), "Vantry_frm");
    hotKey.ActivateHotKey();
    int told = 0;
    for (const int id : {-2, -1, 77}) {
        messages.windows().send({kMainWindow, messages::kHotKeyMessage, id, 0});
        EXPECT_EQ(returns, ++told) << id;
    }
}

TEST_F(HotKey, BringsAHiddenOrMinimisedFormToTheFront)
{
    ASSERT_TRUE(shown);
    messages::MessageHookService hooks(messages.hooks());
    tests::FakeHotKeys keys(log);
    tests::FakeAtoms atoms(log);
    messages::cRegHotKey other({.hooks = hooks,
                                .keys = keys,
                                .atoms = atoms,
                                .errors = messages.errors(),
                                .windows = hotKey,
                                .GetTickCount = [] { return 0U; },
                                .executableName = "quillora"});
    QLineEdit neighbour;
    form.setFormVisible(false);
    ASSERT_TRUE(giveFocusTo(neighbour));
    other.RestoreAndActivate(1);
    EXPECT_TRUE(inFront());

    form.showMinimized();
    ASSERT_TRUE(tests::waitUntil([&] { return !probe.isMapped(window()); }));
    ASSERT_TRUE(giveFocusTo(neighbour));
    other.RestoreAndActivate(1);
    EXPECT_TRUE(inFront());

    ASSERT_TRUE(giveFocusTo(neighbour));
    other.RestoreAndActivate(1);
    EXPECT_TRUE(inFront());
}

TEST_F(HotKey, IsGivenBackAtTheEnd)
{
    {
        app::HotKeyParts first(messages, form);
        first.ActivateHotKey();
    }
    hotKey.ActivateHotKey();
    type("ctrl+r");
    EXPECT_TRUE(returned());
}

TEST_F(HotKey, GoesOnAfterAReturnThatFailed)
{
    hotKey.ReturnWindow = [this] {
        ++returns;
        throw std::runtime_error("no engine");
    };
    hotKey.ActivateHotKey();
    type("ctrl+r");
    ASSERT_TRUE(returned());
    returns = 0;
    type("ctrl+r");
    EXPECT_TRUE(returned());
}

TEST_F(HotKey, WithNothingToReturnToIsHarmless)
{
    hotKey.ReturnWindow = {};
    hotKey.ActivateHotKey();
    type("ctrl+r");
    tests::settle();
    EXPECT_EQ(returns, 0);
}
