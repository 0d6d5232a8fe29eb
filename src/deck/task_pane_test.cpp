#include "deck/task_pane.h"

#include "tests/support/fake_task_pane_view.h"

#include <gtest/gtest.h>

namespace quillora::deck {
namespace {

using session::BarState;
using Keys = std::vector<std::string>;

class TaskPaneTest : public testing::Test {
  protected:
    Keys keys() const
    {
        Keys found;
        for (const auto& bar : view.bars)
            found.push_back(bar.key);
        return found;
    }

    tests::FakeTaskPaneView view{};
    TaskPane pane{view};
};

TEST_F(TaskPaneTest, InItsShortForm_HasThreeBarsAllExpanded)
{
    pane.AddExpBarLess();
    const std::vector<tests::FakeTaskPaneView::Bar> expected = {
        {"camera", "Camera", true, {{"CAM1", " ", "PicDraw1"}}},
        {"powerpoint", "Slides", true, {{"Notes", " ", "Pic_notes"}}},
        {"help", "About", true, {{"about", "About", ""}, {"onlinesupport", "Online Help", ""}}},
    };
    EXPECT_EQ(view.bars, expected);
    EXPECT_EQ(view.refreshed, 1);
}

TEST_F(TaskPaneTest, InItsLongForm_HasABarForEachMediaAndOpensTheCameraOnly)
{
    pane.AddExpBar();
    const std::vector<tests::FakeTaskPaneView::Bar> expected = {
        {"camera", "Camera", true, {{"CAM1", " ", "PicDraw1"}}},
        {"powerpoint", "Slides", false, {{"Notes", " ", "Pic_notes"}}},
        {"text", "Write", false, {{"Text", " ", "textBoard_pic"}}},
        {"Draw", "Draw", false, {{"DRAWING", " ", "Picture2"}}},
        {"web", "Web", false, {{"WEB", " ", "PicWeb"}}},
        {"youtube", "YouTube", false, {{"YouTube", " ", "yt_pic"}}},
        {"help", "About", false, {{"about", "About", ""}, {"onlinesupport", "Online Help", ""}}},
    };
    EXPECT_EQ(view.bars, expected);
}

TEST_F(TaskPaneTest, OfTheLongFormAndThenTheShortOne_IsAsItWasAtFirst)
{
    pane.AddExpBarLess();
    const auto atFirst = view.bars;
    pane.AddExpBar();
    EXPECT_NE(view.bars, atFirst);
    pane.AddExpBarLess();
    EXPECT_EQ(view.bars, atFirst);
}

TEST_F(TaskPaneTest, BuiltAnew_ForgetsWhatWasOpenedAndClosed)
{
    pane.AddExpBar();
    pane.setBarState("text", BarState::expanded);
    pane.setBarState("camera", BarState::collapsed);
    pane.AddExpBarLess();
    pane.AddExpBar();
    EXPECT_EQ(view.expanded(), Keys{"camera"});
}

TEST_F(TaskPaneTest, FindsABarWhateverTheCaseOfItsKey)
{
    pane.AddExpBar();
    pane.setBarState("draw", BarState::expanded);
    EXPECT_EQ(view.expanded(), (Keys{"camera", "Draw"}));
    pane.setBarState("CAMERA", BarState::collapsed);
    EXPECT_EQ(view.expanded(), Keys{"Draw"});
}

TEST_F(TaskPaneTest, RefusesABarThatItsPresentFormLacks)
{
    EXPECT_THROW(pane.setBarState("camera", BarState::expanded), std::out_of_range);
    pane.AddExpBarLess();
    EXPECT_NO_THROW(pane.setBarState("camera", BarState::expanded));
    for (const auto* missing : {"text", "draw", "web", "youtube", "record", ""})
        EXPECT_THROW(pane.setBarState(missing, BarState::expanded), std::out_of_range) << missing;
}

TEST_F(TaskPaneTest, TellsTheCaptionOfAnItem)
{
    pane.AddExpBar();
    EXPECT_EQ(pane.itemCaption("help", "onlinesupport"), "Online Help");
    EXPECT_EQ(pane.itemCaption("Draw", "DRAWING"), " ");
    EXPECT_THROW(pane.itemCaption("record", "pause"), std::out_of_range);
}

TEST_F(TaskPaneTest, GoesOnWithoutAControlThatIsMissing)
{
    class ViewWithoutControls : public tests::FakeTaskPaneView {
        void addControl(std::string_view, std::string_view, std::string_view control) override
        {
            throw std::out_of_range(std::string(control));
        }
    } empty;
    TaskPane(empty).AddExpBarLess();
    EXPECT_EQ(empty.bars.size(), 3U);
    EXPECT_EQ(empty.bars[2].items.size(), 2U);
}

} // namespace
} // namespace quillora::deck
