#include "tests/forms/form_fixture.h"

#include "forms/corner_buttons.h"
#include "forms/mode_strip.h"

#include <QAbstractButton>
#include <QMenu>
#include <QTest>

#include <set>
#include <string>

using namespace quillora;
using forms::CornerButtons;
using forms::ModeStrip;
using tests::FormTest;

namespace {

class ModeStripTest : public FormTest {
  protected:
    template <typename Sender, typename Signal>
    int clicksOn(const char* name, Sender& sender, Signal signal)
    {
        int clicks = 0;
        const auto connection = QObject::connect(&sender, signal, [&] { ++clicks; });
        find<QAbstractButton>(name)->click();
        QObject::disconnect(connection);
        return clicks;
    }
};

} // namespace

TEST_F(ModeStripTest, TellsEachButtonByItsName)
{
    auto& strip = form.Picture_cont1();
    EXPECT_EQ(clicksOn("Picture26", strip, &ModeStrip::Picture26_Click), 1);
    EXPECT_EQ(clicksOn("Picture19", strip, &ModeStrip::Picture19_Click), 1);
    EXPECT_EQ(clicksOn("Picture24", strip, &ModeStrip::Picture24_Click), 1);
    EXPECT_EQ(clicksOn("Picture4", strip, &ModeStrip::Picture4_Click), 1);
    EXPECT_EQ(clicksOn("Picture16", strip, &ModeStrip::Picture16_Click), 1);
    auto& corners = form.campos_pic();
    EXPECT_EQ(clicksOn("Picture17", corners, &CornerButtons::Picture17_Click), 1);
    EXPECT_EQ(clicksOn("Picture21", corners, &CornerButtons::Picture21_Click), 1);
    EXPECT_EQ(clicksOn("Picture22", corners, &CornerButtons::Picture22_Click), 1);
    EXPECT_EQ(clicksOn("Picture23", corners, &CornerButtons::Picture23_Click), 1);
}

TEST_F(ModeStripTest, HasEachCornerWhereItIsOnTheStage)
{
    EXPECT_EQ(find("Picture17")->geometry(), QRect(3, 2, 17, 17));
    EXPECT_EQ(find("Picture21")->geometry(), QRect(37, 2, 17, 17));
    EXPECT_EQ(find("Picture22")->geometry(), QRect(3, 20, 17, 17));
    EXPECT_EQ(find("Picture23")->geometry(), QRect(37, 20, 17, 17));
    for (const char* corner : {"Picture17", "Picture21", "Picture22", "Picture23"})
        EXPECT_EQ(find(corner)->parentWidget(), find("campos_pic")) << corner;
}

TEST_F(ModeStripTest, ShowsTheOlderCornerToNobody)
{
    EXPECT_TRUE(find("Picture16")->visibleRegion().isEmpty());
    EXPECT_FALSE(find("Picture24")->visibleRegion().isEmpty());
    EXPECT_FALSE(find("Picture4")->visibleRegion().isEmpty());
}

TEST_F(ModeStripTest, LiesBesideTheStageAndOverNothing)
{
    const QWidget* const parts[] = {find("Picture1"),       find("Picture_cont1"), find("campos_pic"),
                                    find("campos_caption"), find("Image3"),        find("stage_hint"),
                                    find("ebDemo"),         find("StatusBar1"),    find("countDown_trans"),
                                    find("main_TB"),        find("lblVolPer")};
    // The countdown's place reaches a pixel into the stage and two into the microphone's.
    const std::set<std::string> reached{"Picture1", "Image3"};
    const auto mayMeet = [&](const QWidget* one, const QWidget* other) {
        return one->objectName() == "countDown_trans" && reached.contains(other->objectName().toStdString());
    };
    for (const QWidget* one : parts)
        for (const QWidget* other : parts)
            if (one != other && !mayMeet(one, other) && !mayMeet(other, one)) {
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << qPrintable(one->objectName()) << " and " << qPrintable(other->objectName());
            }
}

TEST_F(ModeStripTest, IsReachedByTabAndPressedBySpace)
{
    int presses = 0;
    QObject::connect(&form.campos_pic(), &CornerButtons::Picture22_Click, [&] { ++presses; });
    for (const char* name : {"Picture26", "Picture19", "Picture24", "Picture22", "Image3"})
        EXPECT_NE(find(name)->focusPolicy() & Qt::TabFocus, 0) << name;
    find("Picture22")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(find("Picture22"), Qt::Key_Space);
    EXPECT_EQ(presses, 1);
}

TEST_F(ModeStripTest, HasAMenuThatNothingOpens)
{
    auto* popup = find<QMenu>("popup");
    ASSERT_EQ(popup->actions().size(), 3);
    EXPECT_EQ(popup->actions()[0]->text(), "Record");
    EXPECT_EQ(popup->actions()[0]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_EQ(popup->actions()[1]->text(), "Pause");
    EXPECT_EQ(popup->actions()[1]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_P));
    EXPECT_EQ(popup->actions()[2]->text(), "Stop");
    EXPECT_EQ(popup->actions()[2]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_S));
    int records = 0;
    QObject::connect(&form, &forms::Vantry_frm::record_Click, [&] { ++records; });
    for (QAction* action : popup->actions())
        action->trigger();
    EXPECT_EQ(records, 1);
    EXPECT_FALSE(popup->isVisible());
}
