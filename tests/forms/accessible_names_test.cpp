#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QAccessible>

#include <map>

using namespace quillora;
using tests::FormTest;

namespace {

class AccessibleNamesTest : public FormTest {};

void expectNamed(QAccessibleInterface* item, int& count)
{
    ASSERT_NE(item, nullptr);
    ++count;
    EXPECT_FALSE(item->text(QAccessible::Name).isEmpty())
        << "a control without a name: " << (item->object() ? qPrintable(item->object()->objectName()) : "?")
        << " in "
        << (item->parent() && item->parent()->object() ? qPrintable(item->parent()->object()->objectName())
                                                       : "?");
    for (int i = 0; i < item->childCount(); ++i)
        expectNamed(item->child(i), count);
}

} // namespace

TEST_F(AccessibleNamesTest, AreThereForEveryControl)
{
    int count = 0;
    expectNamed(QAccessible::queryAccessibleInterface(&form), count);
    EXPECT_GT(count, 40);
}

TEST_F(AccessibleNamesTest, AreWhatAPersonWouldSay)
{
    const std::map<const char*, const char*> names = {
        {"main_TB_record", "Record"},
        {"main_TB_stop", "Stop"},
        {"main_TB_preview", "Review"},
        {"navigation_TB_first", "First slide"},
        {"navigation_TB_pre", "Previous slide"},
        {"navigation_TB_next", "Next slide"},
        {"navigation_TB_last", "Last slide"},
        {"Command10", "Erase pen lines"},
        {"Picture1", "Stage"},
        {"slide_img", "Slide"},
        {"slide_img_N", "Next slide preview"},
        {"countDown_trans", "Countdown"},
    };
    for (const auto& [control, name] : names) {
        ASSERT_NE(find(control), nullptr) << control;
        EXPECT_EQ(find(control)->accessibleName(), name);
    }
}

TEST_F(AccessibleNamesTest, OfAStatusPanelIsTheTextInIt)
{
    form.setStatusPanel(1, "Recording ...");
    EXPECT_EQ(find("StatusBar1_1")->accessibleName(), "Recording ...");
    EXPECT_EQ(find("StatusBar1_1")->accessibleDescription(), "Session");
    form.setStatusPanel(1, "");
    EXPECT_EQ(find("StatusBar1_1")->accessibleName(), "Session");
}

TEST_F(AccessibleNamesTest, GoWithAControlNameOnEveryControlThatCanBeUsed)
{
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->objectName().isEmpty()) << qPrintable(button->accessibleName());
}
