#include "tests/forms/x11_hand.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdlib>
#include <stdexcept>

namespace quillora::tests {

X11Hand::X11Hand() : m_display(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_display))
        throw std::runtime_error("no display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data->root;
}

X11Hand::~X11Hand() { xcb_disconnect(m_display); }

void X11Hand::move(QPoint screen) { send(XCB_MOTION_NOTIFY, 0, screen); }

void X11Hand::press(Button button) { send(XCB_BUTTON_PRESS, std::uint8_t(button), {}); }

void X11Hand::release(Button button) { send(XCB_BUTTON_RELEASE, std::uint8_t(button), {}); }

void X11Hand::done()
{
    std::free(xcb_get_input_focus_reply(m_display, xcb_get_input_focus(m_display), nullptr));
}

void X11Hand::send(std::uint8_t kind, std::uint8_t detail, QPoint screen)
{
    xcb_test_fake_input(m_display, kind, detail, XCB_CURRENT_TIME, m_root, std::int16_t(screen.x()),
                        std::int16_t(screen.y()), 0);
}

} // namespace quillora::tests
