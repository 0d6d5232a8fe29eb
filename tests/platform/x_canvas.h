#pragma once

#include "capture/pixel_rectangle.h"

#include <cstdint>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace quillora::tests {

/// Another program on the display: draws on its screen, and moves and shapes its mouse pointer. Each
/// operation has been done by the server when it returns. Throws std::runtime_error where there is no such
/// display.
class XCanvas {
  public:
    explicit XCanvas(const std::string& display);
    ~XCanvas();
    XCanvas(const XCanvas&) = delete;
    XCanvas& operator=(const XCanvas&) = delete;

    /// @p colour is 0xRRGGBB, or a pixel value on screens of other depths.
    void fill(const capture::PixelRectangle& area, std::uint32_t colour);
    /// Gives the screen another size, which may not be larger than its first one.
    void resizeScreen(int width, int height);
    void movePointer(int x, int y);
    /// @p pixels are premultiplied ARGB, rows from the top.
    void setCursor(int width, int height, capture::PixelPoint hotSpot, std::vector<std::uint32_t> pixels);

  private:
    void finish();

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
    std::uint32_t m_context = 0;
};

} // namespace quillora::tests
