#include "forms/frm_about.h"
#include "tests/forms/dialog_fixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

using namespace quillora;
using tests::waitUntil;

namespace {

class FrmAboutTest : public tests::DialogTest<forms::frmAbout> {
  protected:
    FrmAboutTest() : DialogTest("Version 3.13.0")
    {
        QObject::connect(&dialog, &forms::frmAbout::Form_Unload, [this] { ++unloads; });
        QObject::connect(&dialog, &forms::frmAbout::Label1_Click, [this] { ++makerClicks; });
    }

    /// Shows the dialog, and does @p then once it is there; returns when the dialog has gone.
    void show(const std::function<void()>& then)
    {
        QTimer::singleShot(0, &dialog, [this, then] {
            EXPECT_TRUE(waitUntil([&] { return dialog.isVisible(); }));
            then();
        });
        dialog.showModal();
    }

    int unloads = 0;
    int makerClicks = 0;
};

} // namespace

TEST_F(FrmAboutTest, TellsWhatTheProgramIs)
{
    EXPECT_EQ(dialog.windowTitle(), "About Quillora Recorder ");
    EXPECT_EQ(control<QLabel>("version_lb")->text(), "Version 3.13.0");
    EXPECT_LE(control<QLabel>("version_lb")->sizeHint().width(), control<QLabel>("version_lb")->width());
    EXPECT_TRUE(control<QPlainTextEdit>("Text1")->toPlainText().contains("Quillora Recorder"));
    EXPECT_TRUE(control<QPlainTextEdit>("Text1")->isReadOnly());
    EXPECT_EQ(control("Picture1")->geometry(), QRect(8, 8, 250, 43));
    EXPECT_EQ(control("Text1")->geometry(), QRect(8, 56, 473, 185));
    EXPECT_EQ(control("Label1")->geometry(), QRect(40, 259, 215, 16));
    EXPECT_EQ(control("version_lb")->geometry(), QRect(261, 259, 85, 16));
    EXPECT_EQ(control("cmdOK")->geometry(), QRect(392, 256, 84, 23));
    EXPECT_FALSE(dialog.rect().intersects(control("TransImg1")->geometry()));
    EXPECT_EQ(dialog.palette().color(QPalette::Window), QColor(Qt::white));
}

TEST_F(FrmAboutTest, IsWrittenInItsFontsAndColours)
{
    const auto* text = control<QPlainTextEdit>("Text1");
    EXPECT_EQ(text->font().families().front(), "MS Sans Serif");
    for (const auto* name : {"Label1", "version_lb"})
        EXPECT_EQ(control(name)->font().families().front(), "Arial") << name;
    // 9.75 points, at 96 dots per inch.
    for (const auto* name : {"Text1", "Label1", "version_lb"})
        EXPECT_EQ(control(name)->font().pixelSize(), 13) << name;
    EXPECT_EQ(control<QLabel>("version_lb")->alignment(), Qt::AlignCenter);

    const auto grey = text->palette().color(QPalette::Text);
    EXPECT_LT(grey.lightness(), 128);
    EXPECT_GT(grey.lightness(), 32);
    EXPECT_LT(grey.saturation(), 80);
    EXPECT_EQ(text->palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(FrmAboutTest, IsModal)
{
    show([&] {
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
        dialog.hide();
    });
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FrmAboutTest, OkHidesItWithoutUnloading)
{
    show([&] { QTest::mouseClick(control<QAbstractButton>("cmdOK"), Qt::LeftButton); });
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmAboutTest, EnterAndEscapeAreOk)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        show([&] { QTest::keyClick(&dialog, key); });
        EXPECT_FALSE(dialog.isVisible());
    }
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmAboutTest, ItsCloseBoxUnloadsIt)
{
    show([&] { dialog.close(); });
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(unloads, 1);
}

TEST_F(FrmAboutTest, CanBeShownAgainAfterEitherEnd)
{
    show([&] { dialog.close(); });
    show([&] { click("cmdOK"); });
    show([&] { dialog.close(); });
    EXPECT_EQ(unloads, 2);
}

TEST_F(FrmAboutTest, TheMakersLineIsAClick)
{
    show([&] {
        QTest::mouseClick(control<QAbstractButton>("Label1"), Qt::LeftButton);
        dialog.hide();
    });
    EXPECT_EQ(makerClicks, 1);
}
