#include "tests/forms/form_fixture.h"

#include <QWindow>

#include <algorithm>

using namespace quillora;
using tests::FormTest;
using tests::waitUntil;

namespace {

class WindowHintsTest : public FormTest {
  protected:
    WindowHintsTest()
    {
        probe.watchUnmapping(window());
        place = probe.geometry(window());
        focus = probe.focusedWindow();
    }
    /// None of the hints may show in the recording or take the keyboard away.
    void TearDown() override
    {
        tests::settle();
        EXPECT_EQ(probe.geometry(window()), place);
        EXPECT_EQ(probe.focusedWindow(), focus);
        EXPECT_TRUE(probe.isMapped(window()));
        EXPECT_EQ(probe.unmappings(), 0);
    }

    bool has(const char* property, const char* name)
    {
        const auto names = probe.atomList(window(), property);
        return std::find(names.begin(), names.end(), name) != names.end();
    }
    bool isAbove() { return has("_NET_WM_STATE", "_NET_WM_STATE_ABOVE"); }
    /// What is asked for: this window manager shows the box all the same, others take it away.
    bool canBeMinimized() { return (probe.motifFunctions(window()) & (1U << 3)) != 0; }
    bool canBeMoved() { return has("_NET_WM_ALLOWED_ACTIONS", "_NET_WM_ACTION_MOVE"); }

    QRect place;
    std::uint32_t focus = 0;
};

} // namespace

TEST_F(WindowHintsTest, PutTheWindowAboveAllOthersAndBack)
{
    ASSERT_TRUE(shown);
    EXPECT_FALSE(isAbove());
    form.SetTopMost(true);
    EXPECT_TRUE(waitUntil([&] { return isAbove(); }));
    form.SetTopMost(true);
    tests::settle(50);
    EXPECT_TRUE(isAbove());
    form.SetTopMost(false);
    EXPECT_TRUE(waitUntil([&] { return !isAbove(); }));
}

TEST_F(WindowHintsTest, TakeTheMinimizeBoxAwayAndGiveItBack)
{
    ASSERT_TRUE(shown);
    EXPECT_TRUE(form.hasMinimizeBox());
    form.setHasMinimizeBox(false);
    EXPECT_FALSE(form.hasMinimizeBox());
    EXPECT_FALSE(canBeMinimized());
    EXPECT_TRUE(canBeMoved());
    form.setHasMinimizeBox(true);
    EXPECT_TRUE(form.hasMinimizeBox());
    EXPECT_TRUE(waitUntil([&] { return canBeMinimized(); }));
}

TEST_F(WindowHintsTest, LockTheMoveAndUnlockIt)
{
    ASSERT_TRUE(shown);
    EXPECT_TRUE(canBeMoved());
    form.setMoveLocked(true);
    EXPECT_TRUE(waitUntil([&] { return !canBeMoved(); }));
    EXPECT_TRUE(canBeMinimized());
    form.setMoveLocked(false);
    EXPECT_TRUE(waitUntil([&] { return canBeMoved(); }));
}

TEST_F(WindowHintsTest, GoTogetherAsInARecording)
{
    ASSERT_TRUE(shown);
    form.setHasMinimizeBox(false);
    form.SetTopMost(true);
    form.setMoveLocked(true);
    EXPECT_TRUE(waitUntil([&] { return isAbove() && !canBeMoved() && !canBeMinimized(); }));
    form.SetTopMost(false);
    form.setMoveLocked(false);
    form.setHasMinimizeBox(true);
    EXPECT_TRUE(waitUntil([&] { return !isAbove() && canBeMoved() && canBeMinimized(); }));
}

TEST(WindowHintsBeforeTheWindowIsThere, DoNothing)
{
    forms::X11WindowHints hints;
    forms::Vantry_frm form(hints);
    form.SetTopMost(true);
    form.setMoveLocked(true);
    form.setHasMinimizeBox(false);
    EXPECT_FALSE(form.hasMinimizeBox());
    const capture::PixelRectangle stage = form.stageRectangle();
    EXPECT_EQ(stage.width, 747);
    EXPECT_EQ(stage.height, 420);
}
