#include "tests/forms/form_fixture.h"

#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include <utility>
#include <vector>

using namespace quillora;
using tests::FormTest;

namespace {

class PresenterKeysTest : public FormTest {
  protected:
    PresenterKeysTest()
    {
        QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick,
                         [this](const std::string& key) { moves.push_back(key); });
        QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick,
                         [this](const std::string& key) { commands.push_back(key); });
    }

    std::vector<std::string> moves;
    std::vector<std::string> commands;
};

} // namespace

TEST_F(PresenterKeysTest, ReachTheNavigationFromARealKeyboard)
{
    ASSERT_TRUE(shown);
    const std::vector<std::pair<const char*, const char*>> keys = {
        {"Next", "next"}, {"Right", "next"},    {"space", "next"}, {"Prior", "pre"},
        {"Left", "pre"},  {"BackSpace", "pre"}, {"Home", "first"}, {"End", "last"},
    };
    for (const auto& [key, move] : keys) {
        moves.clear();
        type(key);
        EXPECT_TRUE(tests::waitUntil([&] { return !moves.empty(); })) << key;
        tests::settle(30);
        EXPECT_EQ(moves, std::vector<std::string>{move}) << key;
    }
}

TEST_F(PresenterKeysTest, OpenADeckByCtrlO)
{
    ASSERT_TRUE(shown);
    type("ctrl+o");
    EXPECT_TRUE(tests::waitUntil([&] { return !commands.empty(); }));
    EXPECT_EQ(commands, std::vector<std::string>{"open"});
}

TEST_F(PresenterKeysTest, AreTheSameCommandsAsTheButtons)
{
    for (const char* key : {"first", "pre", "next", "last"})
        form.findChild<QToolButton*>(QString("navigation_TB_") + key)->click();
    EXPECT_EQ(moves, (std::vector<std::string>{"first", "pre", "next", "last"}));
}

TEST_F(PresenterKeysTest, StayWithATextFieldThatHasTheFocus)
{
    ASSERT_TRUE(shown);
    QLineEdit field("one two", &form);
    field.show();
    field.setFocus();
    ASSERT_TRUE(tests::waitUntil([&] { return field.hasFocus(); }));
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Space, Qt::Key_Right,
                              Qt::Key_End, Qt::Key_Backspace, Qt::Key_Left})
        QTest::keyClick(&field, key);
    EXPECT_TRUE(moves.empty());
    EXPECT_EQ(field.text(), " one tw");
}

TEST_F(PresenterKeysTest, LeaveSpaceToAButtonThatWasReachedByTab)
{
    ASSERT_TRUE(shown);
    find("main_TB_stop")->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(find("main_TB_stop")->hasFocus());
    type("space");
    EXPECT_TRUE(tests::waitUntil([&] { return !commands.empty(); }));
    EXPECT_EQ(commands, std::vector<std::string>{"stop"});
    type("Next");
    EXPECT_TRUE(tests::waitUntil([&] { return !moves.empty(); }));
    EXPECT_EQ(moves, std::vector<std::string>{"next"});
}

TEST_F(PresenterKeysTest, GoToTheStageFromTheStart)
{
    ASSERT_TRUE(shown);
    EXPECT_TRUE(find("Picture1")->hasFocus());
}

TEST_F(PresenterKeysTest, WalkByTabFromTheToolbarOverTheSlidesToTheStage)
{
    QStringList order;
    QWidget* at = find("main_TB_open");
    at->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 60; ++i) {
        order << form.focusWidget()->objectName();
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        if (form.focusWidget() == at)
            break;
    }
    EXPECT_EQ(
        order.join(' ').toStdString(),
        "main_TB_open main_TB_options main_TB_record main_TB_pause main_TB_stop main_TB_preview "
        "main_TB_slides main_TB_more ebDemo_camera_header Option5 Check1_0 Check1_1 Check1_2 "
        "ebDemo_powerpoint_header pens_TB_arrow pens_TB_black pens_TB_blue pens_TB_red pens_TB_eraser "
        "navigation_TB_first navigation_TB_pre navigation_TB_next navigation_TB_last Option13 Command10 "
        "Option10 ebDemo_help_header ebDemo_about ebDemo_onlinesupport Picture26 Picture19 Picture24 "
        "Picture17 Picture21 Picture22 Picture23 Image3 Picture1");
}
