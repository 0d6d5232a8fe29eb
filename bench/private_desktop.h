#pragma once

#include "tests/support/child_process.h"
#include "tests/support/private_x_server.h"

#include <QPoint>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace quillora::bench {

/// A display with a window manager that nobody else looks at. Made before the application, which finds it in
/// the environment.
class PrivateDesktop {
  public:
    PrivateDesktop()
    {
        ::setenv("DISPLAY", m_server.display().c_str(), 1);
        ::setenv("QT_QPA_PLATFORM", "xcb", 1);
        m_windowManager =
            std::make_unique<tests::ChildProcess>(std::vector<std::string>{"openbox", "--sm-disable"});
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }

  private:
    tests::PrivateXServer m_server{{.width = 1280, .height = 1024}};
    std::unique_ptr<tests::ChildProcess> m_windowManager;
};

/// A presenter's hands and eyes: a connection to the display that is not the program's.
class HandsAndEyes {
  public:
    HandsAndEyes() : m_display(xcb_connect(nullptr, nullptr))
    {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data->root;
    }
    ~HandsAndEyes() { xcb_disconnect(m_display); }
    HandsAndEyes(const HandsAndEyes&) = delete;
    HandsAndEyes& operator=(const HandsAndEyes&) = delete;

    /// An event of a device, such as XCB_KEY_PRESS with a keycode, or XCB_MOTION_NOTIFY with a place of the
    /// screen.
    void fake(std::uint8_t type, std::uint8_t detail, QPoint at = {})
    {
        xcb_test_fake_input(m_display, type, detail, XCB_CURRENT_TIME, m_root, std::int16_t(at.x()),
                            std::int16_t(at.y()), 0);
        xcb_flush(m_display);
    }

    /// 0xRRGGBB of a place of the screen.
    std::uint32_t pixel(QPoint at)
    {
        const auto cookie = xcb_get_image(m_display, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, std::int16_t(at.x()),
                                          std::int16_t(at.y()), 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply{
            xcb_get_image_reply(m_display, cookie, nullptr), &std::free};
        std::uint32_t value = 0;
        if (reply)
            std::copy_n(xcb_get_image_data(reply.get()), 4, reinterpret_cast<std::uint8_t*>(&value));
        return value & 0xFFFFFFU;
    }

  private:
    xcb_connection_t* m_display;
    xcb_window_t m_root = 0;
};

} // namespace quillora::bench
