// From the pointer's move to the segment of ink on the screen: the real form and pen on a private display, a
// pointer moved by the X server, and the screen watched from outside over a connection that is not the
// program's. Beside it, in turn, the same with the toolkit's own way, which paints when the events that wait
// have been handled.
//
//     slide_ink_bench [SEGMENTS]
//
// Prints one line of figures for each and their ratio, and exits with 1 when a segment was not seen within
// two seconds.

#include "bench/private_desktop.h"
#include "bench/statistics.h"
#include "deck/slide_pen.h"
#include "forms/image_surface_widget.h"
#include "forms/look.h"
#include "forms/platform/x11/x11_window_hints.h"
#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <thread>
#include <vector>

using namespace quillora;
using bench::percentile;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kDefaultSegments = 300;
constexpr auto kGiveUpAfter = std::chrono::seconds(2);
constexpr int kStep = 9;

/// A surface as the toolkit would have it: a change is noted, and painted later.
class LaterSurface : public QWidget {
  public:
    explicit LaterSurface(QWidget* parent) : QWidget(parent), m_picture(747, 420, QImage::Format_RGB32)
    {
        m_picture.fill(Qt::white);
        setGeometry(0, 0, 747, 420);
    }

  protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, m_picture); }
    void mousePressEvent(QMouseEvent* event) override { m_last = event->pos(); }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        QPainter painter(&m_picture);
        painter.setPen(QPen(Qt::black, 7));
        painter.drawLine(m_last, event->pos());
        painter.end();
        m_last = event->pos();
        update();
    }

  private:
    QImage m_picture;
    QPoint m_last{};
};

/// The presenter, on a thread and a connection of its own.
class Presenter : public bench::HandsAndEyes {
  public:
    void move(QPoint to) { fake(XCB_MOTION_NOTIFY, 0, to); }
    void press() { fake(XCB_BUTTON_PRESS, 1); }
    void release() { fake(XCB_BUTTON_RELEASE, 1); }

    /// Milliseconds from a drag to @p to until the pixel there is no longer white.
    std::optional<double> dragAndWatch(QPoint to)
    {
        const auto start = Clock::now();
        move(to);
        while (Clock::now() - start < kGiveUpAfter) {
            if (isDark(to))
                return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        }
        return std::nullopt;
    }

  private:
    bool isDark(QPoint at) { return (pixel(at) & 0xFF00U) < 0x8000U; }
};

/// Rows of segments over the stage, each begun anew.
std::vector<double> measure(Presenter& presenter, QPoint stage, int segments)
{
    std::vector<double> times;
    for (int y = 15; int(times.size()) < segments; y += 12) {
        if (y > 400)
            break;
        presenter.move(stage + QPoint(20, y));
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        presenter.press();
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        for (int x = 20 + kStep; x < 700 && int(times.size()) < segments; x += kStep) {
            const auto time = presenter.dragAndWatch(stage + QPoint(x, y));
            if (!time) {
                std::fprintf(stderr, "the segment to %d, %d was not seen\n", x, y);
                return {};
            }
            times.push_back(*time);
            std::this_thread::sleep_for(std::chrono::milliseconds(8));
        }
        presenter.release();
    }
    std::sort(times.begin(), times.end());
    return times;
}

void print(const char* name, const std::vector<double>& times)
{
    std::printf("%-22s %zu segments: p50 %.2f ms, p95 %.2f ms, longest %.2f ms\n", name, times.size(),
                percentile(times, 0.5), percentile(times, 0.95), times.back());
}

int run(QApplication& application, int segments)
{
    forms::X11WindowHints hints;
    forms::Vantry_frm form(hints);
    auto& slide = form.Picture1().slide_img();
    slide.NewImage(747, 420);
    slide.setPenWidth(7);
    deck::SlidePen pen(slide);
    pen.penMode = deck::SlidePen::kPen;
    using forms::Vantry_frm;
    QObject::connect(&form, &Vantry_frm::slide_img_MouseDown,
                     [&](int b, int s, float x, float y) { pen.slide_img_MouseDown(b, s, x, y); });
    QObject::connect(&form, &Vantry_frm::slide_img_MouseMove,
                     [&](int b, int s, float x, float y) { pen.slide_img_MouseMove(b, s, x, y); });
    form.show();
    LaterSurface later(&form.Picture1());
    later.hide();

    std::vector<double> ours;
    std::vector<double> theirs;
    std::thread presenting;
    QTimer::singleShot(1500, &form, [&] {
        const capture::PixelRectangle stage = form.stageRectangle();
        presenting = std::thread([&, stage] {
            Presenter presenter;
            ours = measure(presenter, {stage.left, stage.top}, segments);
            QMetaObject::invokeMethod(
                &later,
                [&] {
                    later.show();
                    later.raise();
                },
                Qt::BlockingQueuedConnection);
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            theirs = measure(presenter, {stage.left, stage.top}, segments);
            QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
        });
    });
    QApplication::exec();
    presenting.join();
    if (ours.empty() || theirs.empty())
        return 1;
    print("ink, in its event", ours);
    print("ink, painted later", theirs);
    std::printf("ratio of the medians %.2f, of the 95th percentiles %.2f\n",
                percentile(ours, 0.5) / percentile(theirs, 0.5),
                percentile(ours, 0.95) / percentile(theirs, 0.95));
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const bench::PrivateDesktop desktop;
    QApplication application(argc, argv);
    forms::applyLook(application);
    return run(application, argc > 1 ? std::atoi(argv[1]) : kDefaultSegments);
}
