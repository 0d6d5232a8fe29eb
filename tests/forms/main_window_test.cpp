#include "tests/forms/form_fixture.h"

#include "tests/support/file_contents.h"

#include <QApplication>
#include <QCloseEvent>
#include <QImageReader>
#include <QLabel>
#include <QMovie>
#include <QScreen>
#include <QTimer>

#include <stdexcept>

using namespace quillora;
using tests::FormTest;

namespace {

const std::filesystem::path kAssets = QUILLORA_ASSETS;

class MainWindowTest : public FormTest {};

} // namespace

TEST_F(MainWindowTest, ShowsItsCaption)
{
    form.setCaption("Quillora Recorder (Version 3.13.0)");
    EXPECT_EQ(form.windowTitle(), "Quillora Recorder (Version 3.13.0)");
}

TEST_F(MainWindowTest, IsCentredWithItsFrame)
{
    ASSERT_TRUE(shown);
    form.move(0, 0);
    tests::settle();
    form.center_form();
    tests::settle();
    const QRect screen = form.screen()->geometry();
    EXPECT_NEAR(form.frameGeometry().center().x(), screen.center().x(), 1);
    EXPECT_NEAR(form.frameGeometry().center().y(), screen.center().y(), 1);
}

TEST_F(MainWindowTest, DoesNotChangeItsSize)
{
    EXPECT_EQ(form.minimumSize(), form.maximumSize());
    EXPECT_LE(form.frameGeometry().width(), 1024);
}

TEST_F(MainWindowTest, HasTheMicrophoneBesideTheStagesLowerCorner)
{
    EXPECT_EQ(find("Image3")->geometry(), QRect(976, 472, 32, 32));
}

TEST_F(MainWindowTest, HasALabelOfALevelThatItDoesNotShow)
{
    const auto* label = find<QLabel>("lblVolPer");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "100%");
    EXPECT_EQ(label->geometry(), QRect(776, 544, 37, 19));
    EXPECT_FALSE(label->isVisible());
}

TEST_F(MainWindowTest, TellsOnceThatItIsClosedAndClosesThen)
{
    int unloads = 0;
    QObject::connect(&form, &forms::Vantry_frm::Form_Unload, [&] {
        ++unloads;
        EXPECT_TRUE(form.isVisible());
    });
    EXPECT_TRUE(form.close());
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(form.isVisible());
    form.close();
    EXPECT_EQ(unloads, 1);
}

TEST_F(MainWindowTest, IsNotClosedAgainWhileClosingWaitsForThePresenter)
{
    int unloads = 0;
    QObject::connect(&form, &forms::Vantry_frm::Form_Unload, [&] {
        ++unloads;
        QEventLoop dialog;
        QTimer::singleShot(50, &form, [&] {
            QCloseEvent again;
            QApplication::sendEvent(&form, &again);
            EXPECT_FALSE(again.isAccepted());
            EXPECT_TRUE(form.isVisible());
            dialog.quit();
        });
        dialog.exec();
    });
    form.close();
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MainWindowTest, PlaysTheCountdown)
{
    auto* countdown = find<QLabel>("countDown_trans");
    EXPECT_TRUE(countdown->isHidden());
    form.setCountdownVisible(true);
    for (const char* name : {"5s.gif", "4s.gif", "3s.gif", "2s.gif", "1s.gif", "records.gif"}) {
        form.setCountdownPicture(kAssets / name);
        ASSERT_NE(countdown->movie(), nullptr) << name;
        EXPECT_EQ(countdown->movie()->currentPixmap().size(), QSize(50, 50)) << name;
        EXPECT_GT(countdown->movie()->frameCount(), 5) << name;
        EXPECT_EQ(countdown->movie()->state(), QMovie::Running) << name;
    }
    EXPECT_EQ(countdown->movie()->loopCount(), -1) << "the sign of a recording goes on";
    form.setCountdownVisible(false);
    EXPECT_EQ(countdown->movie()->state(), QMovie::Paused);
    form.setCountdownVisible(true);
    EXPECT_EQ(countdown->movie()->state(), QMovie::Running);
}

TEST_F(MainWindowTest, CountdownPictureLastsASecond)
{
    QImageReader reader(tests::text(kAssets / "5s.gif"));
    int milliseconds = 0;
    while (!reader.read().isNull())
        milliseconds += reader.nextImageDelay();
    EXPECT_EQ(milliseconds, 1000);
}

TEST_F(MainWindowTest, LeavesTheCountdownEmptyWhenItsPictureIsMissing)
{
    form.setCountdownVisible(true);
    form.setCountdownPicture(kAssets / "5s.gif");
    form.setCountdownPicture(folder.path() / "missing.gif");
    auto* countdown = find<QLabel>("countDown_trans");
    EXPECT_TRUE(countdown->isVisible());
    EXPECT_EQ(countdown->movie(), nullptr);
}

TEST_F(MainWindowTest, TakesItsPointerFromACursorFile)
{
    form.setMousePointer(kAssets / "WAIT02.CUR");
    EXPECT_EQ(form.cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(form.cursor().hotSpot(), QPoint(16, 16));
    EXPECT_EQ(form.cursor().pixmap().size(), QSize(32, 32));
    EXPECT_EQ(find("Picture1")->cursor().shape(), Qt::BitmapCursor);
    form.setMousePointer({});
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MainWindowTest, GivesTheStageAPointerOfItsOwn)
{
    form.setStagePointer(kAssets / "WAIT02.CUR");
    EXPECT_EQ(find("Picture1")->cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    form.setStagePointer({});
    EXPECT_EQ(find("Picture1")->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MainWindowTest, KeepsItsPointerWhenTheFileIsNoCursor)
{
    form.setMousePointer(kAssets / "WAIT02.CUR");
    const std::string good = tests::readFile(kAssets / "WAIT02.CUR");
    tests::writeFile(folder.path() / "empty.cur", "");
    tests::writeFile(folder.path() / "text.cur", std::string(100, 'x'));
    tests::writeFile(folder.path() / "half.cur", good.substr(0, 40));
    for (const char* name : {"empty.cur", "text.cur", "half.cur", "missing.cur"})
        EXPECT_THROW(form.setMousePointer(folder.path() / name), std::runtime_error) << name;
    EXPECT_THROW(form.setMousePointer(kAssets / "PPT.png"), std::runtime_error);
    EXPECT_EQ(form.cursor().hotSpot(), QPoint(16, 16));
}

TEST_F(MainWindowTest, HandlesTheEventsThatWait)
{
    bool handled = false;
    QMetaObject::invokeMethod(
        &form, [&] { handled = true; }, Qt::QueuedConnection);
    EXPECT_FALSE(handled);
    form.processPendingEvents();
    EXPECT_TRUE(handled);
}
