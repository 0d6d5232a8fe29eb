#include "tests/forms/drawing_form_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QSignalSpy>

#include <cmath>

using namespace quillora;
using drawing::Tool;
using tests::settle;
using tests::waitUntil;

namespace {

class DrawingBoardTest : public tests::DrawingFormTest {};

/// What a widget was asked to paint.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) : m_widget(widget) { widget.installEventFilter(this); }
    ~PaintWatch() override { m_widget.removeEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted |= static_cast<QPaintEvent*>(event)->region().boundingRect();
        return false;
    }

    QRect painted;

  private:
    QWidget& m_widget;
};

} // namespace

TEST_F(DrawingBoardTest, ShowsAStrokeOfTheRealPointerPixelForPixel)
{
    ASSERT_TRUE(shown);
    drag({{100, 100}, {140, 130}, {200, 90}, {260, 200}});
    EXPECT_TRUE(isInk(140, 130));
    EXPECT_TRUE(isInk(200, 90));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, TakesEveryPointOfAFastStroke)
{
    ASSERT_TRUE(shown);
    QSignalSpy releases(&picPaint, &forms::PointerArea::MouseUp);
    press(onScreen({370, 60}));
    std::vector<QPoint> places;
    for (int i = 0; i <= 720; ++i) {
        const double turn = i * 3.14159265358979 / 180;
        const double radius = 150 - i / 8.0;
        places.emplace_back(370 + int(std::lround(radius * std::sin(turn))),
                            210 - int(std::lround(radius * std::cos(turn))));
    }
    for (const QPoint place : places)
        hand.move(onScreen(place));
    hand.release();
    hand.done();
    ASSERT_TRUE(waitUntil([&] { return releases.count() == 1; }));
    for (const QPoint place : places)
        EXPECT_TRUE(isInk(place.x(), place.y())) << place.x() << ' ' << place.y();
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, HasAMoveOnTheScreenWithinItsEvent)
{
    ASSERT_TRUE(shown);
    const QPointF from(50, 60);
    const QPointF to(400, 300);
    for (const Tool tool : {Tool::pencil, Tool::line, Tool::ellipse, Tool::roundedRectangle, Tool::curve}) {
        choose(tool);
        QMouseEvent press(QEvent::MouseButtonPress, from, picPaint.mapToGlobal(from), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, to, picPaint.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&picPaint, &press);
        QApplication::sendEvent(&picPaint, &move);
        // The event loop does not turn here.
        QDeadlineTimer deadline(5000);
        QImage expected = drawn();
        const auto withoutHandles = [](QImage picture) {
            for (const QPoint handle :
                 {QPoint(350, 240), QPoint(450, 240), QPoint(350, 340), QPoint(450, 340)})
                for (int y = 0; y < 20; ++y)
                    for (int x = -1; x < 6; ++x)
                        picture.setPixel(handle.x() + x, handle.y() + y, 0);
            return picture;
        };
        expected = withoutHandles(expected);
        while (withoutHandles(seen()) != expected && !deadline.hasExpired())
            QThread::msleep(5);
        EXPECT_EQ(withoutHandles(seen()), expected) << drawing::toolId(tool);
        parts.engine().picPaint_DblClick();
        QMouseEvent release(QEvent::MouseButtonRelease, to, picPaint.mapToGlobal(to), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&picPaint, &release);
    }
}

TEST_F(DrawingBoardTest, RepaintsNoMoreThanAMoveChanged)
{
    ASSERT_TRUE(shown);
    choose(Tool::line);
    QTest::mousePress(&picPaint, Qt::LeftButton, {}, {100, 100});
    QTest::mouseMove(&picPaint, {160, 130});
    settle();
    PaintWatch watch(picPaint);
    QTest::mouseMove(&picPaint, {170, 120});
    settle();
    EXPECT_FALSE(watch.painted.isEmpty());
    const QRect both = QRect(QPoint(100, 100), QPoint(170, 130)).adjusted(-2, -2, 2, 2);
    EXPECT_TRUE(both.contains(watch.painted));
    QTest::mouseRelease(&picPaint, Qt::LeftButton, {}, {170, 120});
}

TEST_F(DrawingBoardTest, BringsAFilledRegionWithTheNextRepaintAndNotBefore)
{
    ASSERT_TRUE(shown);
    choose(Tool::fill);
    settle();
    PaintWatch watch(picPaint);
    const QPointF place(300, 200);
    QMouseEvent press(QEvent::MouseButtonPress, place, picPaint.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&picPaint, &press);
    EXPECT_EQ(pixel(10, 10), drawing::kBlack);
    EXPECT_TRUE(watch.painted.isEmpty());
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
    EXPECT_FALSE(watch.painted.isEmpty());
}

TEST_F(DrawingBoardTest, TellsPlacesAsExactlyAsTheDisplayDoes)
{
    std::vector<drawing::PointerEvent> events;
    const auto record = [&](const drawing::PointerEvent& event) { events.push_back(event); };
    QObject::connect(&picPaint, &forms::PointerArea::MouseDown, record);
    QObject::connect(&picPaint, &forms::PointerArea::MouseMove, record);
    QObject::connect(&picPaint, &forms::PointerArea::MouseUp, record);
    const auto send = [&](QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons held,
                          Qt::KeyboardModifiers keys) {
        QMouseEvent event(type, place, picPaint.mapToGlobal(place), button, held, keys);
        QApplication::sendEvent(&picPaint, &event);
    };
    send(QEvent::MouseButtonPress, {10.625, 20.25}, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    send(QEvent::MouseMove, {11.375, 20.5}, Qt::NoButton, Qt::LeftButton | Qt::RightButton,
         Qt::ControlModifier);
    send(QEvent::MouseButtonRelease, {12.125, 21}, Qt::LeftButton, Qt::NoButton,
         Qt::ShiftModifier | Qt::ControlModifier);
    send(QEvent::MouseButtonPress, {1, 2}, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    ASSERT_EQ(events.size(), 4U);
    const auto expectEvent = [&](std::size_t i, int button, int shift, float x, float y) {
        EXPECT_EQ(events[i].button, button) << i;
        EXPECT_EQ(events[i].shift, shift) << i;
        EXPECT_EQ(events[i].x, x) << i;
        EXPECT_EQ(events[i].y, y) << i;
    };
    expectEvent(0, 1, 1, 10.625F, 20.25F);
    expectEvent(1, 3, 2, 11.375F, 20.5F);
    expectEvent(2, 1, 3, 12.125F, 21.0F);
    expectEvent(3, 2, 0, 1.0F, 2.0F);
}

TEST_F(DrawingBoardTest, ClosesAPolygonWithADoubleClick)
{
    ASSERT_TRUE(shown);
    choose(Tool::polygon);
    drag({{100, 100}, {200, 100}});
    pause();
    drag({{150, 180}});
    EXPECT_TRUE(fields().polygonOpen);
    press(onScreen({150, 180}));
    hand.release();
    hand.done();
    EXPECT_TRUE(waitUntil([&] { return !fields().polygonOpen; }));
    EXPECT_EQ(snapshots(), 1);
    // From the last vertex back to the first.
    EXPECT_TRUE(isInk(125, 140));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, DoesNothingAtTheSecondPressOfADoubleClick)
{
    ASSERT_TRUE(shown);
    int presses = 0;
    int releases = 0;
    QObject::connect(&picPaint, &forms::PointerArea::MouseDown, [&] { ++presses; });
    QObject::connect(&picPaint, &forms::PointerArea::MouseUp, [&] { ++releases; });
    QSignalSpy doubleClicks(&picPaint, &forms::PaintCanvasWidget::DblClick);
    for (int i = 0; i < 2; ++i) {
        press(onScreen({100, 100}));
        hand.release();
    }
    hand.done();
    EXPECT_TRUE(waitUntil([&] { return doubleClicks.count() == 1; }));
    settle();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(releases, 1);
}

TEST_F(DrawingBoardTest, LosesNoStrokeThatBeginsAsADoubleClickWould)
{
    ASSERT_TRUE(shown);
    QSignalSpy doubleClicks(&picPaint, &forms::PaintCanvasWidget::DblClick);
    press(onScreen({100, 100}));
    hand.release();
    press(onScreen({103, 101}));
    for (int y = 102; y <= 140; ++y)
        hand.move(onScreen({103, y}));
    hand.release();
    hand.done();
    settle();
    EXPECT_EQ(doubleClicks.count(), 1);
    EXPECT_TRUE(isInk(100, 100));
    for (int y = 101; y < 140; ++y)
        EXPECT_TRUE(isInk(103, y)) << y;
    // A dot and a stroke, which no line joins.
    EXPECT_FALSE(isInk(101, 103));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, KeepsWhatWasDrawnWhereANarrowerCanvasDoesNotReach)
{
    ASSERT_TRUE(shown);
    drag({{600, 100}, {700, 300}});
    const QImage before = drawn();
    picPaint.resize(560, 420);
    settle();
    EXPECT_EQ(parts.canvas().picPaint.Width, base::Twips{8400});
    EXPECT_TRUE(fields().canvasResized);
    drag({{10, 10}, {50, 50}});
    picPaint.resize(747, 420);
    settle();
    EXPECT_TRUE(isInk(650, 200));
    EXPECT_TRUE(isInk(30, 30));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, SurvivesBeingHidden)
{
    ASSERT_TRUE(shown);
    drag({{100, 100}, {200, 200}});
    picPaint.hide();
    settle();
    picPaint.show();
    EXPECT_TRUE(waitUntil([&] { return isInk(150, 150) && seen() == drawn(); }));
}

TEST_F(DrawingBoardTest, ComesUpWhenAToolIsPressedWhileItIsHidden)
{
    picPaint.hide();
    find<QAbstractButton>("optTools_5")->click();
    EXPECT_FALSE(picPaint.isHidden());
}

TEST_F(DrawingBoardTest, DrawsItsResultsWithEveryRubberBand)
{
    ASSERT_TRUE(shown);
    int left = 40;
    for (const Tool tool :
         {Tool::line, Tool::rectangle, Tool::ellipse, Tool::arrow, Tool::roundedRectangle}) {
        choose(tool);
        drag({{left, 100}, {left + 40, 140}, {left + 80, 200}});
        EXPECT_TRUE(hasInk({left, 95, 86, 110})) << drawing::toolId(tool);
        EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); })) << drawing::toolId(tool);
        left += 120;
        pause();
    }
}

TEST_F(DrawingBoardTest, TakesTheColourUnderThePointerWithEitherButton)
{
    ASSERT_TRUE(shown);
    parts.engine().lblColor_MouseDown(5, drawing::kLeftButton);
    choose(Tool::brush);
    click({300, 200});
    parts.engine().lblColor_MouseDown(0, drawing::kLeftButton);
    choose(Tool::pickColor);
    pause();
    click({300, 200});
    EXPECT_EQ(parts.canvas().lblForeColor, drawing::rgb(255, 0, 0));
    hand.press(tests::X11Hand::Button::right);
    hand.release(tests::X11Hand::Button::right);
    hand.done();
    EXPECT_TRUE(waitUntil([&] { return parts.canvas().lblFillColor == drawing::rgb(255, 0, 0); }));
}
