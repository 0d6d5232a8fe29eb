#include "tests/forms/neighbour_window.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <poll.h>

namespace quillora::tests {

NeighbourWindow::NeighbourWindow(std::uint32_t colour, int drawsAfterMilliseconds)
    : m_drawsAfterMilliseconds(drawsAfterMilliseconds), m_display(xcb_connect(nullptr, nullptr))
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data;
    m_window = xcb_generate_id(m_display);
    // No background: what is uncovered keeps the pixels of what covered it until this program draws.
    const std::uint32_t values[] = {XCB_BACK_PIXMAP_NONE, 1, XCB_EVENT_MASK_EXPOSURE};
    xcb_create_window(m_display, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, screen->width_in_pixels,
                      screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    m_context = xcb_generate_id(m_display);
    xcb_create_gc(m_display, m_context, m_window, XCB_GC_FOREGROUND, &colour);
    const std::uint32_t below[] = {XCB_STACK_MODE_BELOW};
    xcb_configure_window(m_display, m_window, XCB_CONFIG_WINDOW_STACK_MODE, below);
    xcb_map_window(m_display, m_window);
    draw();
    m_thread = std::jthread([this](const std::stop_token& stop) {
        pollfd descriptor{.fd = xcb_get_file_descriptor(m_display), .events = POLLIN, .revents = 0};
        while (!stop.stop_requested()) {
            bool uncovered = false;
            while (auto* event = xcb_poll_for_event(m_display)) {
                uncovered |= (event->response_type & 0x7F) == XCB_EXPOSE;
                std::free(event);
            }
            if (uncovered) {
                std::this_thread::sleep_for(std::chrono::milliseconds(m_drawsAfterMilliseconds));
                draw();
            }
            ::poll(&descriptor, 1, 10);
        }
    });
}

NeighbourWindow::~NeighbourWindow()
{
    m_thread.request_stop();
    m_thread.join();
    xcb_disconnect(m_display);
}

void NeighbourWindow::draw()
{
    const xcb_rectangle_t whole{0, 0, UINT16_MAX, UINT16_MAX};
    xcb_poly_fill_rectangle(m_display, m_window, m_context, 1, &whole);
    std::free(xcb_get_input_focus_reply(m_display, xcb_get_input_focus(m_display), nullptr));
}

} // namespace quillora::tests
