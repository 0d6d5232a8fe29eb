#include "tests/forms/drawing_form_fixture.h"

#include "forms/colour_cell.h"
#include "forms/cursor_file.h"
#include "forms/look.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QColorDialog>
#include <QPalette>
#include <QRadioButton>
#include <QTimer>

#include <map>
#include <set>

using namespace quillora;
using drawing::Tool;
using tests::settle;
using tests::waitUntil;

namespace {

const std::filesystem::path kAssets = QUILLORA_ASSETS;

class DrawingPaletteTest : public tests::DrawingFormTest {
  protected:
    QString toolName(int id) { return QStringLiteral("optTools_%1").arg(id); }
    /// Whether any pixel of a control is in view.
    bool isSeen(const QString& name) { return !find(name)->visibleRegion().isEmpty(); }
    drawing::Colour penColour() const { return parts.canvas().lblForeColor; }
    drawing::Colour fillColour() const { return parts.canvas().lblFillColor; }
    /// Does this in the colour dialog as soon as it is there.
    template <typename Act>
    void inColourDialog(Act act)
    {
        auto* timer = new QTimer(&form);
        QObject::connect(timer, &QTimer::timeout, [timer, act] {
            if (auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget())) {
                timer->deleteLater();
                act(*dialog);
            }
        });
        timer->start(20);
    }
};

/// Windows whose inside is of another colour than white.
struct CreamWindows {
    CreamWindows()
    {
        QPalette cream = before;
        cream.setColor(QPalette::Base, QColor(0xFF, 0xFA, 0xDC));
        QApplication::setPalette(cream);
    }
    ~CreamWindows() { QApplication::setPalette(before); }

    const QPalette before = QApplication::palette();
};

class DrawingPaletteOfCreamWindowsTest : CreamWindows, public DrawingPaletteTest {};

} // namespace

TEST_F(DrawingPaletteTest, HasEveryToolAtItsPlaceUnderItsName)
{
    EXPECT_EQ(find("fraTools")->geometry(), QRect(-8, -16, 161, 69));
    const std::map<int, QPoint> places{{4, {8, 16}},     {16, {32, 16}},  {3, {56, 16}},   {8, {80, 16}},
                                       {2, {128, 16}},   {9, {8, 40}},    {5, {32, 40}},   {7, {56, 40}},
                                       {11, {80, 40}},   {6, {104, 40}},  {12, {128, 40}}, {10, {72, 136}},
                                       {13, {120, 136}}, {1, {144, 136}}, {0, {168, 136}}, {14, {72, 336}},
                                       {15, {168, 328}}, {17, {120, 328}}};
    ASSERT_EQ(places.size(), 18U);
    for (const auto& [id, place] : places) {
        auto* button = find<QAbstractButton>(toolName(id));
        ASSERT_NE(button, nullptr) << id;
        EXPECT_EQ(button->parentWidget(), find("fraTools")) << id;
        EXPECT_EQ(button->geometry(), QRect(place, QSize(26, 25))) << id;
        EXPECT_EQ(button->toolTip().toStdString(), drawing::kTools[std::size_t(id)].toolTip);
        EXPECT_EQ(button->accessibleName(), button->toolTip());
        EXPECT_FALSE(button->icon().isNull()) << id;
        EXPECT_EQ(button->isHidden(), id == 14 || id == 15 || id == 17) << id;
    }
    EXPECT_EQ(find("Command2")->geometry(), QRect(104, 16, 26, 25));
}

TEST_F(DrawingPaletteTest, ShowsTheTwoUpperRowsOfToolsOnly)
{
    ASSERT_TRUE(shown);
    const std::set<int> upper{4, 16, 3, 8, 2, 9, 5, 7, 11, 6, 12};
    for (int id = 0; id < drawing::kToolCount; ++id) {
        EXPECT_EQ(isSeen(toolName(id)), upper.contains(id)) << id;
        EXPECT_EQ(find(toolName(id))->focusPolicy() == Qt::NoFocus, !upper.contains(id)) << id;
    }
    EXPECT_TRUE(isSeen("Command2"));
}

TEST_F(DrawingPaletteTest, ShowsFourColoursOfTwentySix)
{
    ASSERT_TRUE(shown);
    EXPECT_EQ(find("fraColor")->size(), QSize(137, 41));
    const std::set<int> seenOnes{0, 5, 9, 13};
    for (int i = 0; i < drawing::kColourCells; ++i) {
        auto* cell = find<forms::ColourCell>(QStringLiteral("lblColor_%1").arg(i));
        ASSERT_NE(cell, nullptr) << i;
        const auto& described = drawing::kColourPalette[std::size_t(i)];
        EXPECT_EQ(cell->pos(),
                  QPoint(forms::pixels({described.position.Left}), forms::pixels({described.position.Top})));
        EXPECT_EQ(cell->size(), QSize(17, 17));
        EXPECT_EQ(cell->isHidden(), i == 21) << i;
        EXPECT_EQ(isSeen(cell->objectName()), seenOnes.contains(i)) << i;
    }
    EXPECT_TRUE(isSeen("lblForeColor"));
    EXPECT_TRUE(isSeen("lblFillColor"));
}

TEST_F(DrawingPaletteOfCreamWindowsTest, ShowsTheirColourInItsCell)
{
    EXPECT_EQ(find<forms::ColourCell>("lblColor_1")->colour(), drawing::rgb(0xFF, 0xFA, 0xDC));
}

TEST_F(DrawingPaletteTest, HasTheSheetsAtTheirPlacesAndTheSquaresBelowItsEdge)
{
    ASSERT_TRUE(shown);
    EXPECT_EQ(Picture2.height(), 105);
    const std::map<QString, std::pair<QString, QPoint>> options{{"Option4", {"Blank", {0, 83}}},
                                                                {"Option1", {"Grid", {53, 83}}},
                                                                {"Option2", {"Squares", {144, 152}}},
                                                                {"Option3", {"XY Axis", {104, 83}}}};
    for (const auto& [name, told] : options) {
        auto* option = find<QRadioButton>(name);
        ASSERT_NE(option, nullptr);
        EXPECT_EQ(option->text(), told.first);
        EXPECT_EQ(option->pos(), told.second);
        EXPECT_EQ(isSeen(name), name != "Option2");
    }
}

TEST_F(DrawingPaletteTest, CutsOffNothingOfWhatItShows)
{
    ASSERT_TRUE(shown);
    for (const char* name : {"Option4", "Option1", "Option3"}) {
        auto* option = find(name);
        EXPECT_TRUE(Picture2.rect().contains(QRect(option->pos(), option->sizeHint()))) << name;
    }
    EXPECT_LE(find("Option4")->pos().x() + find("Option4")->sizeHint().width(), find("Option1")->x());
    EXPECT_LE(find("Option1")->pos().x() + find("Option1")->sizeHint().width(), find("Option3")->x());
}

TEST_F(DrawingPaletteTest, ChoosesAToolByThePressOfTheRealPointer)
{
    ASSERT_TRUE(shown);
    press(find("optTools_7")->mapToGlobal(QPoint(13, 12)));
    EXPECT_TRUE(waitUntil([&] { return fields().currentTool == 7; }));
    EXPECT_TRUE(picPaint.hasFocus());
    EXPECT_TRUE(find<QAbstractButton>("optTools_7")->isChecked());
    hand.release();
    hand.done();
    settle();
    EXPECT_TRUE(find<QAbstractButton>("optTools_7")->isChecked());
    EXPECT_FALSE(find<QAbstractButton>("optTools_4")->isChecked());
}

TEST_F(DrawingPaletteTest, ChoosesNothingByThePressOfAnotherButton)
{
    QTest::mouseClick(find("optTools_7"), Qt::RightButton);
    EXPECT_EQ(fields().currentTool, 4);
    EXPECT_FALSE(find<QAbstractButton>("optTools_7")->isChecked());
}

TEST_F(DrawingPaletteTest, ShowsThePencilAtFirst)
{
    for (int id = 0; id < drawing::kToolCount; ++id)
        EXPECT_EQ(find<QAbstractButton>(toolName(id))->isChecked(), id == 4) << id;
}

TEST_F(DrawingPaletteTest, ChoosesAToolThatAScreenReaderTurns)
{
    for (const char* name : {"optTools_10", "optTools_14"}) {
        auto* tool = QAccessible::queryAccessibleInterface(find(name));
        ASSERT_NE(tool->actionInterface(), nullptr);
        tool->actionInterface()->doAction(tool->actionInterface()->actionNames().front());
        EXPECT_TRUE(find<QAbstractButton>(name)->isChecked()) << name;
    }
    EXPECT_EQ(fields().currentTool, 14);
    EXPECT_FALSE(find<QAbstractButton>("optTools_10")->isChecked());
}

TEST_F(DrawingPaletteTest, KeepsTheDrawingWhenTheSheetThatIsThereIsClickedAgain)
{
    ASSERT_TRUE(shown);
    drag({{100, 100}, {200, 100}});
    QTest::mouseClick(find("Option4"), Qt::LeftButton, {}, {8, 8});
    EXPECT_TRUE(isInk(150, 100));
}

TEST_F(DrawingPaletteTest, ChoosesAToolByTheKeyboard)
{
    ASSERT_TRUE(shown);
    find("optTools_5")->setFocus(Qt::TabFocusReason);
    key("space");
    EXPECT_EQ(fields().currentTool, 5);
    EXPECT_TRUE(find<QAbstractButton>("optTools_5")->isChecked());
    EXPECT_TRUE(picPaint.hasFocus());
}

TEST_F(DrawingPaletteTest, TakesTheKeyboardWithoutTurningASlide)
{
    ASSERT_TRUE(shown);
    int turns = 0;
    QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick, [&] { ++turns; });
    for (const char* control : {"optTools_5", "lblColor_9", "Option1"}) {
        find(control)->setFocus(Qt::TabFocusReason);
        key("space");
    }
    EXPECT_EQ(turns, 0);
    EXPECT_TRUE(hasInk({0, 0, 747, 420}));
}

TEST_F(DrawingPaletteTest, MayShowAnotherToolThanTheOneInForce)
{
    find<QAbstractButton>("optTools_6")->click();
    EXPECT_EQ(fields().currentTool, 6);
    parts.DrawPrepare();
    EXPECT_EQ(fields().currentTool, 4);
    EXPECT_TRUE(find<QAbstractButton>("optTools_6")->isChecked());
}

TEST_F(DrawingPaletteTest, GivesEveryToolItsCursor)
{
    for (int id = 0; id < drawing::kToolCount; ++id) {
        parts.engine().SelectTool(id, drawing::kLeftButton);
        find<QAbstractButton>("Command2")->click();
        const auto file = drawing::toolCursor(id);
        if (file.empty()) {
            EXPECT_EQ(picPaint.cursor().shape(), Qt::ArrowCursor) << id;
            continue;
        }
        const QCursor told = forms::readCursor(kAssets / file);
        EXPECT_EQ(picPaint.cursor().pixmap().toImage(), told.pixmap().toImage()) << id;
        EXPECT_EQ(picPaint.cursor().hotSpot(), told.hotSpot()) << id;
    }
}

TEST_F(DrawingPaletteTest, ShowsTheGrabbingHandWhileTheHandIsPressed)
{
    choose(Tool::hand);
    const auto shows = [&](const char* file) {
        return picPaint.cursor().pixmap().toImage() == forms::readCursor(kAssets / file).pixmap().toImage();
    };
    QTest::mousePress(&picPaint, Qt::LeftButton, {}, {50, 50});
    EXPECT_TRUE(shows("handgrab.cur"));
    QTest::mouseRelease(&picPaint, Qt::LeftButton, {}, {60, 50});
    EXPECT_TRUE(shows("handflat.cur"));
}

TEST_F(DrawingPaletteTest, TakesThePenColourFromTheLeftButtonAndTheFillColourFromTheRight)
{
    QTest::mouseClick(find("lblColor_5"), Qt::LeftButton);
    QTest::mouseClick(find("lblColor_13"), Qt::RightButton);
    EXPECT_EQ(penColour(), drawing::rgb(255, 0, 0));
    EXPECT_EQ(fillColour(), drawing::rgb(0, 0, 192));
    EXPECT_EQ(find<forms::ColourCell>("lblForeColor")->colour(), penColour());
    EXPECT_EQ(find<forms::ColourCell>("lblFillColor")->colour(), fillColour());
    QTest::mouseClick(find("lblColor_9"), Qt::MiddleButton);
    EXPECT_EQ(penColour(), drawing::rgb(255, 0, 0));
}

TEST_F(DrawingPaletteTest, TakesAColourByTheKeyboard)
{
    ASSERT_TRUE(shown);
    find("lblColor_9")->setFocus(Qt::TabFocusReason);
    key("space");
    EXPECT_EQ(penColour(), drawing::rgb(0, 192, 0));
}

TEST_F(DrawingPaletteTest, TakesTheDialogsColourAtADoubleClick)
{
    ASSERT_TRUE(shown);
    inColourDialog([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(10, 20, 30));
        dialog.accept();
    });
    QTest::mouseDClick(find("lblForeColor"), Qt::LeftButton);
    EXPECT_EQ(penColour(), drawing::rgb(10, 20, 30));
    EXPECT_EQ(fillColour(), drawing::kFirstFillColour);
    inColourDialog([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), QColor(10, 20, 30));
        dialog.setCurrentColor(QColor(40, 50, 60));
        dialog.accept();
    });
    QTest::mouseDClick(find("lblFillColor"), Qt::LeftButton);
    EXPECT_EQ(fillColour(), drawing::rgb(40, 50, 60));
    EXPECT_EQ(penColour(), drawing::rgb(10, 20, 30));
}

TEST_F(DrawingPaletteTest, TakesTheColourThatACancelledDialogHad)
{
    ASSERT_TRUE(shown);
    QTest::mouseClick(find("lblColor_5"), Qt::LeftButton);
    inColourDialog([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(10, 20, 30));
        dialog.reject();
    });
    QTest::mouseDClick(find("lblForeColor"), Qt::LeftButton);
    EXPECT_EQ(penColour(), drawing::kBlack);
}

TEST_F(DrawingPaletteTest, OpensNoDialogAtASinglePress)
{
    QTest::mouseClick(find("lblForeColor"), Qt::LeftButton);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(penColour(), drawing::kBlack);
}

TEST_F(DrawingPaletteTest, BringsUpTheFramesOfAToolAndKeepsThem)
{
    EXPECT_TRUE(find("fraOptDot")->isHidden());
    EXPECT_TRUE(find("fraOptFill")->isHidden());
    find<QAbstractButton>("optTools_5")->click();
    EXPECT_FALSE(find("fraOptDot")->isHidden());
    EXPECT_TRUE(find("fraOptFill")->isHidden());
    find<QAbstractButton>("optTools_6")->click();
    EXPECT_FALSE(find("fraOptFill")->isHidden());
    find<QAbstractButton>("optTools_3")->click();
    EXPECT_FALSE(find("fraOptDot")->isHidden());
    EXPECT_FALSE(find("fraOptFill")->isHidden());
    EXPECT_EQ(find("fraOptDot")->geometry(), QRect(64, 212, 44, 81));
    EXPECT_EQ(find("fraOptFill")->geometry(), QRect(7, 212, 44, 82));
}

TEST_F(DrawingPaletteTest, TellsPressesOnTheGridsInTwips)
{
    find<QAbstractButton>("optTools_6")->click();
    QTest::mouseClick(find("fraOptDot"), Qt::LeftButton, {}, {30, 50});
    EXPECT_EQ(fields().dotIndex, 5);
    EXPECT_EQ(find("lblDot")->pos(), QPoint(22, 43));
    QTest::mouseClick(find("fraOptDot"), Qt::RightButton, {}, {8, 12});
    EXPECT_EQ(fields().dotIndex, 5);
    QTest::mouseClick(find("fraOptFill"), Qt::LeftButton, {}, {3, 35});
    EXPECT_EQ(fields().fillMode, 1);
    EXPECT_EQ(find("lblFill")->y(), 39);
    for (const char* name : {"shpDot_0", "shpDot_7", "shpRect_0", "shpRect_2"})
        EXPECT_NE(find(name), nullptr) << name;
}

TEST_F(DrawingPaletteTest, ClearsTheDrawingAndKeepsTheSheet)
{
    ASSERT_TRUE(shown);
    find<QRadioButton>("Option1")->click();
    const QImage sheet = drawn();
    EXPECT_TRUE(hasInk({0, 0, 747, 420}));
    drag({{101, 101}, {201, 151}});
    EXPECT_NE(drawn(), sheet);
    QTest::mouseClick(find("Command2"), Qt::LeftButton);
    EXPECT_EQ(drawn(), sheet);
    EXPECT_TRUE(waitUntil([&] { return seen() == sheet; }));
    find<QRadioButton>("Option4")->click();
    EXPECT_FALSE(hasInk({0, 0, 747, 420}));
}

TEST_F(DrawingPaletteTest, LaysEachSheetBehindTheDrawing)
{
    for (const auto& [option, file] : std::map<const char*, const char*>{
             {"Option1", "grid.gif"}, {"Option2", "squares.jpg"}, {"Option3", "xy.gif"}}) {
        find<QRadioButton>(option)->click();
        const QImage sheet(tests::text(kAssets / file));
        ASSERT_FALSE(sheet.isNull());
        EXPECT_EQ(drawn(), sheet.convertToFormat(QImage::Format_RGB32).copy(0, 0, 747, 420)) << option;
    }
}
