// What a grab of the screen costs at 24 a second, in this process and in the X server, for a region of 747 by
// 420 with cursor and highlight drawn.
//
//     screen_grab_bench [SECONDS]
//
// Each case is run without grabs too, and what that costs is taken off, so that drawing and pacing don't
// count.

#include "capture/platform/x11/x11_screen_source.h"
#include "tests/platform/x_canvas.h"
#include "tests/support/private_x_server.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

using namespace quillora;

namespace {

constexpr int kRate = 24;
constexpr capture::PixelRectangle kRegion{100, 80, 747, 420};

struct Cost {
    double clientMs = 0;
    double serverMs = 0;
};

double clientMs()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The scheduler's own count: that of /proc/PID/stat has steps of ten milliseconds.
double serverMs(pid_t server)
{
    double nanoseconds = 0;
    for (const auto& task :
         std::filesystem::directory_iterator("/proc/" + std::to_string(server) + "/task")) {
        double each = 0;
        std::ifstream(task.path() / "schedstat") >> each;
        nanoseconds += each;
    }
    return nanoseconds / 1e6;
}

Cost costOf(pid_t server, int frames, const std::function<void(int)>& frame)
{
    const Cost before{clientMs(), serverMs(server)};
    auto next = std::chrono::steady_clock::now();
    for (int number = 0; number < frames; ++number) {
        frame(number);
        next += std::chrono::microseconds(1'000'000 / kRate);
        std::this_thread::sleep_until(next);
    }
    return {clientMs() - before.clientMs, serverMs(server) - before.serverMs};
}

} // namespace

int main(int count, char** arguments)
{
    const int frames = kRate * (count > 1 ? std::atoi(arguments[1]) : 10);
    tests::PrivateXServer server({1280, 800, 24});
    tests::XCanvas canvas(server.display());
    capture::X11ScreenSource source(server.display());

    struct Case {
        const char* name;
        std::function<void(int)> draw;
    };
    const Case cases[] = {
        {"nothing changes", [](int) {}},
        {"the pointer moves",
         [&](int number) { canvas.movePointer(200 + number % 400, 200 + number % 200); }},
        {"a caret blinks",
         [&](int number) {
             canvas.fill({300, 300, 2, 20}, number % 2 ? 0xffffff : 0);
         }},
        {"every pixel changes",
         [&](int number) { canvas.fill(kRegion, 0x123456U * static_cast<std::uint32_t>(number + 1)); }},
    };
    std::printf("CPU ms a 1000 grabs of %dx%d at %d/s   this process   X server\n", kRegion.width,
                kRegion.height, kRate);
    for (const Case& each : cases) {
        const Cost without = costOf(server.processId(), frames, each.draw);
        source.grab(kRegion, {true, true, 35});
        const Cost with = costOf(server.processId(), frames, [&](int number) {
            each.draw(number);
            source.grab(kRegion, {true, true, 35});
        });
        const double scale = 1000.0 / frames;
        std::printf("%-40s %14.1f %10.1f\n", each.name, (with.clientMs - without.clientMs) * scale,
                    (with.serverMs - without.serverMs) * scale);
    }
}
