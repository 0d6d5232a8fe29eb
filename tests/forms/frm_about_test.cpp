#include "forms/frm_about.h"
#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

using namespace quillora;
using tests::waitUntil;

namespace {

class FrmAboutTest : public testing::Test {
  protected:
    FrmAboutTest()
    {
        owner.resize(300, 200);
        owner.show();
        QObject::connect(&about, &forms::frmAbout::Form_Unload, [this] { ++unloads; });
        QObject::connect(&about, &forms::frmAbout::Label1_Click, [this] { ++makerClicks; });
    }

    /// Shows the dialog, and does @p then once it is there; returns when the dialog has gone.
    void show(const std::function<void()>& then)
    {
        QTimer::singleShot(0, &about, [this, then] {
            EXPECT_TRUE(waitUntil([&] { return about.isVisible(); }));
            then();
        });
        about.showModal();
    }

    template <typename T>
    T* find(const char* name)
    {
        T* widget = about.findChild<T*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    QWidget owner;
    forms::frmAbout about{&owner, "Version 3.13.0"};
    int unloads = 0;
    int makerClicks = 0;
};

} // namespace

TEST_F(FrmAboutTest, TellsWhatTheProgramIs)
{
    EXPECT_EQ(about.windowTitle(), "About Quillora Recorder ");
    EXPECT_EQ(find<QLabel>("version_lb")->text(), "Version 3.13.0");
    EXPECT_LE(find<QLabel>("version_lb")->sizeHint().width(), find<QLabel>("version_lb")->width());
    EXPECT_TRUE(find<QPlainTextEdit>("Text1")->toPlainText().contains("Quillora Recorder"));
    EXPECT_TRUE(find<QPlainTextEdit>("Text1")->isReadOnly());
    EXPECT_EQ(find<QWidget>("Picture1")->geometry(), QRect(8, 8, 250, 43));
    EXPECT_EQ(find<QWidget>("Text1")->geometry(), QRect(8, 56, 473, 185));
    EXPECT_EQ(find<QWidget>("Label1")->geometry(), QRect(40, 259, 215, 16));
    EXPECT_EQ(find<QWidget>("version_lb")->geometry(), QRect(261, 259, 85, 16));
    EXPECT_EQ(find<QWidget>("cmdOK")->geometry(), QRect(392, 256, 84, 23));
    EXPECT_FALSE(about.rect().intersects(find<QWidget>("TransImg1")->geometry()));
    EXPECT_EQ(about.palette().color(QPalette::Window), QColor(Qt::white));
}

TEST_F(FrmAboutTest, IsWrittenInItsFontsAndColours)
{
    const auto* text = find<QPlainTextEdit>("Text1");
    EXPECT_EQ(text->font().families().front(), "MS Sans Serif");
    for (const auto* name : {"Label1", "version_lb"})
        EXPECT_EQ(find<QWidget>(name)->font().families().front(), "Arial") << name;
    // 9.75 points, at 96 dots per inch.
    for (const auto* name : {"Text1", "Label1", "version_lb"})
        EXPECT_EQ(find<QWidget>(name)->font().pixelSize(), 13) << name;
    EXPECT_EQ(find<QLabel>("version_lb")->alignment(), Qt::AlignCenter);

    const auto grey = text->palette().color(QPalette::Text);
    EXPECT_LT(grey.lightness(), 128);
    EXPECT_GT(grey.lightness(), 32);
    EXPECT_LT(grey.saturation(), 80);
    EXPECT_EQ(text->palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(FrmAboutTest, IsModal)
{
    show([&] {
        EXPECT_EQ(QApplication::activeModalWidget(), &about);
        about.hide();
    });
    EXPECT_FALSE(about.isVisible());
}

TEST_F(FrmAboutTest, OkHidesItWithoutUnloading)
{
    show([&] { QTest::mouseClick(find<QAbstractButton>("cmdOK"), Qt::LeftButton); });
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmAboutTest, EnterAndEscapeAreOk)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        show([&] { QTest::keyClick(&about, key); });
        EXPECT_FALSE(about.isVisible());
    }
    EXPECT_EQ(unloads, 0);
}

TEST_F(FrmAboutTest, ItsCloseBoxUnloadsIt)
{
    show([&] { about.close(); });
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(unloads, 1);
}

TEST_F(FrmAboutTest, CanBeShownAgainAfterEitherEnd)
{
    show([&] { about.close(); });
    show([&] { find<QAbstractButton>("cmdOK")->click(); });
    show([&] { about.close(); });
    EXPECT_EQ(unloads, 2);
}

TEST_F(FrmAboutTest, TheMakersLineIsAClick)
{
    show([&] {
        QTest::mouseClick(find<QAbstractButton>("Label1"), Qt::LeftButton);
        about.hide();
    });
    EXPECT_EQ(makerClicks, 1);
}
