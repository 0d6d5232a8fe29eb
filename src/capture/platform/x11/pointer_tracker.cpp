#include "capture/platform/x11/pointer_tracker.h"

#include <xcb/xfixes.h>

namespace quillora::capture {
namespace {

bool hasAllPixels(const xcb_xfixes_get_cursor_image_reply_t& reply)
{
    return xcb_xfixes_get_cursor_image_cursor_image_length(&reply) == reply.width * reply.height;
}

} // namespace

PointerTracker::PointerTracker(const X11Connection& connection) : m_connection(connection)
{
    if (m_connection.extensions().xfixes)
        xcb_xfixes_select_cursor_input(m_connection.get(), m_connection.root(),
                                       XCB_XFIXES_CURSOR_NOTIFY_MASK_DISPLAY_CURSOR);
}

std::optional<PixelPoint> PointerTracker::position() const
{
    const auto request = xcb_query_pointer(m_connection.get(), m_connection.root());
    const auto reply = m_connection.expect(xcb_query_pointer_reply(m_connection.get(), request, nullptr));
    if (!reply->same_screen)
        return std::nullopt;
    return PixelPoint{reply->root_x, reply->root_y};
}

void PointerTracker::handleEvent(const xcb_generic_event_t& event)
{
    const auto first = m_connection.extensions().xfixes;
    if (first && (event.response_type & 0x7f) == *first + XCB_XFIXES_CURSOR_NOTIFY)
        m_stale = true;
}

const CursorImage& PointerTracker::image()
{
    if (!m_stale || !m_connection.extensions().xfixes)
        return m_image;
    // The server has no picture to give while it shows no cursor, and says so by an error.
    xcb_generic_error_t* failure = nullptr;
    const auto request = xcb_xfixes_get_cursor_image(m_connection.get());
    const XcbPointer<xcb_xfixes_get_cursor_image_reply_t> reply(
        xcb_xfixes_get_cursor_image_reply(m_connection.get(), request, &failure));
    const XcbPointer<xcb_generic_error_t> error(failure);
    m_connection.check();
    m_image = {};
    if (reply && hasAllPixels(*reply)) {
        const std::uint32_t* pixels = xcb_xfixes_get_cursor_image_cursor_image(reply.get());
        m_image = {reply->width,
                   reply->height,
                   {reply->xhot, reply->yhot},
                   {pixels, pixels + xcb_xfixes_get_cursor_image_cursor_image_length(reply.get())}};
    }
    m_stale = false;
    return m_image;
}

} // namespace quillora::capture
