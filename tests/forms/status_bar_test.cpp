#include "tests/forms/form_fixture.h"

#include <QLabel>

using namespace quillora;
using tests::FormTest;

namespace {

class StatusBarTest : public FormTest {};

} // namespace

TEST_F(StatusBarTest, StartsWithItsStoredTexts)
{
    const char* stored[] = {"Ready ...", "", "", "", "myWindowMode", "myMediaType"};
    for (int panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.statusPanel(panel), stored[panel - 1]) << panel;
}

TEST_F(StatusBarTest, ShowsAndGivesBackTheTextOfEachPanel)
{
    for (int panel = 1; panel <= 6; ++panel)
        form.setStatusPanel(panel, "text é " + std::to_string(panel));
    for (int panel = 1; panel <= 6; ++panel) {
        const auto* label = form.findChild<QLabel*>(QString("StatusBar1_%1").arg(panel));
        ASSERT_NE(label, nullptr);
        EXPECT_TRUE(label->isVisible());
        EXPECT_EQ(label->text(), QString("text é %1").arg(panel));
        EXPECT_EQ(form.statusPanel(panel), "text é " + std::to_string(panel));
    }
}

TEST_F(StatusBarTest, IgnoresPanelsThatItHasNot)
{
    for (const int panel : {-1, 0, 7, 1000}) {
        form.setStatusPanel(panel, "x");
        EXPECT_EQ(form.statusPanel(panel), "");
    }
    EXPECT_EQ(form.statusPanel(1), "Ready ...");
}

TEST_F(StatusBarTest, HasRoomForItsTextsAndKeepsALongOneInItsPanel)
{
    form.setStatusPanel(1, "Loading slides...");
    form.setStatusPanel(2, "Slide 105/105");
    form.setStatusPanel(3, std::string(500, 'm'));
    form.setStatusPanel(4, "23:59:59");
    form.setStatusPanel(5, "fullcam");
    form.setStatusPanel(6, "youtube");
    tests::settle(50);
    for (const int panel : {1, 2, 4, 5, 6}) {
        const auto* label = form.findChild<QLabel*>(QString("StatusBar1_%1").arg(panel));
        EXPECT_LE(label->sizeHint().width(), label->width()) << panel;
        EXPECT_LE(label->geometry().right(), form.width()) << panel;
    }
}

TEST_F(StatusBarTest, TextIsOnTheScreenBeforeWhatFollowsBlocksTheWindow)
{
    ASSERT_TRUE(shown);
    const auto* label = form.findChild<QLabel*>("StatusBar1_1");
    const QRect area(label->mapToGlobal(QPoint()), label->size());
    const QImage before = probe.grab(area);
    form.setStatusPanel(1, "Loading slides...");
    // The event loop does not turn here.
    QDeadlineTimer deadline(5000);
    while (probe.grab(area) == before && !deadline.hasExpired())
        QThread::msleep(5);
    EXPECT_NE(probe.grab(area), before);
}
