#include "tests/forms/form_fixture.h"

#include "forms/image_surface_widget.h"
#include "forms/notes_panel.h"
#include "forms/stage_widget.h"

#include <QAbstractButton>
#include <QTest>

using namespace quillora;
using tests::busyPicture;
using tests::FormTest;
using tests::plainPicture;

namespace {

const std::filesystem::path kAssets = QUILLORA_ASSETS;

class StageTest : public FormTest {
  protected:
    void showOnStage(const QImage& picture)
    {
        form.slide_img().LoadFile(save(picture, "slide.png"));
        form.slide_img().ResizeImage(747, 420);
    }
};

} // namespace

TEST_F(StageTest, LiesAtItsPlaceInItsSize)
{
    EXPECT_EQ(find("Picture1")->geometry(), QRect(264, 43, 747, 420));
    EXPECT_EQ(find("slide_img_back")->geometry(), QRect(0, 0, 747, 420));
    EXPECT_EQ(find("slide_img")->geometry(), QRect(0, 0, 747, 420));
}

TEST_F(StageTest, RectangleIsWhereItStandsOnTheScreen)
{
    ASSERT_TRUE(shown);
    const QRect window = probe.geometry(this->window());
    EXPECT_EQ(form.stageRectangle(), (capture::PixelRectangle{window.x() + 264, window.y() + 43, 747, 420}));
    form.move(37, 151);
    tests::settle();
    const QRect moved = probe.geometry(this->window());
    EXPECT_NE(moved, window);
    EXPECT_EQ(form.stageRectangle(), (capture::PixelRectangle{moved.x() + 264, moved.y() + 43, 747, 420}));
}

TEST_F(StageTest, ShowsThePictureAloneOnEveryOneOfItsPixels)
{
    ASSERT_TRUE(shown);
    const QImage picture = busyPicture({747, 420});
    showOnStage(picture);
    EXPECT_TRUE(tests::waitUntil([&] { return grabStage() == picture; }));
}

TEST_F(StageTest, StaysUntouchedByFocusCountdownAndTheHiddenButton)
{
    ASSERT_TRUE(shown);
    const QImage picture = busyPicture({747, 420});
    showOnStage(picture);
    form.setCountdownPicture(kAssets / "5s.gif");
    form.setCountdownVisible(true);
    form.setChangeBackVisible(true);
    find("main_TB_open")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(form.focusWidget(), Qt::Key_Backtab);
    ASSERT_TRUE(find("Picture1")->hasFocus());
    for (int i = 0; i < 5; ++i) {
        tests::settle(100);
        EXPECT_EQ(grabStage(), picture);
    }
}

TEST_F(StageTest, ShowsItsFocusOutsideItsPixels)
{
    ASSERT_TRUE(shown);
    const capture::PixelRectangle stage = form.stageRectangle();
    const QRect leftOfIt(stage.left - 2, stage.top + 100, 2, 20);
    const QImage before = probe.grab(leftOfIt);
    find("main_TB_open")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(form.focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(tests::waitUntil([&] { return probe.grab(leftOfIt) != before; }));
}

TEST_F(StageTest, IsNowhereCoveredByTheOtherPartsOfTheForm)
{
    const QRect stage = find("Picture1")->geometry();
    for (const char* part : {"main_TB", "ebDemo", "StatusBar1", "stage_hint"})
        EXPECT_FALSE(find(part)->geometry().intersects(stage)) << part;
    EXPECT_EQ(find("countDown_trans")->geometry(), QRect(928, 462, 50, 50));
    for (const char* part : {"main_TB", "ebDemo", "StatusBar1", "stage_hint"})
        EXPECT_FALSE(find(part)->geometry().intersects(find("countDown_trans")->geometry())) << part;
}

TEST_F(StageTest, OffersAPlaceToClickWhileItShowsTheStartPictureOnly)
{
    int clicks = 0;
    QObject::connect(&form.Picture1(), &forms::StageWidget::Image1_Click, [&] { ++clicks; });
    form.slide_img().LoadFile(kAssets / "PPT.png");
    ASSERT_TRUE(find("Image1")->isVisible());
    QTest::mouseClick(find("Image1"), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    showOnStage(plainPicture({1280, 720}, Qt::white));
    EXPECT_FALSE(find("Image1")->isVisible());
}

TEST_F(StageTest, StartPictureIsUntouchedByThePlaceToClick)
{
    ASSERT_TRUE(shown);
    form.slide_img().LoadFile(kAssets / "PPT.png");
    form.slide_img().ResizeImage(747, 420);
    const QImage start = QImage(tests::text(kAssets / "PPT.png")).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(start.size(), QSize(747, 420));
    EXPECT_TRUE(tests::waitUntil([&] { return grabStage() == start; }));
}

TEST_F(StageTest, KeepsTheChangeBackgroundButtonUnderTheSlide)
{
    EXPECT_EQ(find("changeback_btn")->geometry(), QRect(576, 376, 145, 33));
    EXPECT_TRUE(find("changeback_btn")->isHidden());
    form.setChangeBackVisible(true);
    EXPECT_FALSE(find("changeback_btn")->isHidden());
    EXPECT_EQ(find("Picture1")->childAt(600, 390), find("slide_img"));
}

TEST_F(StageTest, TellsThePointerOnTheSlide)
{
    struct Event {
        char kind;
        int button;
        int shift;
        float x;
        float y;
        bool operator==(const Event&) const = default;
    };
    std::vector<Event> events;
    const auto record = [&](char kind) {
        return [&, kind](int button, int shift, float x, float y) {
            events.push_back({kind, button, shift, x, y});
        };
    };
    QObject::connect(&form, &forms::Vantry_frm::slide_img_MouseDown, record('d'));
    QObject::connect(&form, &forms::Vantry_frm::slide_img_MouseMove, record('m'));
    QObject::connect(&form, &forms::Vantry_frm::slide_img_MouseUp, record('u'));
    QWidget* slide = find("slide_img");
    QTest::mousePress(slide, Qt::LeftButton, Qt::ShiftModifier, {10, 20});
    QTest::mouseMove(slide, {30, 40});
    QTest::mouseRelease(slide, Qt::LeftButton, Qt::NoModifier, {31, 41});
    QTest::mousePress(slide, Qt::RightButton, Qt::ControlModifier, {5, 6});
    QTest::mouseRelease(slide, Qt::RightButton, Qt::NoModifier, {5, 6});
    ASSERT_GE(events.size(), 5U);
    EXPECT_EQ(events[0], (Event{'d', 1, 1, 10, 20}));
    EXPECT_EQ(events[1].kind, 'm');
    EXPECT_EQ(events[1].button, 1);
    EXPECT_EQ(events[events.size() - 3], (Event{'u', 1, 0, 31, 41}));
    EXPECT_EQ(events[events.size() - 2], (Event{'d', 2, 2, 5, 6}));
    EXPECT_EQ(events.back(), (Event{'u', 2, 0, 5, 6}));
}

TEST_F(StageTest, NextSlideIsSeenWholeInThePreview)
{
    ASSERT_TRUE(shown);
    form.slide_img_N().LoadFile(save(plainPicture({1280, 720}, Qt::darkGreen), "next.png"));
    form.slide_img_N().ResizeImage(746, 420);
    const auto* preview = find<forms::ImageSurfaceWidget>("slide_img_N");
    const QRect area(preview->mapToGlobal(QPoint()), preview->size());
    EXPECT_NEAR(double(area.width()) / area.height(), 1.777, 0.01);
    EXPECT_TRUE(
        tests::waitUntil([&] { return probe.grab(area) == plainPicture(area.size(), Qt::darkGreen); }));
}

TEST_F(StageTest, SlideIsOnTheScreenBeforeWhatFollowsTheChange)
{
    ASSERT_TRUE(shown);
    const QImage picture = busyPicture({747, 420});
    showOnStage(picture);
    // The event loop does not turn here.
    QDeadlineTimer deadline(5000);
    while (grabStage() != picture && !deadline.hasExpired())
        QThread::msleep(5);
    EXPECT_EQ(grabStage(), picture);
}

TEST_F(StageTest, EraseButtonIsCommand10)
{
    int clicks = 0;
    QObject::connect(&form.Pic_notes(), &forms::NotesPanel::Command10_Click, [&] { ++clicks; });
    ASSERT_NE(form.findChild<QWidget*>("Picture28")->findChild<QAbstractButton*>("Command10"), nullptr);
    find<QAbstractButton>("Command10")->click();
    EXPECT_EQ(clicks, 1);
}
