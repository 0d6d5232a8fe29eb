#include "stage/deck_shortcut.h"

#include "tests/support/fake_slide_panel.h"

#include <gtest/gtest.h>

namespace quillora::stage {
namespace {

class DeckOpeningThatLooks : public session::DeckOpening {
  public:
    explicit DeckOpeningThatLooks(const tests::FakeSlidePanel& panel) : m_panel(panel) {}

    bool panelWasVisible = false;
    int opened = 0;

    void openSlides() override
    {
        ++opened;
        panelWasVisible = m_panel.visible;
    }

  private:
    const tests::FakeSlidePanel& m_panel;
};

TEST(DeckShortcut, BringsTheSlidePanelUpBeforeItAsksForADeck)
{
    tests::FakeSlidePanel panel;
    DeckOpeningThatLooks deck(panel);
    DeckShortcut({.slide_img_back = panel, .deck = deck}).Image1_Click();
    EXPECT_EQ(deck.opened, 1);
    EXPECT_TRUE(deck.panelWasVisible);
}

} // namespace
} // namespace quillora::stage
