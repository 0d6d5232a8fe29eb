#include "tests/forms/form_fixture.h"

#include <QToolButton>

#include <vector>

using namespace quillora;
using tests::FormTest;

namespace {

struct Row {
    const char* key;
    const char* caption;
    bool shown;
};

constexpr Row kRows[] = {
    {"open", "Open", true},          {"options", "Options", true},  {"sep3", nullptr, true},
    {"record", "Record", true},      {"pause", "Pause", true},      {"resume", "Resume", false},
    {"stop", "Stop", true},          {"preview", "Review", true},   {"sepa1", nullptr, true},
    {"slides", "Slides", true},      {"text", "Write", false},      {"draw", "Draw", false},
    {"web", "Web", false},           {"youtube", "YouTube", false}, {"desktop", "Screen", false},
    {"upload", "Upload ASF", false}, {"more", "More", true},        {"less", "", false},
};

class MainToolbarTest : public FormTest {
  protected:
    QWidget* place(const char* key) { return form.findChild<QWidget*>(QString("main_TB_") + key); }
};

} // namespace

TEST_F(MainToolbarTest, HasTheEighteenPlacesWithTheirCaptionsAndStoredVisibility)
{
    for (const Row& row : kRows) {
        QWidget* widget = place(row.key);
        ASSERT_NE(widget, nullptr) << row.key;
        EXPECT_EQ(!widget->isHidden(), row.shown) << row.key;
        const auto* button = qobject_cast<QToolButton*>(widget);
        ASSERT_EQ(button != nullptr, row.caption != nullptr) << row.key;
        if (button != nullptr) {
            EXPECT_EQ(button->text(), row.caption);
            EXPECT_TRUE(button->isEnabled()) << row.key;
            EXPECT_FALSE(button->icon().isNull()) << row.key;
            EXPECT_FALSE(button->icon().pixmap(20, 20).isNull()) << row.key;
            EXPECT_FALSE(button->toolTip().isEmpty()) << row.key;
        }
    }
}

TEST_F(MainToolbarTest, KeepsTheOrderWhenEverythingIsShown)
{
    for (const Row& row : kRows)
        form.setButtonVisible(row.key, true);
    tests::settle();
    int right = 0;
    for (const Row& row : kRows) {
        EXPECT_GE(place(row.key)->x(), right) << row.key;
        right = place(row.key)->geometry().right();
    }
}

TEST_F(MainToolbarTest, HasRoomForAllMediaInEveryState)
{
    for (const char* key : {"text", "draw", "web", "youtube", "desktop", "less", "resume"})
        form.setButtonVisible(key, true);
    for (const char* key : {"more", "pause"})
        form.setButtonVisible(key, false);
    tests::settle();
    for (const Row& row : kRows) {
        if (place(row.key)->isVisible()) {
            EXPECT_GE(place(row.key)->width(), place(row.key)->sizeHint().width()) << row.key;
            EXPECT_LT(place(row.key)->geometry().right(), form.width()) << row.key;
        }
    }
}

TEST_F(MainToolbarTest, SaysTheKeyOfAClickedButton)
{
    std::vector<std::string> keys;
    QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick,
                     [&](const std::string& key) { keys.push_back(key); });
    std::vector<std::string> expected;
    for (const Row& row : kRows) {
        form.setButtonVisible(row.key, true);
        if (auto* button = qobject_cast<QToolButton*>(place(row.key))) {
            button->click();
            expected.emplace_back(row.key);
        }
    }
    EXPECT_EQ(keys, expected);
}

TEST_F(MainToolbarTest, IsClickedByARealPointerWithoutTakingTheFocusFromTheStage)
{
    ASSERT_TRUE(shown);
    int clicks = 0;
    QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick, [&](const std::string& key) {
        EXPECT_EQ(key, "record");
        ++clicks;
    });
    const QPoint at = place("record")->mapToGlobal(place("record")->rect().center());
    EXPECT_EQ(tests::runToEnd(
                  {"xdotool", "mousemove", std::to_string(at.x()), std::to_string(at.y()), "click", "1"}),
              0);
    EXPECT_TRUE(tests::waitUntil([&] { return clicks == 1; }));
    EXPECT_TRUE(find("Picture1")->hasFocus());
}

TEST_F(MainToolbarTest, SwapsPauseAndResume)
{
    form.setButtonVisible("pause", false);
    form.setButtonVisible("resume", true);
    EXPECT_FALSE(place("pause")->isVisible());
    EXPECT_TRUE(place("resume")->isVisible());
}

TEST_F(MainToolbarTest, IgnoresAKeyThatItHasNot)
{
    form.setButtonVisible("nothing", true);
    form.setButtonVisible("", false);
    for (const Row& row : kRows)
        EXPECT_EQ(!place(row.key)->isHidden(), row.shown) << row.key;
}
