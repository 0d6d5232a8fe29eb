#pragma once

namespace quillora::capture {

/// A rectangle of the screen in physical pixels, right and bottom edges excluded. Width and height of zero or
/// less make it empty.
struct PixelRectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRectangle&) const = default;
};

struct PixelPoint {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPoint&) const = default;
};

} // namespace quillora::capture
