#include "tests/forms/x11_probe.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace quillora::tests {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
std::unique_ptr<T, FreeReply> held(T* reply)
{
    return std::unique_ptr<T, FreeReply>(reply);
}

} // namespace

X11Probe::X11Probe() : m_display(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_display))
        throw std::runtime_error("no display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data->root;
}

X11Probe::~X11Probe() { xcb_disconnect(m_display); }

std::uint32_t X11Probe::atom(const char* name) const
{
    const auto cookie = xcb_intern_atom(m_display, 0, std::uint16_t(std::strlen(name)), name);
    const auto reply = held(xcb_intern_atom_reply(m_display, cookie, nullptr));
    return reply ? reply->atom : 0;
}

bool X11Probe::hasWindowManager() const
{
    const auto cookie =
        xcb_get_property(m_display, 0, m_root, atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 0, 1);
    const auto reply = held(xcb_get_property_reply(m_display, cookie, nullptr));
    return reply && xcb_get_property_value_length(reply.get()) == 4;
}

std::vector<std::string> X11Probe::atomList(std::uint32_t window, const char* property) const
{
    const auto cookie = xcb_get_property(m_display, 0, window, atom(property), XCB_ATOM_ATOM, 0, 64);
    const auto reply = held(xcb_get_property_reply(m_display, cookie, nullptr));
    std::vector<std::string> names;
    if (!reply)
        return names;
    const auto* atoms = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    const int count = xcb_get_property_value_length(reply.get()) / 4;
    for (int i = 0; i < count; ++i) {
        const auto name =
            held(xcb_get_atom_name_reply(m_display, xcb_get_atom_name(m_display, atoms[i]), nullptr));
        if (name)
            names.emplace_back(xcb_get_atom_name_name(name.get()),
                               std::size_t(xcb_get_atom_name_name_length(name.get())));
    }
    return names;
}

std::uint32_t X11Probe::motifFunctions(std::uint32_t window) const
{
    const auto cookie = xcb_get_property(m_display, 0, window, atom("_MOTIF_WM_HINTS"), XCB_ATOM_ANY, 0, 5);
    const auto reply = held(xcb_get_property_reply(m_display, cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != 20)
        return 0;
    const auto* words = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    constexpr std::uint32_t kHasFunctions = 1;
    return (words[0] & kHasFunctions) != 0 ? words[1] : 0;
}

QRect X11Probe::geometry(std::uint32_t window) const
{
    const auto size = held(xcb_get_geometry_reply(m_display, xcb_get_geometry(m_display, window), nullptr));
    const auto place = held(xcb_translate_coordinates_reply(
        m_display, xcb_translate_coordinates(m_display, window, m_root, 0, 0), nullptr));
    if (!size || !place)
        return {};
    return {place->dst_x, place->dst_y, size->width, size->height};
}

bool X11Probe::isMapped(std::uint32_t window) const
{
    const auto reply = held(
        xcb_get_window_attributes_reply(m_display, xcb_get_window_attributes(m_display, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::uint32_t X11Probe::focusedWindow() const
{
    const auto reply = held(xcb_get_input_focus_reply(m_display, xcb_get_input_focus(m_display), nullptr));
    return reply ? reply->focus : 0;
}

QImage X11Probe::grab(const QRect& area) const
{
    const auto cookie =
        xcb_get_image(m_display, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, std::int16_t(area.x()),
                      std::int16_t(area.y()), std::uint16_t(area.width()), std::uint16_t(area.height()), ~0U);
    const auto reply = held(xcb_get_image_reply(m_display, cookie, nullptr));
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

void X11Probe::watchUnmapping(std::uint32_t window)
{
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    held(xcb_request_check(
        m_display, xcb_change_window_attributes_checked(m_display, window, XCB_CW_EVENT_MASK, &events)));
}

int X11Probe::unmappings()
{
    held(xcb_get_input_focus_reply(m_display, xcb_get_input_focus(m_display), nullptr));
    int count = 0;
    while (const auto event = held(xcb_poll_for_event(m_display))) {
        if ((event->response_type & 0x7F) == XCB_UNMAP_NOTIFY)
            ++count;
    }
    return count;
}

} // namespace quillora::tests
