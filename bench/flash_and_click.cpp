// flash_and_click WIDTH HEIGHT
//
// About every two seconds a window of that size at the screen's upper left corner turns white for half a
// second, and in the moment in which it does, a click is at the sound server's default output. Runs until it
// is killed.

#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kChunkLength = 10ms;
/// Samples of 10 ms at 44.1 kHz.
constexpr int kChunk = 441;
constexpr int kChunksBetweenClicks = 203;

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fputs("flash_and_click WIDTH HEIGHT MICROPHONE\n", stderr);
        return 2;
    }
    const int width = std::atoi(argv[1]);
    const int height = std::atoi(argv[2]);
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display)) {
        std::fputs("flash_and_click: no display\n", stderr);
        return 1;
    }
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const xcb_window_t window = xcb_generate_id(display);
    const std::array<std::uint32_t, 2> values{screen->black_pixel, 1};
    xcb_create_window(display, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, std::uint16_t(width),
                      std::uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
    xcb_map_window(display, window);
    xcb_flush(display);
    const auto paint = [&](std::uint32_t colour) {
        xcb_change_window_attributes(display, window, XCB_CW_BACK_PIXEL, &colour);
        xcb_clear_area(display, 0, window, 0, 0, 0, 0);
        xcb_flush(display);
    };

    const int microphone = ::open(argv[3], O_WRONLY | O_CLOEXEC);
    if (microphone < 0) {
        std::perror("flash_and_click");
        return 1;
    }
    const auto start = Clock::now();
    for (long chunk = 0;; ++chunk) {
        const auto begin = start + chunk * kChunkLength;
        const bool click = chunk % kChunksBetweenClicks == kChunksBetweenClicks / 2;
        const bool dark = chunk % kChunksBetweenClicks == 0;
        std::this_thread::sleep_until(begin);
        if (click || dark)
            paint(click ? screen->white_pixel : screen->black_pixel);
        std::array<std::int16_t, kChunk> samples{};
        for (std::size_t i = 0; click && i < 90; ++i)
            samples[i] = i % 8 < 4 ? 28'000 : -28'000;
        // As from a sound card, a chunk comes when its last sample has been taken.
        std::this_thread::sleep_until(begin + kChunkLength);
        if (::write(microphone, samples.data(), sizeof samples) < 0)
            return 1;
    }
}
