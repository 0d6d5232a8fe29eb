// From the press of "next" to the new picture on the screen: the real form and viewer on a private display,
// keys pressed by the X server, and the screen watched from outside over connections that are not the
// program's.
//
//     slide_change_bench [FOLDER [CHANGES]]
//
// FOLDER holds "Slide1.PNG", "Slide2.PNG", ... as an import leaves them. Without one, a series of its own is
// drawn, 1280 wide: text, ruled lines and a photograph-like part on every slide. Prints one line of figures,
// and exits with 1 when a change was not seen within two seconds.

#include "bench/private_desktop.h"
#include "bench/statistics.h"
#include "deck/slide_viewer.h"
#include "deck/task_pane.h"
#include "forms/look.h"
#include "forms/picture_file.h"
#include "forms/platform/x11/x11_window_hints.h"
#include "forms/task_pane_widget.h"
#include "forms/vantry_frm.h"
#include "session/session_fields.h"
#include "session/slide_time_index.h"
#include "session/workspace.h"
#include "stage/slide_place.h"
#include "stage/stage_surfaces.h"
#include "tests/support/temporary_folder.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

using namespace quillora;
using bench::percentile;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kDrawnSlides = 24;
constexpr int kDefaultChanges = 100;
constexpr auto kGiveUpAfter = std::chrono::seconds(2);

QImage drawSlide(int number)
{
    QImage slide(1280, 720, QImage::Format_RGB32);
    slide.fill(Qt::white);
    QPainter painter(&slide);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(0, 0, 1280, 96, QColor::fromHsv((number * 47) % 360, 160, 150));
    QFont font = painter.font();
    font.setPixelSize(46);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(40, 64, QString("Slide %1: how to measure a change").arg(number));
    painter.setPen(Qt::black);
    font.setPixelSize(27);
    painter.setFont(font);
    for (int line = 0; line < 12; ++line)
        painter.drawText(40, 160 + line * 46,
                         QString("Line %1 of slide %2 says something else").arg(line).arg(number));
    QImage photo(420, 420, QImage::Format_RGB32);
    std::minstd_rand noise{std::minstd_rand::result_type(number)};
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x) {
            const int grain = int(noise() % 24);
            photo.setPixel(x, y,
                           qRgb((x / 3 + grain + number * 9) & 255, (y / 2 + grain) & 255, 120 + grain));
        }
    painter.drawImage(800, 200, photo);
    return slide;
}

int drawSeries(const std::filesystem::path& folder)
{
    for (int number = 1; number <= kDrawnSlides; ++number)
        drawSlide(number).save(
            QString::fromStdString((folder / ("Slide" + std::to_string(number) + ".PNG")).string()));
    return kDrawnSlides;
}

int copySeries(const std::filesystem::path& from, const std::filesystem::path& to)
{
    int count = 0;
    for (;; ++count) {
        const std::string name = "Slide" + std::to_string(count + 1) + ".PNG";
        if (!std::filesystem::exists(from / name))
            return count;
        std::filesystem::copy_file(from / name, to / name);
    }
}

/// A pixel of the stage by which slide @p before and slide @p after can be told apart, as low as there is
/// one, so that a picture that is painted in pieces counts when it is whole.
std::optional<QPoint> tellingPixel(const std::filesystem::path& before, const std::filesystem::path& after)
{
    const auto shown = [](const std::filesystem::path& file) {
        return forms::readPicture(file).scaled(747, 420, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage one = shown(before);
    const QImage other = shown(after);
    for (int y = one.height() - 1; y >= 0; --y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y))
                return QPoint(x, y);
    return std::nullopt;
}

/// The presenter, on a thread and a connection of its own: presses a key and watches the screen.
class Presenter : public bench::HandsAndEyes {
  public:
    void press(std::uint8_t keycode)
    {
        fake(XCB_KEY_PRESS, keycode);
        fake(XCB_KEY_RELEASE, keycode);
    }

    /// Milliseconds from the press to another colour of the pixel.
    std::optional<double> pressAndWatch(std::uint8_t keycode, QPoint at)
    {
        const std::uint32_t before = pixel(at);
        const auto start = Clock::now();
        press(keycode);
        while (Clock::now() - start < kGiveUpAfter) {
            if (pixel(at) != before)
                return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
            std::this_thread::sleep_for(std::chrono::microseconds(250));
        }
        return std::nullopt;
    }
};

// The keycodes of Page Down and Home on an evdev keyboard, which is what the private X server has.
constexpr std::uint8_t kPageDown = 117;
constexpr std::uint8_t kHome = 110;

std::vector<double> measure(Presenter& presenter, const std::filesystem::path& folder, int slides,
                            int changes, QPoint stage)
{
    std::vector<double> times;
    int current = 1;
    const auto file = [&](int number) { return folder / ("Slide" + std::to_string(number) + ".PNG"); };
    for (int i = 0; i < changes; ++i) {
        if (current == slides) {
            presenter.press(kHome);
            current = 1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        ++current;
        const auto telling = tellingPixel(file(current - 1), file(current));
        if (!telling) {
            presenter.press(kPageDown);
            continue;
        }
        const auto time = presenter.pressAndWatch(kPageDown, stage + *telling);
        if (!time) {
            std::fprintf(stderr, "slide %d was not seen\n", current);
            return {};
        }
        times.push_back(*time);
    }
    std::sort(times.begin(), times.end());
    return times;
}

int run(QApplication& application, const char* series, int changes)
{
    const tests::TemporaryFolder home;
    session::SessionFields fields;
    session::Workspace workspace(fields, {home.path(), home.path()});
    workspace.makeFolders();
    const int slides = series ? copySeries(series, workspace.root()) : drawSeries(workspace.root());
    if (slides < 2) {
        std::fputs("no series of slides there\n", stderr);
        return 1;
    }

    forms::X11WindowHints hints;
    forms::Vantry_frm form(hints);
    session::SlideTimeIndex index(fields, workspace);
    deck::TaskPane(form.ebDemo()).AddExpBarLess();
    const stage::SlidePlace slidePlace(form.surfaces().slide_img_back);
    deck::SlideViewer viewer(
        {fields, form, workspace, index, form.slide_img(), form.slide_img_N(), slidePlace, QUILLORA_ASSETS});
    QObject::connect(&form, &forms::Vantry_frm::navigation_TB_ButtonClick,
                     [&](const std::string& key) { viewer.navigation_TB_ButtonClick(key); });
    fields.currentSlide = "1";
    fields.slideCount = std::to_string(slides);
    form.show();
    viewer.LoadSlide();

    std::vector<double> times;
    std::thread presenting;
    QTimer::singleShot(1500, &form, [&] {
        const capture::PixelRectangle stage = form.stageRectangle();
        presenting = std::thread([&, stage] {
            Presenter presenter;
            times = measure(presenter, workspace.root(), slides, changes, {stage.left, stage.top});
            QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
        });
    });
    QApplication::exec();
    presenting.join();
    if (times.empty())
        return 1;
    std::printf("slide change, %zu changes over %d slides: p50 %.1f ms, p95 %.1f ms, longest %.1f ms\n",
                times.size(), slides, percentile(times, 0.5), percentile(times, 0.95), times.back());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const bench::PrivateDesktop desktop;
    QApplication application(argc, argv);
    forms::applyLook(application);
    return run(application, argc > 1 ? argv[1] : nullptr, argc > 2 ? std::atoi(argv[2]) : kDefaultChanges);
}
