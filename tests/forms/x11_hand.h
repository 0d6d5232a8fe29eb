#pragma once

#include <QPoint>

#include <cstdint>

struct xcb_connection_t;

namespace quillora::tests {

/// A hand on the display's real pointer, over a connection of its own: what it does goes through the X
/// server and the window manager, as a presenter's mouse does.
class X11Hand {
  public:
    enum class Button : std::uint8_t { left = 1, middle = 2, right = 3 };

    X11Hand();
    ~X11Hand();
    X11Hand(const X11Hand&) = delete;
    X11Hand& operator=(const X11Hand&) = delete;

    /// To a place on the screen. Nothing is sent before the next lift of the hand: see done().
    void move(QPoint screen);
    void press(Button button = Button::left);
    void release(Button button = Button::left);
    /// The X server has taken all of it when this returns; the program may still have it before it.
    void done();

  private:
    void send(std::uint8_t kind, std::uint8_t detail, QPoint screen);

    xcb_connection_t* m_display;
    std::uint32_t m_root = 0;
};

} // namespace quillora::tests
