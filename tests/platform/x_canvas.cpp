#include "tests/platform/x_canvas.h"

#include <xcb/randr.h>
#include <xcb/render.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <stdexcept>

namespace quillora::tests {
namespace {

/// The render extension's format of 32 bits with alpha.
xcb_render_pictformat_t alphaFormat(xcb_connection_t* connection)
{
    auto* formats =
        xcb_render_query_pict_formats_reply(connection, xcb_render_query_pict_formats(connection), nullptr);
    if (!formats)
        throw std::runtime_error("the X server has no render extension");
    xcb_render_pictformat_t found = 0;
    for (auto each = xcb_render_query_pict_formats_formats_iterator(formats); each.rem;
         xcb_render_pictforminfo_next(&each)) {
        const xcb_render_directformat_t& direct = each.data->direct;
        if (each.data->depth == 32 && direct.alpha_mask == 0xff && direct.alpha_shift == 24 &&
            direct.red_shift == 16 && direct.green_shift == 8 && direct.blue_shift == 0)
            found = each.data->id;
    }
    std::free(formats);
    return found;
}

} // namespace

XCanvas::XCanvas(const std::string& display) : m_connection(xcb_connect(display.c_str(), nullptr))
{
    if (xcb_connection_has_error(m_connection)) {
        xcb_disconnect(m_connection);
        throw std::runtime_error("no X server on " + display);
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_context = xcb_generate_id(m_connection);
    const std::uint32_t overWindows = XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS;
    xcb_create_gc(m_connection, m_context, m_root, XCB_GC_SUBWINDOW_MODE, &overWindows);
}

XCanvas::~XCanvas() { xcb_disconnect(m_connection); }

void XCanvas::fill(const capture::PixelRectangle& area, std::uint32_t colour)
{
    xcb_change_gc(m_connection, m_context, XCB_GC_FOREGROUND, &colour);
    const xcb_rectangle_t rectangle{static_cast<std::int16_t>(area.left), static_cast<std::int16_t>(area.top),
                                    static_cast<std::uint16_t>(area.width),
                                    static_cast<std::uint16_t>(area.height)};
    xcb_poly_fill_rectangle(m_connection, m_root, m_context, 1, &rectangle);
    finish();
}

void XCanvas::resizeScreen(int width, int height)
{
    auto* resources = xcb_randr_get_screen_resources_reply(
        m_connection, xcb_randr_get_screen_resources(m_connection, m_root), nullptr);
    if (!resources)
        throw std::runtime_error("the X server can't change the size of its screen");
    // The screen may not be smaller than what is shown of it: nothing.
    const xcb_randr_crtc_t* shown = xcb_randr_get_screen_resources_crtcs(resources);
    for (int index = 0; index < resources->num_crtcs; ++index)
        std::free(xcb_randr_set_crtc_config_reply(
            m_connection,
            xcb_randr_set_crtc_config(m_connection, shown[index], XCB_CURRENT_TIME,
                                      resources->config_timestamp, 0, 0, XCB_NONE,
                                      XCB_RANDR_ROTATION_ROTATE_0, 0, nullptr),
            nullptr));
    std::free(resources);
    constexpr std::uint32_t anyMillimetres = 100;
    xcb_randr_set_screen_size(m_connection, m_root, static_cast<std::uint16_t>(width),
                              static_cast<std::uint16_t>(height), anyMillimetres, anyMillimetres);
    finish();
}

void XCanvas::movePointer(int x, int y)
{
    xcb_warp_pointer(m_connection, XCB_NONE, m_root, 0, 0, 0, 0, static_cast<std::int16_t>(x),
                     static_cast<std::int16_t>(y));
    finish();
}

void XCanvas::setCursor(int width, int height, capture::PixelPoint hotSpot, std::vector<std::uint32_t> pixels)
{
    const auto columns = static_cast<std::uint16_t>(width);
    const auto rows = static_cast<std::uint16_t>(height);
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, 32, pixmap, m_root, columns, rows);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, columns, rows, 0, 0, 0, 32,
                  static_cast<std::uint32_t>(4 * pixels.size()),
                  reinterpret_cast<const std::uint8_t*>(pixels.data()));
    const xcb_render_picture_t picture = xcb_generate_id(m_connection);
    xcb_render_create_picture(m_connection, picture, pixmap, alphaFormat(m_connection), 0, nullptr);
    const xcb_cursor_t cursor = xcb_generate_id(m_connection);
    xcb_render_create_cursor(m_connection, cursor, picture, static_cast<std::uint16_t>(hotSpot.x),
                             static_cast<std::uint16_t>(hotSpot.y));
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_CURSOR, &cursor);
    xcb_free_cursor(m_connection, cursor);
    xcb_render_free_picture(m_connection, picture);
    xcb_free_gc(m_connection, context);
    xcb_free_pixmap(m_connection, pixmap);
    finish();
}

void XCanvas::finish()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace quillora::tests
