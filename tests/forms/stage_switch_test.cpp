// What the audience sees while media and mode change: the stage is captured from outside as fast as it can
// be, and no picture may show a surface at a place that is neither its old one nor its new one.

#include "app/stage_parts.h"
#include "forms/backdrop_widget.h"
#include "forms/stage_widget.h"
#include "stage/stage_surfaces.h"
#include "tests/forms/form_fixture.h"
#include "tests/support/fake_camera_connection.h"
#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_message_boxes.h"

#include <QAbstractButton>
#include <QEvent>

#include <algorithm>
#include <atomic>
#include <iostream>
#include <mutex>
#include <thread>
#include <vector>

using namespace quillora;
using tests::FormTest;

namespace {

constexpr QRect kFull{0, 0, 747, 420};
constexpr QRect kSide{0, 0, 560, 420};
constexpr QRgb kBackdrop = 0xff203040;
constexpr QRgb kCamera = 0xff00c000;

/// Covers a surface with one colour, whatever the surface is made of.
class PlainCover : public QWidget {
  public:
    PlainCover(QWidget* surface, QRgb colour) : QWidget(surface), m_colour(QColor::fromRgb(colour))
    {
        surface->installEventFilter(this);
        resize(surface->size());
        show();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            resize(parentWidget()->size());
        return QWidget::eventFilter(watched, event);
    }
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), m_colour); }

  private:
    QColor m_colour;
};

/// Slides of one colour, stretched to their panel as the viewer does it.
class PlainSlides : public session::SlideShow {
  public:
    PlainSlides(forms::Vantry_frm& form, std::filesystem::path picture)
        : m_form(form), m_picture(std::move(picture))
    {}
    void showStartPicture() override {}
    void LoadSlide() override
    {
        m_form.slide_img().LoadFile(m_picture);
        ResizeSlide();
    }
    void ResizeSlide() override
    {
        const auto place = m_form.surfaces().slide_img_back.rectangle();
        m_form.slide_img().ResizeImage(place.width.value / base::kTwipsPerPixel,
                                       place.height.value / base::kTwipsPerPixel);
    }

  private:
    forms::Vantry_frm& m_form;
    std::filesystem::path m_picture;
};

class NoDeck : public session::DeckOpening {
  public:
    void openSlides() override {}
};

struct Media {
    const char* key;
    const char* surface;
    QRgb colour;
};

constexpr Media kMedia[] = {
    {"slides", "slide_img", 0xffc00000},    {"text", "textBoard_txt", 0xffffffff},
    {"draw", "picPaint", 0xffc9c6ff},       {"web", "WebBrowser1", 0xff0060c0},
    {"youtube", "WebBrowser2", 0xffc0a000},
};

struct Look {
    QRect media;
    QRect camera;
};

/// Captures the stage on a thread and a connection of its own.
class Watcher {
  public:
    explicit Watcher(QRect stage) : m_stage(stage), m_thread([this] { watch(); }) {}
    ~Watcher()
    {
        m_done = true;
        m_thread.join();
    }
    /// Forgets what was seen until now, also a picture that is on its way.
    void forget()
    {
        const int until = m_captures + 2;
        while (m_captures < until)
            QThread::msleep(1);
        const std::lock_guard lock(m_lock);
        m_frames.clear();
        m_capturesBefore = m_captures;
        m_sinceForgotten.start();
    }
    /// What was seen since forget().
    std::vector<QImage> take()
    {
        const std::lock_guard lock(m_lock);
        m_judgedCaptures += m_captures - m_capturesBefore;
        m_judgedSeconds += double(m_sinceForgotten.nsecsElapsed()) / 1e9;
        return std::exchange(m_frames, {});
    }
    /// Captures a second between each forget() and its take().
    double rate() const { return m_judgedCaptures / m_judgedSeconds; }

  private:
    void watch()
    {
        const tests::X11Probe probe;
        while (!m_done) {
            QImage frame = probe.grab(m_stage);
            const std::lock_guard lock(m_lock);
            // A stage that stands still is one picture.
            if (m_frames.empty() || m_frames.back() != frame)
                m_frames.push_back(std::move(frame));
            ++m_captures;
        }
    }

    QRect m_stage;
    std::mutex m_lock;
    std::vector<QImage> m_frames;
    std::atomic<bool> m_done = false;
    std::atomic<int> m_captures = 0;
    int m_capturesBefore = 0;
    QElapsedTimer m_sinceForgotten;
    int m_judgedCaptures = 0;
    double m_judgedSeconds = 0;
    std::thread m_thread;
};

class StageSwitchTest : public FormTest {
  protected:
    StageSwitchTest()
    {
        camera.isConnected = true;
        // Offers no other backdrop, so that nothing but the surfaces is on the stage.
        fields.recordState = "record";
        for (const Media& each : kMedia)
            if (std::string(each.surface) != "slide_img")
                new PlainCover(find(each.surface), each.colour);
        new PlainCover(find("VideoCap1_back"), kCamera);
        form.Picture1().back_img().load(
            save(tests::plainPicture({8, 8}, QColor::fromRgb(kBackdrop)), "b.bmp", "BMP"));
        parts.commands().toolbar_slides();
    }

    static QImage composed(QRgb media, const Look& look)
    {
        QImage stage(kFull.size(), QImage::Format_RGB32);
        stage.fill(kBackdrop);
        QPainter painter(&stage);
        painter.fillRect(look.media, QColor::fromRgb(media));
        painter.fillRect(look.camera, QColor::fromRgb(kCamera));
        return stage;
    }
    static bool isOneOf(QRgb pixel, const std::vector<QImage>& allowed, int x, int y)
    {
        return std::ranges::any_of(allowed, [&](const QImage& each) { return each.pixel(x, y) == pixel; });
    }
    /// A capture may fall between two parts of an update, so each pixel is asked for itself.
    static bool consistsOf(const QImage& frame, const std::vector<QImage>& allowed)
    {
        if (std::ranges::find(allowed, frame) != allowed.end())
            return true;
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                if (!isOneOf(frame.pixel(x, y), allowed, x, y))
                    return false;
        return true;
    }

    /// Runs @p command and judges all that was seen of it. @p between are pictures that may come before the
    /// last one.
    void expectNoFlash(Watcher& watcher, const std::function<void()>& command, const QImage& after,
                       std::vector<QImage> between)
    {
        between.push_back(grabStage());
        between.push_back(after);
        watcher.forget();
        command();
        ASSERT_TRUE(tests::waitUntil([&] { return grabStage() == after; }));
        for (const QImage& frame : watcher.take())
            if (!consistsOf(frame, between)) {
                ADD_FAILURE() << "a surface was seen at a place that it doesn't have";
                return;
            }
    }

    /// A watcher that hardly looked would have seen no flash either. Fifty a second are what a quiet machine
    /// gives and more; half of it still shows that there was someone.
    static void expectWatched(const Watcher& watcher)
    {
        std::cout << "watched at " << watcher.rate() << " captures a second\n";
        EXPECT_GT(watcher.rate(), 25);
    }

    void press(const char* button) { find<QAbstractButton>(button)->click(); }
    void runMediaCommand(const Media& media)
    {
        using session::Operation;
        const std::string key = media.key;
        operations.run(key == "slides" ? Operation::toolbar_slides
                       : key == "text" ? Operation::toolbar_text
                       : key == "draw" ? Operation::toolbar_draw
                       : key == "web"  ? Operation::toolbar_web
                                       : Operation::toolbar_youtube);
    }

    QRect stageOnScreen()
    {
        const auto stage = form.stageRectangle();
        return {stage.left, stage.top, stage.width, stage.height};
    }

    session::SessionFields fields;
    PlainSlides slides{form,
                       save(tests::plainPicture({747, 420}, QColor::fromRgb(kMedia[0].colour)), "s.png")};
    NoDeck deck;
    tests::FakeCameraConnection camera;
    tests::CallLog log;
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    session::OperationTable operations;
    app::StageParts parts{{form, fields, slides, ebDemo, deck, camera, dialog, boxes, operations}};
};

struct Mode {
    const char* button;
    Look look;
};

const Mode kModes[] = {
    {"Picture26", {kFull, {}}},
    {"Picture24", {kSide, {567, 7, 173, 130}}},
    {"Picture19", {kFull, kFull}},
    {"Picture17", {kFull, {7, 7, 173, 130}}},
    {"Picture24", {kSide, {567, 7, 173, 130}}},
    {"Picture22", {kFull, {7, 283, 173, 130}}},
    {"Picture23", {kFull, {567, 283, 173, 130}}},
    {"Picture21", {kFull, {567, 7, 173, 130}}},
    {"Picture26", {kFull, {}}},
};

} // namespace

TEST_F(StageSwitchTest, OfTheMode_ShowsNoSurfaceAtAPlaceThatItDoesNotHave)
{
    ASSERT_TRUE(shown);
    Watcher watcher(stageOnScreen());
    for (const Media& media : kMedia) {
        SCOPED_TRACE(media.key);
        fields.myMediaType = media.key;
        parts.media().setMediaType();
        ASSERT_TRUE(tests::waitUntil([&] { return grabStage() == composed(media.colour, kModes[0].look); }));
        Look before = kModes[0].look;
        for (const Mode& mode : kModes) {
            SCOPED_TRACE(mode.button);
            // The camera may be seen over either layout of the media, and the slide is away meanwhile.
            expectNoFlash(watcher, [&] { press(mode.button); }, composed(media.colour, mode.look),
                          {composed(media.colour, {mode.look.media, {}}),
                           composed(media.colour, {before.media, {}}),
                           composed(media.colour, {before.media, mode.look.camera}),
                           composed(media.colour, {mode.look.media, before.camera}),
                           composed(kBackdrop, mode.look), composed(kBackdrop, before)});
            before = mode.look;
        }
    }
    expectWatched(watcher);
}

TEST_F(StageSwitchTest, OfTheMedia_ShowsTheOldOneOrTheNewOne)
{
    ASSERT_TRUE(shown);
    Watcher watcher(stageOnScreen());
    for (const Mode& mode : {kModes[0], kModes[1], kModes[2], kModes[5]}) {
        SCOPED_TRACE(mode.button);
        press(mode.button);
        // A camera that fills the stage is ended by each of them.
        const bool filled = mode.look.camera == kFull;
        const Look after = filled ? kModes[0].look : mode.look;
        QRgb last = kMedia[0].colour;
        for (const int i : {1, 0, 2, 3, 1, 4, 0, 3, 2, 4, 1, 0}) {
            SCOPED_TRACE(kMedia[i].key);
            if (filled)
                press(mode.button);
            ASSERT_TRUE(tests::waitUntil([&] { return grabStage() == composed(last, mode.look); }));
            expectNoFlash(watcher, [&] { runMediaCommand(kMedia[i]); }, composed(kMedia[i].colour, after),
                          {composed(last, mode.look)});
            last = kMedia[i].colour;
        }
    }
    expectWatched(watcher);
}
