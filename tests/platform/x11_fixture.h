#pragma once

#include "capture/platform/x11/x11_screen_source.h"
#include "tests/platform/x_canvas.h"
#include "tests/support/private_x_server.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace quillora::capture {

inline constexpr std::uint32_t kBackground = 0x203040;
inline constexpr std::uint32_t kRed = 0xff1020;
inline constexpr std::uint32_t kPaper = 0xf0f4f8;

/// Longer than any promise of the source, for the sake of a busy machine.
inline constexpr auto kGenerous = std::chrono::seconds(3);

inline std::uint32_t colourAt(const ScreenImageView& image, int x, int y)
{
    const std::uint8_t* pixel = image.pixels + 4 * (y * image.width + x);
    return static_cast<std::uint32_t>(pixel[2] << 16 | pixel[1] << 8 | pixel[0]);
}

/// The image as a picture in letters, for screens of few pixels.
inline std::string letters(const ScreenImageView& image)
{
    std::string grid;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const std::uint32_t colour = colourAt(image, x, y);
            grid += colour == 0             ? '.'
                    : colour == kBackground ? 'b'
                    : colour == kRed        ? 'R'
                    : colour == kPaper      ? 'p'
                                            : '?';
        }
        grid += '\n';
    }
    return grid;
}

/// Whether @p condition comes true in time.
inline bool happensWithin(std::chrono::milliseconds limit, const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

/// A screen of 320 by 240 pixels of one colour, the pointer out of the way, and a source that looks at it.
class X11ScreenSourceTest : public testing::Test {
  protected:
    X11ScreenSourceTest()
    {
        canvas->fill({0, 0, 320, 240}, kBackground);
        canvas->movePointer(300, 200);
    }

    ScreenSource::Grab grab()
    {
        const ScreenSource::Grab taken = source.grab(region, pointer);
        image = taken.image;
        return taken;
    }

    bool grabWorks()
    {
        try {
            grab();
            return true;
        } catch (const std::runtime_error&) {
            return false;
        }
    }

    /// How long a grab takes that fails, or nothing when it doesn't fail.
    std::optional<std::chrono::steady_clock::duration> failureTime()
    {
        const auto start = std::chrono::steady_clock::now();
        try {
            grab();
            return std::nullopt;
        } catch (const std::runtime_error&) {
            return std::chrono::steady_clock::now() - start;
        }
    }

    tests::PrivateXServer server{{320, 240, 24}};
    std::unique_ptr<tests::XCanvas> canvas = std::make_unique<tests::XCanvas>(server.display());
    X11ScreenSource source{server.display()};
    /// What the last grab gave.
    ScreenImageView image;
    PixelRectangle region{0, 0, 16, 8};
    PointerDrawing pointer{};
};

} // namespace quillora::capture
