// What the live picture of a camera costs: the real form with the real adapter on a private display, before a
// fake camera of 640 by 480 that sends 30 pictures a second, which is to be preloaded; see
// tests/support/fake_camera/fake_camera.cpp. bench/camera_preview runs it beside a peer.
//
//     camera_preview_bench DEVICE full|corner|hidden SECONDS
//
// DEVICE is 0 for Motion-JPEG, 1 for YUYV. Prints the seconds of CPU time of this process in that time, and
// how many pictures were shown.

#include "forms/camera_preview.h"
#include "forms/camera_settings_form.h"
#include "forms/look.h"
#include "forms/platform/x11/x11_window_hints.h"
#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"
#include "stage/newest_frame.h"
#include "stage/platform/v4l2/v4l2_video_cap.h"
#include "stage/stage_surfaces.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <time.h>

using namespace quillora;

namespace {

double cpuSeconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// Counts the pictures that reach the surface.
class PaintCounter : public QObject {
  public:
    int count = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

void turn(int milliseconds)
{
    // Not quit(), which closes the window.
    QTimer::singleShot(milliseconds, qApp, [] { QApplication::exit(); });
    QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: camera_preview_bench DEVICE full|corner|hidden SECONDS\n");
        return 2;
    }
    const std::string place = argv[2];
    const int seconds = std::atoi(argv[3]);
    QApplication application(argc, argv);
    forms::applyLook(application);
    stage::NewestFrame frames;
    forms::X11WindowHints hints;
    forms::Vantry_frm window(hints);
    forms::CameraSettingsForm settings(window);
    stage::V4l2VideoCap camera{{.frames = frames, .dialog = settings}};
    window.Picture1().VideoCap1_back().showPicturesOf(frames);
    auto& surface = window.surfaces().VideoCap1_back;
    if (place == "corner")
        surface.move({{8500}, {100}, {2600}, {1950}});
    surface.setVisible(place != "hidden");
    window.show();
    camera.deviceCount();
    camera.setDeviceIndex(std::atoi(argv[1]));
    camera.setConnected(true);
    camera.setPreview(true);
    turn(1000);
    PaintCounter paints;
    window.Picture1().VideoCap1_back().installEventFilter(&paints);
    const double before = cpuSeconds();
    turn(seconds * 1000);
    std::printf("%.4f %d\n", cpuSeconds() - before, paints.count);
    return 0;
}
