#include "stage/deck_shortcut.h"

#include "deck/task_pane.h"
#include "tests/support/fake_stage_surfaces.h"
#include "tests/support/fake_task_pane_view.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillora::stage {
namespace {

using Calls = std::vector<std::string>;

class DeckOpeningThat : public session::DeckOpening {
  public:
    std::function<void()> happens = [] {};
    int opened = 0;

    void openSlides() override
    {
        ++opened;
        happens();
    }
};

class DeckShortcutTest : public testing::Test {
  protected:
    DeckShortcutTest() { pane.AddExpBar(); }

    tests::CallLog log{};
    tests::FakeStageSurfaces surfaces{log};
    tests::FakeTaskPaneView view{};
    deck::TaskPane pane{view};
    DeckOpeningThat deck{};
    DeckShortcut shortcut{{.surfaces = surfaces.all, .bars = pane, .deck = deck}};
};

TEST_F(DeckShortcutTest, BringsTheSlidesUpBeforeItAsksForADeck)
{
    surfaces.slide_img.shown = surfaces.slide_img_back.shown = false;
    surfaces.picPaint.shown = surfaces.VideoCap1_back.shown = true;
    deck.happens = [&] {
        EXPECT_EQ(log.calls, (Calls{"picPaint hidden", "VideoCap1_back hidden", "slide_img shown",
                                    "slide_img_back shown"}));
        EXPECT_EQ(view.expanded(), (Calls{"camera", "powerpoint"}));
    };
    shortcut.Image1_Click();
    EXPECT_EQ(deck.opened, 1);
}

TEST_F(DeckShortcutTest, PutsAwayADrawingBoardThatCameUpWhileTheDialogWasOpen)
{
    deck.happens = [&] {
        surfaces.picPaint.shown = true;
        pane.setBarState("draw", session::BarState::expanded);
        pane.setBarState("powerpoint", session::BarState::collapsed);
    };
    shortcut.Image1_Click();
    EXPECT_FALSE(surfaces.picPaint.shown);
    EXPECT_EQ(view.expanded(), (Calls{"camera", "powerpoint"}));
}

TEST_F(DeckShortcutTest, WorksInTheShortPane)
{
    pane.AddExpBarLess();
    surfaces.picPaint.failing.names = {"setVisible"};
    EXPECT_NO_THROW(shortcut.Image1_Click());
    EXPECT_EQ(deck.opened, 1);
    EXPECT_TRUE(surfaces.slide_img.shown);
}

} // namespace
} // namespace quillora::stage
