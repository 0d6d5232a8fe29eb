#include "tests/platform/key_presser.h"

#include "tests/support/child_process.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>

namespace quillora::tests {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Held = std::unique_ptr<T, Free>;

constexpr xcb_keysym_t kNumLock = 0xFF7F;

xcb_keysym_t symbolNamed(const std::string& key)
{
    static const std::map<std::string, xcb_keysym_t> names{
        {"Control_L", 0xFFE3}, {"Shift_L", 0xFFE1}, {"Alt_L", 0xFFE9}, {"Num_Lock", kNumLock},
        {"Caps_Lock", 0xFFE5}, {"Print", 0xFF61},   {"F1", 0xFFBE},    {"F12", 0xFFC9}};
    if (const auto found = names.find(key); found != names.end())
        return found->second;
    return static_cast<unsigned char>(key.at(0));
}

xcb_connection_t* connectTo(const std::string& display, std::uint32_t& root)
{
    xcb_connection_t* connection = xcb_connect(display.c_str(), nullptr);
    if (xcb_connection_has_error(connection))
        throw std::runtime_error("no display " + display);
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    return connection;
}

void finishOn(xcb_connection_t* connection)
{
    const Held<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

KeyPresser::KeyPresser(const std::string& display)
    : m_display(display), m_connection(connectTo(display, m_root))
{}

KeyPresser::~KeyPresser() { xcb_disconnect(m_connection); }

void KeyPresser::press(const std::vector<std::string>& keys)
{
    down(keys);
    up({keys.rbegin(), keys.rend()});
}

void KeyPresser::pressCodes(const std::vector<std::uint8_t>& codes)
{
    for (const std::uint8_t code : codes)
        fake(XCB_KEY_PRESS, code);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code)
        fake(XCB_KEY_RELEASE, *code);
}

void KeyPresser::down(const std::vector<std::string>& keys)
{
    for (const std::string& key : keys)
        fake(XCB_KEY_PRESS, codeOf(key));
}

void KeyPresser::up(const std::vector<std::string>& keys)
{
    for (const std::string& key : keys)
        fake(XCB_KEY_RELEASE, codeOf(key));
}

std::uint8_t KeyPresser::codeOf(const std::string& key) const
{
    const xcb_keysym_t symbol = symbolNamed(key);
    const xcb_setup_t& setup = *xcb_get_setup(m_connection);
    for (int code = setup.min_keycode; code <= setup.max_keycode; ++code) {
        const auto symbols = symbolsOf(static_cast<std::uint8_t>(code)).second;
        if (std::ranges::find(symbols, symbol) != symbols.end())
            return static_cast<std::uint8_t>(code);
    }
    return 0;
}

unsigned KeyPresser::state() const
{
    const Held<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr));
    return reply ? reply->mask : 0;
}

void KeyPresser::swapSymbols(const std::string& one, const std::string& other)
{
    const std::uint8_t oneCode = codeOf(one);
    const std::uint8_t otherCode = codeOf(other);
    const auto [count, oneSymbols] = symbolsOf(oneCode);
    const auto otherSymbols = symbolsOf(otherCode).second;
    xcb_change_keyboard_mapping(m_connection, 1, oneCode, count, otherSymbols.data());
    xcb_change_keyboard_mapping(m_connection, 1, otherCode, count, oneSymbols.data());
    finish();
}

void KeyPresser::moveNumLockTo(Modifier modifier)
{
    const std::uint8_t numLock = codeOf("Num_Lock");
    const Held<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const int perModifier = reply->keycodes_per_modifier;
    std::vector<xcb_keycode_t> codes(xcb_get_modifier_mapping_keycodes(reply.get()),
                                     xcb_get_modifier_mapping_keycodes(reply.get()) + 8 * perModifier);
    std::ranges::replace(codes, numLock, xcb_keycode_t{0});
    const auto first = codes.begin() + static_cast<int>(modifier) * perModifier;
    std::fill(first, first + perModifier, xcb_keycode_t{0});
    *first = numLock;
    const Held<xcb_set_modifier_mapping_reply_t> answer(xcb_set_modifier_mapping_reply(
        m_connection,
        xcb_set_modifier_mapping(m_connection, static_cast<std::uint8_t>(perModifier), codes.data()),
        nullptr));
    if (!answer || answer->status != XCB_MAPPING_STATUS_SUCCESS)
        throw std::runtime_error("the modifiers can't be changed");
}

void KeyPresser::useLayout(const std::string& layout)
{
    if (runToEnd({"setxkbmap", "-display", m_display, "-layout", layout}) != 0)
        throw std::runtime_error("the display doesn't take the layout " + layout);
}

void KeyPresser::grab(const std::string& key, unsigned mask)
{
    xcb_grab_key(m_connection, 0, m_root, static_cast<std::uint16_t>(mask), codeOf(key), XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    finish();
}

void KeyPresser::ungrabAll()
{
    xcb_ungrab_key(m_connection, XCB_GRAB_ANY, m_root, XCB_MOD_MASK_ANY);
    finish();
}

void KeyPresser::fake(std::uint8_t kind, std::uint8_t code)
{
    xcb_test_fake_input(m_connection, kind, code, XCB_CURRENT_TIME, m_root, 0, 0, 0);
    finish();
}

void KeyPresser::finish() const { finishOn(m_connection); }

std::pair<std::uint8_t, std::vector<std::uint32_t>> KeyPresser::symbolsOf(std::uint8_t code) const
{
    const Held<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, code, 1), nullptr));
    if (!reply)
        return {};
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    return {reply->keysyms_per_keycode, {symbols, symbols + reply->keysyms_per_keycode}};
}

FocusedWindow::FocusedWindow(const std::string& display)
{
    std::uint32_t root = 0;
    m_connection = connectTo(display, root);
    m_window = xcb_generate_id(m_connection);
    const std::uint32_t wanted[] = {XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, root, 10, 10, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, wanted);
    xcb_map_window(m_connection, m_window);
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    finishOn(m_connection);
}

FocusedWindow::~FocusedWindow() { xcb_disconnect(m_connection); }

bool FocusedWindow::hasFocus() const
{
    const Held<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply && reply->focus == m_window;
}

int FocusedWindow::keyPresses(std::uint8_t code)
{
    finishOn(m_connection);
    while (const Held<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
        if ((event->response_type & 0x7F) == XCB_KEY_PRESS)
            m_codes.push_back(reinterpret_cast<const xcb_key_press_event_t&>(*event).detail);
    return static_cast<int>(std::ranges::count(m_codes, code));
}

} // namespace quillora::tests
