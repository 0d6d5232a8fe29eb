#include "app/slide_ink_parts.h"

#include "deck/slide_pen.h"
#include "deck/slide_viewer.h"
#include "forms/image_surface_widget.h"
#include "forms/pen_options.h"
#include "forms/task_pane_widget.h"
#include "session/session_fields.h"
#include "session/slide_time_index.h"
#include "session/workspace.h"
#include "stage/slide_place.h"
#include "stage/stage_surfaces.h"
#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QPaintEvent>
#include <QTest>

using namespace quillora;
using tests::FormTest;
using tests::plainPicture;

namespace {

/// What was painted anew.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget* watched) { watched->installEventFilter(this); }

    QRegion painted;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }
};

/// The form with a deck of two white slides and the ink's parts behind its controls.
class SlideInkFormTest : public FormTest {
  protected:
    SlideInkFormTest()
    {
        workspace.makeFolders();
        for (const char* name : {"Slide1.PNG", "Slide2.PNG"})
            EXPECT_TRUE(plainPicture({747, 420}, Qt::white).save(tests::text(workspace.root() / name)));
        fields.slideCount = "2";
        fields.currentSlide = "1";
        viewer.LoadSlide();
        QObject::connect(slide, &forms::ImageSurfaceWidget::MouseDown,
                         [this](int b, int s, float x, float y) { pen.slide_img_MouseDown(b, s, x, y); });
        QObject::connect(slide, &forms::ImageSurfaceWidget::MouseMove,
                         [this](int b, int s, float x, float y) { pen.slide_img_MouseMove(b, s, x, y); });
        QObject::connect(slide, &forms::ImageSurfaceWidget::MouseUp,
                         [this](int b, int s, float x, float y) { pen.slide_img_MouseUp(b, s, x, y); });
    }

    void pointer(std::vector<std::string> words)
    {
        words.insert(words.begin(), "xdotool");
        EXPECT_EQ(tests::runToEnd(words), 0);
    }
    void moveTo(QPoint onScreen)
    {
        pointer({"mousemove", std::to_string(onScreen.x()), std::to_string(onScreen.y())});
        tests::settle(30);
    }
    void click(const char* control)
    {
        QWidget* widget = find(control);
        ASSERT_NE(widget, nullptr) << control;
        form.ebDemo().ensureWidgetVisible(widget);
        moveTo(widget->mapToGlobal(QPoint(14, widget->height() / 2)));
        pointer({"click", "1"});
        tests::settle(60);
    }
    /// A drag of the real pointer over the slide, from one place of it to another.
    void drag(QPoint from, QPoint to)
    {
        moveTo(slide->mapToGlobal(from));
        pointer({"mousedown", "1"});
        moveTo(slide->mapToGlobal(to));
        pointer({"mouseup", "1"});
        tests::settle(60);
    }
    QColor onStage(QPoint place)
    {
        return probe.grab(QRect(slide->mapToGlobal(place), QSize(1, 1))).pixelColor(0, 0);
    }
    /// How many pixels of the line across the middle of a drag from left to right are not the slide's.
    int inkWidthAt(int x, int y)
    {
        const QImage column = probe.grab(QRect(slide->mapToGlobal(QPoint(x, y - 10)), QSize(1, 21)));
        int width = 0;
        for (int i = 0; i < column.height(); ++i)
            width += column.pixelColor(0, i).lightness() < 200 ? 1 : 0;
        return width;
    }

    session::SessionFields fields;
    session::Workspace workspace{fields, {folder.path(), folder.path()}};
    session::SlideTimeIndex index{fields, workspace};
    stage::SlidePlace slidePlace{form.surfaces().slide_img_back};
    deck::SlideViewer viewer{
        {fields, form, workspace, index, form.slide_img(), form.slide_img_N(), slidePlace, QUILLORA_ASSETS}};
    deck::SlidePen pen{form.slide_img()};
    app::SlideInkParts parts{{.window = form, .pen = pen, .viewer = viewer, .assets = QUILLORA_ASSETS}};
    forms::ImageSurfaceWidget* slide = find<forms::ImageSurfaceWidget>("slide_img");
};

} // namespace

TEST_F(SlideInkFormTest, ToolbarLiesAtTheTopOfThePanelInItsSize)
{
    ASSERT_NE(find("pens_TB"), nullptr);
    EXPECT_EQ(find("pens_TB")->size(), QSize(169, 33));
    for (const char* other : {"navigation_TB", "slide_img_N", "Picture28", "Picture29"})
        EXPECT_LT(find("pens_TB")->mapTo(find("Pic_notes"), QPoint()).y(),
                  find(other)->mapTo(find("Pic_notes"), QPoint()).y());
    for (const char* option : {"Option7", "Option8", "Option9", "Option13", "Command10"})
        EXPECT_EQ(find(option)->parentWidget(), find("Picture28")) << option;
    for (const char* option : {"Option10", "Option11", "Option12"})
        EXPECT_EQ(find(option)->parentWidget(), find("Picture29")) << option;
}

TEST_F(SlideInkFormTest, ThePointerDrawsInEachPensColour)
{
    ASSERT_TRUE(shown);
    const std::pair<const char*, Qt::GlobalColor> pens[] = {
        {"pens_TB_black", Qt::black}, {"pens_TB_blue", Qt::blue}, {"pens_TB_red", Qt::red}};
    int y = 100;
    for (const auto& [button, colour] : pens) {
        click(button);
        drag({200, y}, {400, y});
        EXPECT_EQ(onStage({300, y}), QColor(colour)) << button;
        y += 50;
    }
}

TEST_F(SlideInkFormTest, TheArrowLeavesNoMark)
{
    ASSERT_TRUE(shown);
    drag({200, 100}, {400, 100});
    click("pens_TB_red");
    click("pens_TB_arrow");
    drag({200, 100}, {400, 100});
    EXPECT_EQ(onStage({300, 100}), QColor(Qt::white));
}

TEST_F(SlideInkFormTest, WidthsGrowAndTheToolbarSetsThemBack)
{
    ASSERT_TRUE(shown);
    click("pens_TB_black");
    drag({200, 60}, {400, 60});
    EXPECT_EQ(inkWidthAt(300, 60), 2);
    int y = 100;
    for (const auto& [option, width] :
         {std::pair{"Option10", 1}, std::pair{"Option11", 4}, std::pair{"Option12", 7}}) {
        click(option);
        drag({200, y}, {400, y});
        EXPECT_EQ(inkWidthAt(300, y), width) << option;
        y += 50;
    }
    click("pens_TB_black");
    drag({200, 300}, {400, 300});
    EXPECT_EQ(inkWidthAt(300, 300), 2);
}

TEST_F(SlideInkFormTest, AWidthThatAProgramChoosesIsAClick)
{
    auto* widths = find<forms::PenWidths>("Picture29");
    std::vector<int> clicks;
    QObject::connect(widths, &forms::PenWidths::Option_Click, [&](int number) { clicks.push_back(number); });
    widths->chooseOption10();
    widths->chooseOption11();
    widths->chooseOption12();
    widths->chooseOption12();
    EXPECT_EQ(clicks, (std::vector{10, 11, 12}));
    EXPECT_TRUE(find<QAbstractButton>("Option12")->isChecked());
}

TEST_F(SlideInkFormTest, TheOlderArrowShowsTheArrowAndStillDraws)
{
    ASSERT_TRUE(shown);
    click("pens_TB_red");
    const QCursor penCursor = slide->cursor();
    EXPECT_EQ(penCursor.shape(), Qt::BitmapCursor);
    click("Option13");
    EXPECT_EQ(slide->cursor().shape(), Qt::ArrowCursor);
    drag({200, 100}, {400, 100});
    EXPECT_EQ(onStage({300, 100}), QColor(Qt::red));
}

TEST_F(SlideInkFormTest, TheOlderPensChangeColourAndCursorOfAPenInHand)
{
    ASSERT_TRUE(shown);
    click("Option9");
    EXPECT_EQ(slide->cursor().shape(), Qt::BitmapCursor);
    drag({200, 100}, {400, 100});
    EXPECT_EQ(onStage({300, 100}), QColor(Qt::white));
    click("pens_TB_black");
    click("Option8");
    drag({200, 100}, {400, 100});
    EXPECT_EQ(onStage({300, 100}), QColor(Qt::blue));
}

TEST_F(SlideInkFormTest, BothErasersWipeAndLeaveThePenInHand)
{
    ASSERT_TRUE(shown);
    click("pens_TB_red");
    for (const char* eraser : {"pens_TB_eraser", "Command10"}) {
        drag({200, 100}, {400, 100});
        ASSERT_EQ(onStage({300, 100}), QColor(Qt::red));
        click(eraser);
        EXPECT_EQ(grabStage(), plainPicture({747, 420}, Qt::white)) << eraser;
        EXPECT_EQ(slide->cursor().shape(), Qt::BitmapCursor);
    }
    EXPECT_EQ(fields.slideStatus, "Slide 1/2");
}

TEST_F(SlideInkFormTest, ASegmentIsOnTheScreenInTheSameEvent)
{
    ASSERT_TRUE(shown);
    form.slide_img().setPenWidth(2);
    form.slide_img().DrawSegment(100, 100, 140, 120);
    // The event loop does not turn here.
    QDeadlineTimer deadline(5000);
    while (onStage({120, 110}) == QColor(Qt::white) && !deadline.hasExpired())
        QThread::msleep(1);
    EXPECT_NE(onStage({120, 110}), QColor(Qt::white));
}

TEST_F(SlideInkFormTest, ASegmentPaintsNothingBesideItAnew)
{
    ASSERT_TRUE(shown);
    form.slide_img().setPenWidth(7);
    PaintWatch slideWatch(slide);
    PaintWatch formWatch(&form);
    form.slide_img().DrawSegment(100, 100, 140, 120);
    EXPECT_TRUE(QRect(88, 88, 64, 44).contains(slideWatch.painted.boundingRect()));
    EXPECT_TRUE(slideWatch.painted.contains(QRect(97, 97, 46, 26)));
    EXPECT_TRUE(formWatch.painted.isEmpty());
    tests::settle(50);
    EXPECT_TRUE(QRect(88, 88, 64, 44).contains(slideWatch.painted.boundingRect()));
}

TEST_F(SlideInkFormTest, OptionsAreReachedAndChosenByTheKeyboard)
{
    ASSERT_TRUE(shown);
    std::vector<std::string> moves;
    QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick,
                     [&](const std::string& key) { moves.push_back(key); });
    find("Option11")->setFocus(Qt::TabFocusReason);
    type("space");
    tests::settle(100);
    EXPECT_TRUE(find<QAbstractButton>("Option11")->isChecked());
    type("Right");
    tests::settle(100);
    EXPECT_TRUE(find("Option12")->hasFocus());
    EXPECT_TRUE(find<QAbstractButton>("Option12")->isChecked());
    EXPECT_EQ(moves, std::vector<std::string>{});
}
