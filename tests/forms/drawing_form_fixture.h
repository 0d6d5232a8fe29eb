#pragma once

#include "app/drawing_parts.h"
#include "base/skip_failures.h"
#include "forms/drawing_palette.h"
#include "forms/paint_canvas_widget.h"
#include "forms/stage_widget.h"
#include "forms/text_tool_box.h"
#include "session/task_pane_bars.h"
#include "stage/stage_surfaces.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/x11_hand.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <initializer_list>

namespace quillora::tests {

/// Counts what the real pointer's buttons brought to the program, whichever widget took it.
class ButtonWatch : public QObject {
  public:
    ButtonWatch() { qApp->installEventFilter(this); }
    ~ButtonWatch() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver->isWindowType() && event->spontaneous()) {
            if (event->type() == QEvent::MouseButtonPress)
                ++presses;
            if (event->type() == QEvent::MouseButtonRelease)
                ++releases;
        }
        return false;
    }

    int presses = 0;
    int releases = 0;
};

/// The drawing board on the stage of the main form, with its palette in the task pane and a hand on the real
/// pointer.
class DrawingFormTest : public FormTest {
  protected:
    enum class Files {
        installed,
        /// Only what a test puts into the folder.
        none,
    };

    explicit DrawingFormTest(Files files = Files::installed)
        : parts({picPaint, Picture2, form}, files == Files::none ? folder.path() : QUILLORA_ASSETS)
    {
        form.surfaces().slide_img_back.setVisible(false);
        form.surfaces().picPaint.setVisible(true);
        ebDemo.AddExpBar();
        ebDemo.setBarState("camera", session::BarState::collapsed);
        ebDemo.setBarState("draw", session::BarState::expanded);
        base::skipFailures([&] { parts.DrawPrepare(); });
        settle(100);
    }
    ~DrawingFormTest() override
    {
        // The pointer is the display's, and the next test's.
        hand.release();
        hand.done();
    }

    using FormTest::find;
    template <typename T = QWidget>
    T* find(const QString& name)
    {
        return form.findChild<T*>(name);
    }

    /// What the engine drew, as the screen should show it.
    QImage drawn() const
    {
        const auto& image = parts.canvas().surface().Image();
        QImage picture(image.width(), image.height(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const auto colour = image.at(x, y);
                picture.setPixel(
                    x, y, qRgb(drawing::redOf(colour), drawing::greenOf(colour), drawing::blueOf(colour)));
            }
        return picture.copy(picPaint.rect());
    }

    QImage seen() { return probe.grab({onScreen({0, 0}), picPaint.size()}); }
    QPoint onScreen(QPoint canvas) const { return picPaint.mapToGlobal(canvas); }
    drawing::Colour pixel(int x, int y) const { return parts.canvas().surface().Image().at(x, y); }
    bool isInk(int x, int y) const { return pixel(x, y) != drawing::DrawingCanvas::kBackColour; }

    const drawing::DrawingFields& fields() const { return parts.canvas().fields; }
    int snapshots() const { return parts.canvas().ring.bufferNewest; }
    bool hasInk(const QRect& area) const
    {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (isInk(x, y))
                    return true;
        return false;
    }

    void choose(drawing::Tool tool)
    {
        find<QAbstractButton>(QStringLiteral("optTools_%1").arg(drawing::toolId(tool)))->click();
    }

    /// The left button's press at the first place, moves, and its release at the last, by the real pointer.
    void drag(std::initializer_list<QPoint> places) { dragOn(picPaint, places); }
    void dragOn(const QWidget& widget, std::initializer_list<QPoint> places)
    {
        press(widget.mapToGlobal(*places.begin()));
        for (const QPoint place : places)
            hand.move(widget.mapToGlobal(place));
        release();
    }
    /// A window manager holds the pointer back while it looks at a press; no hand is as fast as this one.
    void press(QPoint screen)
    {
        const int before = buttons.presses;
        hand.move(screen);
        hand.press();
        hand.done();
        EXPECT_TRUE(waitUntil([&] { return buttons.presses > before; }));
        settle(20);
    }
    void release()
    {
        const int before = buttons.releases;
        hand.release();
        hand.done();
        EXPECT_TRUE(waitUntil([&] { return buttons.releases > before; }));
        settle(20);
    }
    void click(QPoint place) { drag({place}); }
    /// Long enough after the last press not to be the second of a double click.
    void pause() { settle(QApplication::doubleClickInterval() + 50); }
    /// A key of the real keyboard.
    void key(const std::string& name)
    {
        FormTest::type(name);
        settle(100);
    }
    void type(const std::string& words)
    {
        EXPECT_EQ(runToEnd({"xdotool", "type", words}), 0) << words;
        settle(100);
    }

    X11Hand hand;
    ButtonWatch buttons;
    forms::PaintCanvasWidget& picPaint = form.Picture1().picPaint();
    forms::DrawingPalette& Picture2 = form.Picture2();
    app::DrawingParts parts;
};

} // namespace quillora::tests
