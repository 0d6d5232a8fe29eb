#pragma once

#include "deck/image_surface.h"
#include "deck/slide_pen.h"
#include "deck/slide_viewer.h"
#include "session/main_window.h"

#include <filesystem>
#include <string_view>

namespace quillora::deck {

/// Which pen the presenter has in hand on the slide: the toolbar `pens_TB`, and the older controls below it.
/// The two are not equal: the older ones choose a colour without taking the pen up, or show the arrow without
/// putting it down, and each command does just what it says here. Works in every state of a recording.
/// Nothing throws.
class SlideInk {
  public:
    struct Ports {
        session::MainWindow& window;
        ImageSurface& slide_img;
        SlidePen& pen;
        SlideViewer& viewer;
        /// Folder of the cursor "draw.cur".
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit SlideInk(const Ports& ports) : m_ports(ports) {}

    /// "arrow", "black", "blue", "red" or "eraser". Every button of the toolbar, whatever its key, sets the
    /// width back to 2 first; a step that fails ends the command there.
    void pens_TB_ButtonClick(std::string_view key);

    /// The older controls `Option7` to `Option13`, by their number: 7, 8 and 9 choose colour and cursor
    /// alone, 10, 11 and 12 the widths 1, 4 and 7, and 13 shows the arrow's cursor alone, so that a pen in
    /// hand still draws.
    void Option_Click(int number);
    /// Wipes the ink, as the key "eraser" does, and leaves the width as it is.
    void Command10_Click();
    /// An empty command, which no control reaches.
    void EraseDraw() {}

  private:
    void showPen(base::Colour colour);

    Ports m_ports;
};

} // namespace quillora::deck
