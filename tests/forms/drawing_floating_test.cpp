// What floats over the drawing board: the lifted selection, the text box and the curve's handles.

#include "tests/forms/drawing_form_fixture.h"

#include <QAbstractButton>
#include <QApplication>

using namespace quillora;
using drawing::Tool;
using tests::settle;
using tests::waitUntil;

namespace {

class DrawingFloatingTest : public tests::DrawingFormTest {
  protected:
    /// A red spot that a selection can lift, with the Select Area tool in hand.
    void spotAt(QPoint place)
    {
        parts.engine().lblColor_MouseDown(5, drawing::kLeftButton);
        choose(Tool::brush);
        click(place);
        parts.engine().lblColor_MouseDown(0, drawing::kLeftButton);
        choose(Tool::selectArea);
        pause();
    }
    bool isRed(int x, int y) const { return pixel(x, y) == drawing::rgb(255, 0, 0); }

    const drawing::DrawingTextBox& box() const { return parts.canvas().txtText; }
    void openTextAt(QPoint place)
    {
        choose(Tool::text);
        click(place);
        ASSERT_TRUE(waitUntil([&] { return picPaint.txtText().hasFocus(); }));
    }
};

} // namespace

TEST_F(DrawingFloatingTest, SelectionIsLiftedAndFollowsThePointer)
{
    ASSERT_TRUE(shown);
    spotAt({150, 150});
    drag({{100, 100}, {150, 130}, {200, 190}});
    ASSERT_FALSE(picPaint.picSelect().isHidden());
    EXPECT_EQ(picPaint.picSelect().geometry(), QRect(101, 101, 99, 89));
    pause();
    dragOn(picPaint.picSelect(), {{20, 20}, {50, 30}, {120, 70}});
    EXPECT_EQ(picPaint.picSelect().geometry().size(), QSize(99, 89));
    const QPoint moved = picPaint.picSelect().pos() - QPoint(101, 101);
    EXPECT_EQ(moved, QPoint(100, 50));
    choose(Tool::pencil);
    settle();
    EXPECT_TRUE(picPaint.picSelect().isHidden());
    EXPECT_TRUE(isRed(250, 200));
    EXPECT_FALSE(isRed(150, 150));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingFloatingTest, SelectionIsOnTheScreenWithinTheEventThatMovedIt)
{
    ASSERT_TRUE(shown);
    spotAt({150, 150});
    drag({{100, 100}, {200, 190}});
    auto& selection = picPaint.picSelect();
    const QPoint before = onScreen({150, 150});
    const QRgb red = qRgb(255, 0, 0);
    ASSERT_TRUE(waitUntil([&] { return probe.grab({before, QSize(1, 1)}).pixel(0, 0) == red; }));
    const auto send = [&](QEvent::Type type, QPointF place, Qt::MouseButton button) {
        QMouseEvent event(type, place, selection.mapToGlobal(place), button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&selection, &event);
    };
    send(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(QEvent::MouseMove, {210, 110}, Qt::NoButton);
    // The event loop does not turn here.
    QDeadlineTimer deadline(5000);
    const auto moved = [&] {
        return probe.grab({before + QPoint(200, 100), QSize(1, 1)}).pixel(0, 0) == red &&
               probe.grab({before, QSize(1, 1)}).pixel(0, 0) != red;
    };
    while (!moved() && !deadline.hasExpired())
        QThread::msleep(5);
    EXPECT_TRUE(moved());
    send(QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton);
}

TEST_F(DrawingFloatingTest, SelectionCopiesUnderCtrl)
{
    ASSERT_TRUE(shown);
    spotAt({150, 150});
    drag({{100, 100}, {200, 190}});
    QTest::mousePress(&picPaint.picSelect(), Qt::LeftButton, Qt::ControlModifier, {10, 10});
    QTest::mouseMove(&picPaint.picSelect(), {110, 10});
    QTest::mouseRelease(&picPaint.picSelect(), Qt::LeftButton, Qt::ControlModifier, {10, 10});
    choose(Tool::pencil);
    EXPECT_TRUE(isRed(150, 150));
    EXPECT_TRUE(isRed(250, 150));
}

TEST_F(DrawingFloatingTest, SelectionOfTheWholeCanvasDraggedOffItLosesWhatIsOutside)
{
    ASSERT_TRUE(shown);
    spotAt({700, 400});
    drag({{0, 0}, {400, 200}, {746, 419}});
    ASSERT_FALSE(picPaint.picSelect().isHidden());
    EXPECT_EQ(picPaint.picSelect().geometry(), QRect(1, 1, 745, 418));
    pause();
    dragOn(picPaint.picSelect(), {{10, 10}, {300, 200}, {500, 400}});
    EXPECT_EQ(picPaint.picSelect().pos(), QPoint(491, 391));
    choose(Tool::pencil);
    settle();
    for (int y = 0; y < 420; ++y)
        for (int x = 0; x < 747; ++x)
            ASSERT_FALSE(isRed(x, y)) << x << ' ' << y;
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingFloatingTest, SelectionBeyondAnyScreenIsRefusedAndTheBoardGoesOn)
{
    ASSERT_TRUE(shown);
    choose(Tool::selectArea);
    const auto send = [&](QEvent::Type type, QPointF place, Qt::MouseButtons held) {
        QMouseEvent event(type, place, place, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                          Qt::NoModifier);
        QApplication::sendEvent(&picPaint, &event);
    };
    send(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(QEvent::MouseMove, {2e9, 2e9}, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, {2e9, 2e9}, Qt::NoButton);
    EXPECT_TRUE(picPaint.picSelect().isHidden());
    choose(Tool::pencil);
    drag({{100, 100}, {200, 100}});
    EXPECT_TRUE(isInk(150, 100));
}

TEST_F(DrawingFloatingTest, TextIsTypedIntoTheBoxAndPrintedByEnter)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    EXPECT_EQ(picPaint.txtText().pos(), QPoint(200, 150));
    EXPECT_EQ(picPaint.txtText().width(), 135);
    type("Hello");
    EXPECT_EQ(box().Text, "Hello");
    EXPECT_FALSE(hasInk({195, 145, 150, 40}));
    key("Return");
    EXPECT_TRUE(waitUntil([&] { return picPaint.txtText().isHidden(); }));
    EXPECT_TRUE(hasInk({200, 150, 60, 24}));
    EXPECT_EQ(snapshots(), 1);
    EXPECT_TRUE(picPaint.hasFocus());
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingFloatingTest, TextIsPrintedWhereItWasTyped)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("Hill");
    key("End");
    const auto inkBox = [&] {
        const QImage picture = seen();
        const QRgb paper = picture.pixel(5, 5);
        QRect box;
        // Left of the caret.
        for (int y = 140; y < 190; ++y)
            for (int x = 190; x < 228; ++x)
                if (qGray(picture.pixel(x, y)) < qGray(paper) / 2)
                    box |= QRect(x, y, 1, 1);
        return box;
    };
    ASSERT_TRUE(waitUntil([&] { return inkBox().width() > 20; }));
    const QRect typed = inkBox();
    key("Return");
    ASSERT_TRUE(waitUntil([&] { return picPaint.txtText().isHidden() && seen() == drawn(); }));
    const QRect printed = inkBox();
    EXPECT_NEAR(typed.left(), printed.left(), 1);
    EXPECT_NEAR(typed.top(), printed.top(), 1);
    EXPECT_NEAR(typed.bottom(), printed.bottom(), 1);
}

TEST_F(DrawingFloatingTest, TextIsLostWithEsc)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("gone");
    key("Escape");
    EXPECT_TRUE(picPaint.txtText().isHidden());
    EXPECT_TRUE(picPaint.hasFocus());
    EXPECT_FALSE(hasInk({0, 0, 747, 420}));
    EXPECT_EQ(snapshots(), 0);
}

TEST_F(DrawingFloatingTest, TextBoxMovesWithItsWordsAtAPressElsewhere)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("word");
    pause();
    click({400, 250});
    EXPECT_FALSE(picPaint.txtText().isHidden());
    EXPECT_EQ(picPaint.txtText().pos(), QPoint(400, 250));
    EXPECT_EQ(picPaint.txtText().text(), "word");
    EXPECT_TRUE(picPaint.txtText().hasFocus());
    EXPECT_EQ(box().Tag, "");
    EXPECT_FALSE(hasInk({0, 0, 747, 420}));
    key("Return");
    EXPECT_TRUE(hasInk({400, 250, 60, 24}));
}

TEST_F(DrawingFloatingTest, TextIsPrintedByAPressWithAnotherTool)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("word");
    find<QAbstractButton>("optTools_5")->click();
    settle();
    EXPECT_TRUE(picPaint.txtText().isHidden());
    EXPECT_TRUE(hasInk({200, 150, 60, 24}));
    EXPECT_EQ(fields().currentTool, 5);
}

TEST_F(DrawingFloatingTest, TextStaysOpenAtAPressOnWhatTakesNoFocus)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("word");
    QTest::mouseClick(find("lblColor_5"), Qt::LeftButton);
    EXPECT_FALSE(picPaint.txtText().isHidden());
    EXPECT_TRUE(picPaint.txtText().hasFocus());
    key("Return");
    // In the colour that was chosen last.
    bool red = false;
    for (int y = 150; y < 175; ++y)
        for (int x = 200; x < 260; ++x)
            red = red || isRed(x, y);
    EXPECT_TRUE(red);
}

TEST_F(DrawingFloatingTest, TextWaitsWhileAnotherWindowIsInFront)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("word");
    QWidget other;
    other.resize(100, 100);
    other.show();
    ASSERT_TRUE(waitUntil([&] {
        other.activateWindow();
        return other.isActiveWindow();
    }));
    settle();
    EXPECT_FALSE(picPaint.txtText().isHidden());
    EXPECT_FALSE(hasInk({0, 0, 747, 420}));
}

TEST_F(DrawingFloatingTest, EmptyTextPrintsNothingAndTakesASnapshot)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    key("Return");
    EXPECT_TRUE(picPaint.txtText().isHidden());
    EXPECT_FALSE(hasInk({0, 0, 747, 420}));
    EXPECT_EQ(snapshots(), 1);
}

TEST_F(DrawingFloatingTest, TextOfTenThousandCharactersIsPrintedAsFarAsTheCanvasGoes)
{
    ASSERT_TRUE(shown);
    openTextAt({20, 150});
    picPaint.txtText().setText(QString(10000, 'W'));
    key("Return");
    EXPECT_TRUE(picPaint.txtText().isHidden());
    EXPECT_TRUE(hasInk({20, 150, 20, 24}));
    EXPECT_TRUE(hasInk({720, 150, 20, 24}));
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingFloatingTest, TextIsPrintedByADoubleClickOnItsBox)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("word");
    QTest::mouseDClick(&picPaint.txtText(), Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(picPaint.txtText().isHidden());
    EXPECT_TRUE(hasInk({200, 150, 60, 24}));
    EXPECT_TRUE(picPaint.hasFocus());
}

TEST_F(DrawingFloatingTest, TextBoxGrowsWithTheHeightOfItsMeasure)
{
    ASSERT_TRUE(shown);
    openTextAt({200, 150});
    type("x");
    EXPECT_EQ(parts.canvas().lblTextSize.Caption, "Ox");
    EXPECT_GT(box().Height, 0);
    EXPECT_GE(picPaint.txtText().height(), box().Height);
}

TEST_F(DrawingFloatingTest, CurveHandlesStandRoundThePointerAndCanBeDragged)
{
    ASSERT_TRUE(shown);
    choose(Tool::curve);
    click({300, 200});
    const std::array<QRect, 4> places{QRect(250, 150, 4, 4), QRect(350, 150, 4, 4), QRect(250, 250, 4, 4),
                                      QRect(350, 250, 4, 4)};
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(picPaint.imgBezier(i).isHidden()) << i;
        EXPECT_EQ(picPaint.imgBezier(i).geometry(), places[std::size_t(i)]) << i;
    }
    EXPECT_TRUE(isInk(352, 252));
    pause();
    dragOn(picPaint.imgBezier(3), {{2, 2}, {40, 30}, {102, 52}});
    EXPECT_EQ(picPaint.imgBezier(3).pos(), QPoint(450, 300));
    EXPECT_TRUE(isInk(452, 302));
    EXPECT_FALSE(isInk(352, 252));
    picPaint.setFocus();
    key("Return");
    EXPECT_TRUE(picPaint.imgBezier(0).isHidden());
    EXPECT_EQ(pixel(452, 302), drawing::kBlack);
    EXPECT_EQ(snapshots(), 1);
    EXPECT_TRUE(waitUntil([&] { return seen() == drawn(); }));
}

TEST_F(DrawingFloatingTest, CurveFollowsThePointerOnTheCanvasWithItsHandles)
{
    ASSERT_TRUE(shown);
    choose(Tool::curve);
    drag({{300, 200}, {320, 210}, {340, 230}});
    EXPECT_EQ(picPaint.imgBezier(0).pos(), QPoint(290, 180));
    EXPECT_EQ(picPaint.imgBezier(3).pos(), QPoint(390, 280));
}
