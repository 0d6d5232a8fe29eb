#include "tests/forms/form_fixture.h"

#include "forms/task_pane_bar.h"

#include <QAbstractButton>
#include <QScrollBar>
#include <QTest>

using namespace quillora;
using session::BarState;
using tests::FormTest;

namespace {

class TaskPaneFormTest : public FormTest {
  protected:
    forms::TaskPaneBar* bar(const char* key)
    {
        return find<forms::TaskPaneBar>(qPrintable(QStringLiteral("ebDemo_") + key));
    }
    /// The whole body of the bar with this panel is on the screen, or nothing of it.
    bool isOpen(const char* panel) { return find(panel)->isVisible(); }
};

} // namespace

TEST_F(TaskPaneFormTest, LiesLeftOfTheStage)
{
    EXPECT_EQ(find("ebDemo")->x(), 0);
    EXPECT_EQ(find("ebDemo")->width(), 259);
    EXPECT_LT(find("ebDemo")->geometry().right(), find("Picture1")->x());
}

TEST_F(TaskPaneFormTest, HasThreeOpenBarsAtFirst)
{
    EXPECT_EQ(form.findChildren<forms::TaskPaneBar*>().size(), 3);
    for (const char* key : {"camera", "powerpoint", "help"})
        EXPECT_EQ(bar(key)->state(), BarState::expanded) << key;
    EXPECT_TRUE(isOpen("Pic_notes"));
    EXPECT_TRUE(isOpen("PicDraw1"));
    EXPECT_FALSE(find("Picture2")->isVisible());
}

TEST_F(TaskPaneFormTest, ShowsThePanelOfABarThatIsOpened)
{
    const std::pair<const char*, const char*> panels[] = {
        {"powerpoint", "Pic_notes"}, {"text", "textBoard_pic"}, {"draw", "Picture2"},
        {"web", "PicWeb"},           {"youtube", "yt_pic"},
    };
    ebDemo.AddExpBar();
    for (const auto& [key, panel] : panels) {
        EXPECT_FALSE(isOpen(panel)) << panel;
        ebDemo.setBarState(key, BarState::expanded);
        EXPECT_TRUE(tests::waitUntil([&, name = panel] { return isOpen(name); })) << panel;
        ebDemo.setBarState(key, BarState::collapsed);
        EXPECT_TRUE(tests::waitUntil([&, name = panel] { return !isOpen(name); })) << panel;
    }
}

TEST_F(TaskPaneFormTest, ShowsThePanelsOfTheWebWholeAndLegible)
{
    ebDemo.AddExpBar();
    // So much that the pane has its scroll bar.
    for (const char* key : {"powerpoint", "draw", "web", "youtube"}) {
        ebDemo.setBarState(key, BarState::expanded);
        tests::settle(500);
    }
    ASSERT_TRUE(form.ebDemo().verticalScrollBar()->isVisible());
    for (const char* panel : {"PicWeb", "yt_pic"}) {
        form.ebDemo().ensureWidgetVisible(find(panel));
        tests::settle(50);
        EXPECT_EQ(find(panel)->visibleRegion(), find(panel)->rect()) << panel;
        EXPECT_GE(find(panel)->width(), 237) << panel;
    }
    EXPECT_GE(find("Label24")->width(), find("Label24")->sizeHint().width());
    for (const char* box : {"http_txt", "yturl_txt"}) {
        EXPECT_EQ(find(box)->palette().color(QPalette::Text), QColor(0x6B, 0x76, 0x85)) << box;
        EXPECT_EQ(find(box)->palette().color(QPalette::Base), QColor(Qt::white)) << box;
    }
    EXPECT_TRUE(find("http_txt")->font().bold());
    EXPECT_EQ(find("http_txt")->font().pixelSize(), 15);
    EXPECT_FALSE(find("yturl_txt")->font().bold());
}

TEST_F(TaskPaneFormTest, KeepsItsPanelsThroughEveryRebuild)
{
    QWidget* notes = find("Pic_notes");
    for (int i = 0; i < 5; ++i) {
        ebDemo.AddExpBar();
        ebDemo.AddExpBarLess();
    }
    EXPECT_EQ(find("Pic_notes"), notes);
    EXPECT_TRUE(tests::waitUntil([&] { return notes->isVisible(); }));
}

TEST_F(TaskPaneFormTest, OpensAndClosesABarByItsHeader)
{
    auto* header = find<QAbstractButton>("ebDemo_help_header");
    EXPECT_TRUE(header->isChecked());
    QTest::mouseClick(header, Qt::LeftButton);
    EXPECT_EQ(bar("help")->state(), BarState::collapsed);
    EXPECT_TRUE(tests::waitUntil([&] { return !find("ebDemo_about")->isVisible(); }));
    header->setFocus(Qt::TabFocusReason);
    QTest::keyClick(header, Qt::Key_Space);
    EXPECT_EQ(bar("help")->state(), BarState::expanded);
    EXPECT_TRUE(tests::waitUntil([&] { return find("ebDemo_about")->isVisible(); }));
}

TEST_F(TaskPaneFormTest, TellsALinkByItsKey)
{
    std::vector<std::string> keys;
    QObject::connect(&form.ebDemo(), &forms::TaskPaneWidget::ItemClick,
                     [&](const std::string& key) { keys.push_back(key); });
    find<QAbstractButton>("ebDemo_about")->click();
    find<QAbstractButton>("ebDemo_onlinesupport")->click();
    EXPECT_EQ(keys, (std::vector<std::string>{"about", "onlinesupport"}));
}

TEST_F(TaskPaneFormTest, ScrollsToTheBarThatWasOpened)
{
    ebDemo.AddExpBar();
    for (const char* key : {"powerpoint", "draw", "text", "web", "youtube"})
        ebDemo.setBarState(key, BarState::expanded);
    tests::settle(500);
    form.ebDemo().verticalScrollBar()->setValue(0);
    ebDemo.setBarState("help", BarState::expanded);
    EXPECT_TRUE(tests::waitUntil([&] { return !find("ebDemo_onlinesupport")->visibleRegion().isEmpty(); }));
}

TEST_F(TaskPaneFormTest, LeavesTheStageAloneWhileABarMoves)
{
    ASSERT_TRUE(shown);
    form.slide_img().LoadFile(save(tests::busyPicture({747, 420}), "slide.png"));
    form.slide_img().ResizeImage(747, 420);
    const QImage before = grabStage();
    ebDemo.setBarState("powerpoint", BarState::collapsed);
    for (int i = 0; i < 20; ++i) {
        tests::settle(10);
        EXPECT_EQ(grabStage(), before);
    }
}
