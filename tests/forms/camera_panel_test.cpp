#include "forms/camera_panel.h"

#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSlider>
#include <QTest>

using namespace quillora;

namespace {

/// The panel in the window, with what it says written down.
class CameraPanelTest : public tests::FormTest {
  protected:
    CameraPanelTest()
    {
        using forms::CameraPanel;
        const auto record = [&](auto signal, const std::string& word) {
            QObject::connect(&panel, signal, [this, word] { said.push_back(word); });
        };
        record(&CameraPanel::Option5_Click, "off");
        record(&CameraPanel::Option6_Click, "on");
        record(&CameraPanel::Combo1_Click, "device");
        record(&CameraPanel::Label12_Click, "Label12");
        record(&CameraPanel::Label13_Click, "Label13");
        record(&CameraPanel::Label19_Click, "Label19");
        record(&CameraPanel::loadpic_lb_Click, "loadpic_lb");
        record(&CameraPanel::Label14_Click, "settings");
        QObject::connect(&panel, &CameraPanel::Slider1_Change,
                         [this](int i) { said.push_back("slider " + std::to_string(i)); });
        QObject::connect(&panel, &CameraPanel::Check1_Click,
                         [this](int i) { said.push_back("check " + std::to_string(i)); });
    }

    void fill()
    {
        panel.addToCombo1("Cam 1: Lecture Camera");
        panel.addToCombo1("Cam 2: Document Camera");
        panel.setCombo1ListIndex(0);
        for (int i = 0; i < 3; ++i) {
            panel.setSliderEnabled(i, true);
            panel.setSliderMinimum(i, 0);
            panel.setSliderMaximum(i, 100);
            panel.setSliderValue(i, 50);
        }
        panel.setLabel14Visible(true);
    }

    void focusOn(const char* name)
    {
        find(name)->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(tests::waitUntil([&] { return find(name)->hasFocus(); }));
    }

    forms::CameraPanel& panel = form.PicDraw1();
    std::vector<std::string> said;
};

using Words = std::vector<std::string>;

} // namespace

TEST_F(CameraPanelTest, ComesUpSwitchedOffWithNothingToChoose)
{
    EXPECT_TRUE(find<QAbstractButton>("Option5")->isChecked());
    EXPECT_FALSE(find<QAbstractButton>("Option6")->isChecked());
    EXPECT_EQ(find<QAbstractButton>("Option5")->text(), "Switch-off");
    EXPECT_EQ(find<QAbstractButton>("Option6")->text(), "Switch-on");
    EXPECT_EQ(find<QComboBox>("Combo1")->count(), 0);
    EXPECT_EQ(panel.Combo1ListIndex(), -1);
    EXPECT_TRUE(find("Label14")->isHidden());
    EXPECT_THROW(panel.setCombo1ListIndex(0), std::out_of_range);
}

TEST_F(CameraPanelTest, SaysNothingOfWhatIsWrittenIntoIt)
{
    fill();
    panel.setChecked(1, true);
    panel.setChecked(1, false);
    panel.setSliderMaximum(0, 10);
    panel.clearCombo1();
    EXPECT_EQ(said, Words{});
    EXPECT_EQ(panel.sliderValue(0), 10);
    EXPECT_EQ(panel.sliderValue(1), 50);
}

TEST_F(CameraPanelTest, SwitchSaysOnceWhatItIsTurnedTo)
{
    QTest::mouseClick(find("Option6"), Qt::LeftButton, {}, {8, find("Option6")->height() / 2});
    QTest::mouseClick(find("Option6"), Qt::LeftButton, {}, {8, find("Option6")->height() / 2});
    QTest::mouseClick(find("Option5"), Qt::LeftButton, {}, {8, find("Option5")->height() / 2});
    EXPECT_EQ(said, (Words{"on", "off"}));
}

TEST_F(CameraPanelTest, ADeviceIsChosenWithTheKeyboardToo)
{
    fill();
    focusOn("Combo1");
    type("Down");
    EXPECT_TRUE(tests::waitUntil([&] { return said == Words{"device"}; }));
    EXPECT_EQ(panel.Combo1ListIndex(), 1);
}

TEST_F(CameraPanelTest, SlidersAndBoxesSayWhichTheyAre)
{
    fill();
    find<QSlider>("Slider1_2")->setValue(60);
    find<QAbstractButton>("Check1_1")->click();
    EXPECT_EQ(said, (Words{"slider 2", "check 1"}));
    EXPECT_EQ(panel.sliderValue(2), 60);
    EXPECT_TRUE(panel.isChecked(1));
}

TEST_F(CameraPanelTest, ArrowKeysMoveTheSliderThatHasTheFocusRatherThanTheSlides)
{
    fill();
    Words moves;
    QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick,
                     [&](const std::string& key) { moves.push_back(key); });
    focusOn("Slider1_0");
    type("Right");
    EXPECT_TRUE(tests::waitUntil([&] { return panel.sliderValue(0) == 51; }));
    EXPECT_EQ(moves, Words{});
    type("Page_Down");
    EXPECT_TRUE(tests::waitUntil([&] { return moves == Words{"next"}; }));
}

TEST_F(CameraPanelTest, LeavesThePresentersKeysWithTheStageAfterAClick)
{
    fill();
    find("Picture1")->setFocus();
    QTest::mouseClick(find("Check1_0"), Qt::LeftButton);
    EXPECT_TRUE(find("Picture1")->hasFocus());
}

TEST_F(CameraPanelTest, CaptionOfContrastIsACommandAndTheOthersAreOutOfThePointersReach)
{
    QTest::mouseClick(find("Label12"), Qt::LeftButton);
    EXPECT_EQ(said, Words{"Label12"});
    QTest::mouseClick(find("Label11"), Qt::LeftButton);
    EXPECT_EQ(said, Words{"Label12"});
    QWidget* hue = find("Label13");
    EXPECT_NE(form.childAt(hue->mapTo(&form, hue->rect().center())), hue);
}

TEST_F(CameraPanelTest, OlderCommandsForTheBackdropStandBelowItsEdge)
{
    for (const char* name : {"Label19", "loadpic_lb"}) {
        EXPECT_GT(find(name)->y(), panel.height());
        QTest::mouseClick(find(name), Qt::LeftButton);
    }
    EXPECT_EQ(said, (Words{"Label19", "loadpic_lb"}));
}

TEST_F(CameraPanelTest, SettingsAreAButtonThatTheKeyboardReaches)
{
    fill();
    EXPECT_FALSE(find("Label14")->isHidden());
    focusOn("Label14");
    type("space");
    EXPECT_TRUE(tests::waitUntil([&] { return said == Words{"settings"}; }));
}

TEST_F(CameraPanelTest, KeepsItsHeightWhenSettingsAppear)
{
    const int before = panel.sizeHint().height();
    panel.setLabel14Visible(true);
    EXPECT_EQ(panel.sizeHint().height(), before);
}
