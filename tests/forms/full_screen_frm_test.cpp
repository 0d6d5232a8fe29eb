#include "forms/full_screen_frm.h"

#include "tests/forms/dialog_fixture.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using namespace quillora;
using forms::FullScreen_frm;

namespace {

class FullScreenForm : public tests::DialogTest<FullScreen_frm> {
  protected:
    FullScreenForm() { showDialog(); }
};

} // namespace

TEST_F(FullScreenForm, HasItsCaptions)
{
    EXPECT_EQ(control<QRadioButton>("full_opt")->text(), "Fullscreen");
    EXPECT_EQ(control<QRadioButton>("mouse_opt")->text(), "Around the mouse");
    EXPECT_EQ(control<QLabel>("Label3")->text(), "To stop screen recording and return back click");
    EXPECT_EQ(control<QPushButton>("Command1")->text(), "Start");
    EXPECT_EQ(control<QPushButton>("Command2")->text(), "Cancel");
    for (const char* name : {"Picture1", "Label3", "full_opt", "mouse_opt", "Command1", "Command2"})
        EXPECT_TRUE(control(name)->isVisible()) << name;
}

TEST_F(FullScreenForm, BeginsWithTheWholeScreenOfTwoThatExcludeEachOther)
{
    EXPECT_TRUE(control<QRadioButton>("full_opt")->isChecked());
    EXPECT_FALSE(dialog.mouse_opt());
    click("mouse_opt");
    EXPECT_TRUE(dialog.mouse_opt());
    EXPECT_FALSE(control<QRadioButton>("full_opt")->isChecked());
}

TEST_F(FullScreenForm, StartsByReturnAndCancelsByEscape)
{
    ASSERT_TRUE(dialogShown);
    QSignalSpy start(&dialog, &FullScreen_frm::Command1_Click);
    QSignalSpy cancel(&dialog, &FullScreen_frm::Command2_Click);
    EXPECT_TRUE(control<QPushButton>("Command1")->isDefault());
    QTest::keyClick(control("full_opt"), Qt::Key_Return);
    EXPECT_EQ(start.count(), 1);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(cancel.count(), 1);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(FullScreenForm, WritesItsHintInRed)
{
    const QImage hint = control<QLabel>("Label3")->grab().toImage();
    QColor darkest = Qt::white;
    for (int y = 0; y < hint.height(); ++y)
        for (int x = 0; x < hint.width(); ++x)
            if (const QColor pixel = hint.pixelColor(x, y); pixel.lightness() < darkest.lightness())
                darkest = pixel;
    EXPECT_GT(darkest.red(), 150);
    EXPECT_LT(darkest.green(), 90);
    EXPECT_LT(darkest.blue(), 90);
}
