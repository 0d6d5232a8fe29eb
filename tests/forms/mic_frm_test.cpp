#include "forms/mic_frm.h"

#include "tests/forms/dialog_fixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

using namespace quillora;
using forms::mic_frm;

namespace {

using List = audio::MicrophoneControls::List;
using Devices = audio::MicrophoneControls::Devices;

class MicrophoneForm : public tests::DialogTest<mic_frm> {
  protected:
    MicrophoneForm()
    {
        for (const char* name : {"USB Microphone", "Webcam"})
            dialog.addItem(List::cboDev, name);
        showDialog();
    }
};

} // namespace

TEST_F(MicrophoneForm, IsLaidOutAsDesigned)
{
    EXPECT_EQ(dialog.windowTitle(), "Microphone Level");
    EXPECT_EQ(dialog.size(), QSize(306, 151));
    EXPECT_EQ(control("Label1")->geometry(), QRect(8, 16, 51, 16));
    EXPECT_EQ(control("cboDev")->geometry(), QRect(58, 16, 241, 21));
    EXPECT_EQ(control("Label2")->geometry(), QRect(8, 48, 41, 16));
    EXPECT_EQ(control("cboRecLine")->geometry(), QRect(59, 48, 241, 21));
    EXPECT_EQ(control("Label3")->geometry(), QRect(8, 88, 46, 16));
    EXPECT_EQ(control("sldVol")->geometry(), QRect(51, 83, 206, 23));
    EXPECT_EQ(control("lblVolPer")->geometry(), QRect(260, 88, 29, 13));
    EXPECT_EQ(control("Command1")->geometry(), QRect(224, 120, 73, 25));
}

TEST_F(MicrophoneForm, IsWrittenInOneFont)
{
    for (const char* name :
         {"Label1", "cboDev", "Label2", "cboRecLine", "Label3", "sldVol", "lblVolPer", "Command1"}) {
        EXPECT_EQ(control(name)->font().families().first(), "Tahoma") << name;
        EXPECT_EQ(control(name)->font().pixelSize(), 11) << name;
    }
}

TEST_F(MicrophoneForm, CutsNoneOfItsTexts)
{
    for (const char* name : {"Label1", "Label2", "Label3", "lblVolPer"}) {
        const auto* label = control<QLabel>(name);
        EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width()) << name;
        EXPECT_LE(label->fontMetrics().capHeight(), label->height()) << name;
    }
}

TEST_F(MicrophoneForm, BeginsWithTheStoredTextsAndRange)
{
    EXPECT_EQ(control<QLabel>("Label1")->text(), "Device");
    EXPECT_EQ(control<QLabel>("Label2")->text(), "Line");
    EXPECT_EQ(control<QLabel>("Label3")->text(), "Volume");
    EXPECT_EQ(control<QPushButton>("Command1")->text(), "Close");
    EXPECT_EQ(dialog.lblVolPer(), "100%");
    const auto* slider = control<QSlider>("sldVol");
    EXPECT_EQ(slider->minimum(), 0);
    EXPECT_EQ(slider->maximum(), 65535);
    EXPECT_EQ(slider->pageStep(), 2000);
    EXPECT_EQ(slider->singleStep(), 1);
}

TEST_F(MicrophoneForm, FillsItsListsAndChoosesNothingByItself)
{
    QSignalSpy clicks(&dialog, &mic_frm::cboDev_Click);
    EXPECT_EQ(control<QComboBox>("cboDev")->count(), 2);
    EXPECT_EQ(dialog.listIndex(List::cboDev), -1);
    dialog.clear(List::cboDev);
    EXPECT_EQ(control<QComboBox>("cboDev")->count(), 0);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(MicrophoneForm, SettingAnIndexRaisesAClick)
{
    QSignalSpy devices(&dialog, &mic_frm::cboDev_Click);
    QSignalSpy lines(&dialog, &mic_frm::cboRecLine_Click);
    dialog.setListIndex(List::cboDev, 1);
    EXPECT_EQ(dialog.listIndex(List::cboDev), 1);
    dialog.setListIndex(List::cboRecLine, -1);
    EXPECT_EQ(devices.count(), 1);
    EXPECT_EQ(lines.count(), 1);
}

TEST_F(MicrophoneForm, HasNoItemThatIsNotInTheList)
{
    QSignalSpy clicks(&dialog, &mic_frm::cboRecLine_Click);
    EXPECT_THROW(dialog.setListIndex(List::cboRecLine, 0), std::out_of_range);
    EXPECT_THROW(dialog.setListIndex(List::cboDev, 2), std::out_of_range);
    EXPECT_THROW(dialog.setListIndex(List::cboDev, -2), std::out_of_range);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(MicrophoneForm, ChoosingByKeyRaisesAClick)
{
    ASSERT_TRUE(dialogShown);
    dialog.setListIndex(List::cboDev, 0);
    QSignalSpy clicks(&dialog, &mic_frm::cboDev_Click);
    QTest::keyClick(control("cboDev"), Qt::Key_Down);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(dialog.listIndex(List::cboDev), 1);
}

TEST_F(MicrophoneForm, SettingTheVolumeRaisesNothing)
{
    QSignalSpy scrolls(&dialog, &mic_frm::sldVol_Scroll);
    dialog.setSldVol(4711);
    EXPECT_EQ(dialog.sldVol(), 4711);
    EXPECT_EQ(scrolls.count(), 0);
}

TEST_F(MicrophoneForm, KeysMoveTheVolumeBySmallAndLargeSteps)
{
    dialog.setSldVol(30000);
    QSignalSpy scrolls(&dialog, &mic_frm::sldVol_Scroll);
    QTest::keyClick(control("sldVol"), Qt::Key_Right);
    EXPECT_EQ(dialog.sldVol(), 30001);
    QTest::keyClick(control("sldVol"), Qt::Key_PageDown);
    EXPECT_EQ(dialog.sldVol(), 28001);
    EXPECT_EQ(scrolls.count(), 2);
}

TEST_F(MicrophoneForm, LettingTheSliderGoIsAClick)
{
    QSignalSpy clicks(&dialog, &mic_frm::sldVol_Click);
    auto* slider = control<QSlider>("sldVol");
    QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(slider->width() - 6, slider->height() / 2));
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(MicrophoneForm, CloseAndEscapeHideIt)
{
    ASSERT_TRUE(dialogShown);
    click("Command1");
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(control<QComboBox>("cboDev")->count(), 2);
}

TEST_F(MicrophoneForm, SaysInTheListsThatThereIsNoDevice)
{
    dialog.clear(List::cboDev);
    dialog.setDevices(Devices::none);
    EXPECT_EQ(control<QComboBox>("cboDev")->placeholderText(), "No sound input found");
    EXPECT_EQ(control<QComboBox>("cboRecLine")->placeholderText(), "No line");
    for (const char* name : {"cboDev", "cboRecLine", "sldVol"})
        EXPECT_FALSE(control(name)->isEnabled()) << name;
    EXPECT_TRUE(control("Command1")->isEnabled());
    EXPECT_EQ(dialog.sldVol(), 65535);
    dialog.setDevices(Devices::some);
    EXPECT_EQ(control<QComboBox>("cboDev")->placeholderText(), "");
    EXPECT_TRUE(control("sldVol")->isEnabled());
}

TEST_F(MicrophoneForm, IsGoneThroughFromTopToBottomByTab)
{
    ASSERT_TRUE(dialogShown);
    dialog.setListIndex(List::cboDev, 0);
    control("cboDev")->setFocus();
    std::vector<std::string> order;
    for (int i = 0; i < 4; ++i) {
        order.push_back(dialog.focusWidget()->objectName().toStdString());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (std::vector<std::string>{"cboDev", "cboRecLine", "sldVol", "Command1"}));
    EXPECT_EQ(dialog.focusWidget(), control("cboDev"));
}

TEST_F(MicrophoneForm, IsReadOutByTheWordsOfItsLabels)
{
    const auto nameOf = [&](const char* name) {
        return QAccessible::queryAccessibleInterface(control(name))->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf("cboDev"), "Device");
    EXPECT_EQ(nameOf("cboRecLine"), "Line");
    EXPECT_EQ(nameOf("sldVol"), "Volume");
    EXPECT_EQ(nameOf("Command1"), "Close");
    dialog.setLblVolPer("89%");
    EXPECT_EQ(nameOf("lblVolPer"), "89%");
    if (const char* pictures = std::getenv("QUILLORA_PICTURES")) {
        dialog.setListIndex(List::cboDev, 0);
        dialog.grab().save(QString(pictures) + "/microphone.png");
    }
}
