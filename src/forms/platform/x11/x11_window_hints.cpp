#include "forms/platform/x11/x11_window_hints.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace quillora::forms {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// The application's own connection; null on another platform.
xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* display, std::string_view name)
{
    const auto cookie = xcb_intern_atom(display, 0, std::uint16_t(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(display, cookie, nullptr)};
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t rootOf(xcb_connection_t* display, xcb_window_t window)
{
    const Reply<xcb_query_tree_reply_t> tree{
        xcb_query_tree_reply(display, xcb_query_tree(display, window), nullptr)};
    return tree ? tree->root : xcb_window_t(XCB_WINDOW_NONE);
}

/// The property _MOTIF_WM_HINTS, which window managers still honour.
struct MotifHints {
    std::uint32_t flags = 0;
    std::uint32_t functions = 0;
    std::uint32_t decorations = 0;
    std::int32_t inputMode = 0;
    std::uint32_t status = 0;
};
constexpr std::uint32_t kHasFunctions = 1U << 0;
constexpr std::uint32_t kResize = 1U << 1;
constexpr std::uint32_t kMove = 1U << 2;
constexpr std::uint32_t kMinimize = 1U << 3;
constexpr std::uint32_t kMaximize = 1U << 4;
constexpr std::uint32_t kClose = 1U << 5;
constexpr std::uint32_t kMotifHintsLength = sizeof(MotifHints) / 4;

/// The toolkit has written hints about decorations there; they must stay.
MotifHints readMotifHints(xcb_connection_t* display, xcb_window_t window, xcb_atom_t property)
{
    const auto cookie = xcb_get_property(display, 0, window, property, property, 0, kMotifHintsLength);
    const Reply<xcb_get_property_reply_t> reply{xcb_get_property_reply(display, cookie, nullptr)};
    MotifHints hints;
    if (reply && reply->format == 32 && xcb_get_property_value_length(reply.get()) == int(sizeof hints))
        std::memcpy(&hints, xcb_get_property_value(reply.get()), sizeof hints);
    return hints;
}

} // namespace

void X11WindowHints::setStacking(QWindow& window, Stacking stacking)
{
    xcb_connection_t* display = connection();
    if (display == nullptr)
        return;
    const auto id = xcb_window_t(window.winId());
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = atom(display, "_NET_WM_STATE");
    constexpr std::uint32_t kRemove = 0;
    constexpr std::uint32_t kAdd = 1;
    constexpr std::uint32_t kFromApplication = 1;
    message.data.data32[0] = stacking == Stacking::above ? kAdd : kRemove;
    message.data.data32[1] = atom(display, "_NET_WM_STATE_ABOVE");
    message.data.data32[3] = kFromApplication;
    xcb_send_event(display, 0, rootOf(display, id),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display);
}

void X11WindowHints::setFunctions(QWindow& window, MinimizeBox minimizeBox, Move move)
{
    xcb_connection_t* display = connection();
    if (display == nullptr)
        return;
    const auto id = xcb_window_t(window.winId());
    const xcb_atom_t property = atom(display, "_MOTIF_WM_HINTS");
    MotifHints hints = readMotifHints(display, id, property);
    hints.flags |= kHasFunctions;
    hints.functions = kResize | kMaximize | kClose;
    if (minimizeBox == MinimizeBox::present)
        hints.functions |= kMinimize;
    if (move == Move::allowed)
        hints.functions |= kMove;
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, id, property, property, 32, kMotifHintsLength,
                        &hints);
    xcb_flush(display);
}

std::optional<QPoint> X11WindowHints::originOnScreen(QWindow& window)
{
    xcb_connection_t* display = connection();
    if (display == nullptr)
        return std::nullopt;
    const auto id = xcb_window_t(window.winId());
    const auto cookie = xcb_translate_coordinates(display, id, rootOf(display, id), 0, 0);
    const Reply<xcb_translate_coordinates_reply_t> reply{
        xcb_translate_coordinates_reply(display, cookie, nullptr)};
    if (!reply)
        return std::nullopt;
    return QPoint(reply->dst_x, reply->dst_y);
}

std::uint32_t X11WindowHints::frameOf(QWindow& window)
{
    xcb_connection_t* display = connection();
    if (display == nullptr)
        return XCB_WINDOW_NONE;
    auto frame = xcb_window_t(window.winId());
    for (;;) {
        const Reply<xcb_query_tree_reply_t> tree{
            xcb_query_tree_reply(display, xcb_query_tree(display, frame), nullptr)};
        if (!tree || tree->parent == tree->root || tree->parent == XCB_WINDOW_NONE)
            return frame;
        frame = tree->parent;
    }
}

bool X11WindowHints::isViewable(std::uint32_t frame)
{
    xcb_connection_t* display = connection();
    if (display == nullptr || frame == XCB_WINDOW_NONE)
        return false;
    // A frame that its window manager has done away with gives an error, which is an answer.
    xcb_generic_error_t* error = nullptr;
    const auto cookie = xcb_get_window_attributes(display, frame);
    const Reply<xcb_get_window_attributes_reply_t> reply{
        xcb_get_window_attributes_reply(display, cookie, &error)};
    const Reply<xcb_generic_error_t> freed{error};
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace quillora::forms
