// show_pictures WIDTH HEIGHT slides SECONDS_EACH FILE...
// show_pictures WIDTH HEIGHT motion FRAMES_PER_SECOND FILE
//
// Something to record: a window without a frame at the screen's upper left corner that shows raw pictures
// (WIDTH by HEIGHT pixels of four bytes: blue, green, red, unused) one after the other, and moves the mouse
// over each for a moment as somebody would who points at a line; or one picture of twice the width and
// height, of which the window shows another part at each frame, so that every pixel changes. Prints the
// monotonic time of each change. Runs until it is killed.

#include <xcb/xcb.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Display {
    xcb_connection_t* connection = nullptr;
    xcb_screen_t* screen = nullptr;
    xcb_window_t window = 0;
    xcb_gcontext_t context = 0;
    int width = 0;
    int height = 0;

    xcb_pixmap_t load(const char* path, int pictureWidth, int pictureHeight) const
    {
        std::ifstream file(path, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
        const std::size_t stride = std::size_t(pictureWidth) * 4;
        if (bytes.size() < stride * std::size_t(pictureHeight)) {
            std::fprintf(stderr, "show_pictures: %s is too short\n", path);
            std::exit(1);
        }
        const xcb_pixmap_t pixmap = xcb_generate_id(connection);
        xcb_create_pixmap(connection, screen->root_depth, pixmap, window, std::uint16_t(pictureWidth),
                          std::uint16_t(pictureHeight));
        for (int row = 0; row < pictureHeight; ++row)
            xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, std::uint16_t(pictureWidth),
                          1, 0, std::int16_t(row), 0, screen->root_depth, std::uint32_t(stride),
                          reinterpret_cast<const std::uint8_t*>(bytes.data()) + std::size_t(row) * stride);
        return pixmap;
    }

    void show(xcb_pixmap_t pixmap, int x, int y) const
    {
        xcb_copy_area(connection, pixmap, window, context, std::int16_t(x), std::int16_t(y), 0, 0,
                      std::uint16_t(width), std::uint16_t(height));
        xcb_flush(connection);
    }

    void movePointer(double x, double y) const
    {
        xcb_warp_pointer(connection, XCB_NONE, screen->root, 0, 0, 0, 0, std::int16_t(x), std::int16_t(y));
        xcb_flush(connection);
    }
};

Display open(int width, int height)
{
    Display display;
    display.connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display.connection)) {
        std::fputs("show_pictures: no display\n", stderr);
        std::exit(1);
    }
    display.screen = xcb_setup_roots_iterator(xcb_get_setup(display.connection)).data;
    display.width = width;
    display.height = height;
    display.window = xcb_generate_id(display.connection);
    const std::uint32_t values[] = {1};
    xcb_create_window(display.connection, XCB_COPY_FROM_PARENT, display.window, display.screen->root, 0, 0,
                      std::uint16_t(width), std::uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(display.connection, display.window);
    display.context = xcb_generate_id(display.connection);
    xcb_create_gc(display.connection, display.context, display.window, 0, nullptr);
    xcb_flush(display.connection);
    return display;
}

void tell(std::size_t picture)
{
    const std::chrono::duration<double> now = Clock::now().time_since_epoch();
    std::printf("%.6f %zu\n", now.count(), picture);
    std::fflush(stdout);
}

void showSlides(const Display& display, double secondsEach, const std::vector<xcb_pixmap_t>& pictures)
{
    const auto start = Clock::now();
    for (std::size_t shown = 0;; ++shown) {
        const auto begin = start + std::chrono::duration_cast<Clock::duration>(
                                       std::chrono::duration<double>(double(shown) * secondsEach));
        std::this_thread::sleep_until(begin);
        display.show(pictures[shown % pictures.size()], 0, 0);
        tell(shown % pictures.size());
        // A fifth of the time the mouse follows a line, at the rate of an ordinary mouse.
        constexpr int steps = 90;
        for (int step = 0; step < steps; ++step) {
            std::this_thread::sleep_until(
                begin + std::chrono::duration_cast<Clock::duration>(
                            std::chrono::duration<double>(secondsEach * (0.4 + 0.2 * step / steps))));
            const double way = double(step) / steps;
            display.movePointer(display.width * (0.2 + 0.5 * way),
                                display.height * (0.3 + 0.1 * double(shown % 5) + 0.02 * std::sin(20 * way)));
        }
    }
}

void showMotion(const Display& display, double framesPerSecond, xcb_pixmap_t picture)
{
    const auto start = Clock::now();
    for (long frame = 0;; ++frame) {
        std::this_thread::sleep_until(start +
                                      std::chrono::duration_cast<Clock::duration>(
                                          std::chrono::duration<double>(double(frame) / framesPerSecond)));
        display.show(picture, int(frame * 5 % display.width), int(frame * 3 % display.height));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 6) {
        std::fputs(
            "show_pictures WIDTH HEIGHT (slides SECONDS_EACH FILE... | motion FRAMES_PER_SECOND FILE)\n",
            stderr);
        return 2;
    }
    const Display display = open(std::atoi(argv[1]), std::atoi(argv[2]));
    const double pace = std::atof(argv[4]);
    if (std::strcmp(argv[3], "motion") == 0)
        showMotion(display, pace, display.load(argv[5], 2 * display.width, 2 * display.height));
    std::vector<xcb_pixmap_t> pictures;
    for (int i = 5; i < argc; ++i)
        pictures.push_back(display.load(argv[i], display.width, display.height));
    showSlides(display, pace, pictures);
}
