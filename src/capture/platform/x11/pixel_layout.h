#pragma once

#include <cstddef>
#include <cstdint>

struct xcb_setup_t;
struct xcb_screen_t;

namespace quillora::capture {

/// How the pixels of an X screen lie in memory.
struct PixelLayout {
    enum class Kind {
        /// Four bytes: blue, green, red, unused.
        bgrx,
        /// Two bytes, low one first: five bits of red, six of green, five of blue.
        rgb565,
    };

    Kind kind = Kind::bgrx;
    /// Rows are filled up to a multiple of this.
    int rowPadBits = 32;

    int bytesPerPixel() const { return kind == Kind::bgrx ? 4 : 2; }
    /// Bytes from one row of a picture of this width to the next.
    std::size_t rowBytes(int width) const;
    /// Writes @p pixels pixels as a ScreenImage has them.
    void convert(const std::uint8_t* from, std::uint8_t* to, int pixels) const;
};

/// The layout of a screen's root window. Throws std::runtime_error for screens of other kinds, such as those
/// with a colour map or with ten bits a colour.
PixelLayout pixelLayoutOf(const xcb_setup_t& setup, const xcb_screen_t& screen);

} // namespace quillora::capture
