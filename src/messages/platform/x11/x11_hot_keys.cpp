#include "messages/platform/x11/x11_hot_keys.h"

#include <algorithm>
#include <cerrno>

namespace quillora::messages {
namespace {

constexpr std::uint8_t kEventKind = 0x7F;

KeyConnection::Clock::time_point soon() { return KeyConnection::Clock::now() + KeyConnection::kPatience; }

} // namespace

X11HotKeys::X11HotKeys(MessageQueue& queue, const std::optional<std::string>& display)
    : m_queue(queue), m_connection(display)
{}

bool X11HotKeys::RegisterHotKey(WindowHandle window, std::int32_t id, std::uint32_t eModifiers,
                                std::uint32_t eKey)
{
    if (m_connection.broken()) {
        errno = ENOTCONN;
        return false;
    }
    // The server has nothing against one program grabbing a key twice.
    const auto taken = std::ranges::any_of(
        m_keys, [&](const HotKey& each) { return each.modifiers == eModifiers && each.key == eKey; });
    if (taken) {
        errno = EEXIST;
        return false;
    }
    const auto deadline = soon();
    HotKey key{window, id, eModifiers, eKey};
    key.grabbed = grab(key, KeyboardMap(m_connection, deadline), deadline);
    const bool grabbed = !key.grabbed.empty();
    if (grabbed)
        m_keys.push_back(key);
    // Waiting for answers has taken events off the socket that nothing else would tell of.
    process(deadline);
    errno = grabbed ? 0 : EACCES;
    return grabbed;
}

bool X11HotKeys::UnregisterHotKey(WindowHandle window, std::int32_t id)
{
    const auto found = std::ranges::find_if(
        m_keys, [&](const HotKey& each) { return each.window == window && each.id == id; });
    if (found == m_keys.end()) {
        errno = ENOENT;
        return false;
    }
    ungrab(found->grabbed);
    m_keys.erase(found);
    // Another program that is told of the key's release by us must find it released.
    const auto deadline = soon();
    if (!m_connection.broken())
        m_connection.synchronise(deadline);
    process(deadline);
    return true;
}

int X11HotKeys::descriptor() const
{
    return m_connection.broken() ? -1 : xcb_get_file_descriptor(m_connection.get());
}

void X11HotKeys::processEvents() { process(soon()); }

void X11HotKeys::process(KeyConnection::Clock::time_point deadline)
{
    readEvents();
    // After the events that are there, since one change of keyboard comes as a dozen of them.
    while (m_keyboardChanged && grabAnew(deadline))
        readEvents();
}

void X11HotKeys::readEvents()
{
    while (!m_connection.broken()) {
        const XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection.get()));
        if (!event)
            return;
        switch (event->response_type & kEventKind) {
        case XCB_KEY_PRESS:
            take(reinterpret_cast<const xcb_key_press_event_t&>(*event));
            break;
        case XCB_KEY_RELEASE: {
            const auto& release = reinterpret_cast<const xcb_key_release_event_t&>(*event);
            m_lastRelease = {release.detail, release.time};
            break;
        }
        case XCB_MAPPING_NOTIFY:
            m_keyboardChanged = true;
            break;
        default:
            break;
        }
    }
}

void X11HotKeys::take(const xcb_key_press_event_t& press)
{
    // A key that is held is released and pressed again by the server, both at one moment.
    if (m_lastRelease.code == press.detail && m_lastRelease.time == press.time)
        return;
    for (const HotKey& key : m_keys) {
        const bool meant = std::ranges::any_of(key.grabbed, [&](const Combination& each) {
            return each.code == press.detail && each.mask == (press.state & 0xFF);
        });
        if (meant)
            m_queue.post({.hwnd = key.window,
                          .iMsg = kHotKeyMessage,
                          .wParam = key.id,
                          .lParam = static_cast<Parameter>((key.key << 16) | key.modifiers)});
    }
}

/// All combinations that the key comes in, or none when another program holds one of them.
std::vector<X11HotKeys::Combination> X11HotKeys::grab(const HotKey& key, const KeyboardMap& map,
                                                      KeyConnection::Clock::time_point deadline) const
{
    std::vector<Combination> combinations;
    std::vector<xcb_void_cookie_t> requests;
    const std::uint16_t mask = map.maskOf(key.modifiers);
    for (const xcb_keycode_t code : map.codesOf(key.key))
        for (const std::uint16_t locks : map.lockStates()) {
            const Combination each{code, static_cast<std::uint16_t>(mask | locks)};
            combinations.push_back(each);
            requests.push_back(xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(), each.mask,
                                                    each.code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    // That a request without a reply went well shows by a reply to a later one.
    bool all = m_connection.synchronise(deadline);
    for (const xcb_void_cookie_t request : requests)
        all = m_connection.succeeded(request, deadline) && all;
    if (all)
        return combinations;
    ungrab(combinations);
    return {};
}

void X11HotKeys::ungrab(const std::vector<Combination>& combinations) const
{
    if (m_connection.broken())
        return;
    for (const Combination& each : combinations)
        xcb_ungrab_key(m_connection.get(), each.code, m_connection.root(), each.mask);
    xcb_flush(m_connection.get());
}

/// False when the server was too slow to tell where the keys are now, or whether they could be had. It is
/// tried again when the server has caught up, for nothing else would: the keyboard may stay as it is for
/// ever.
bool X11HotKeys::grabAnew(KeyConnection::Clock::time_point deadline)
{
    if (m_connection.broken())
        return false;
    const KeyboardMap map(m_connection, deadline);
    if (map.known())
        for (HotKey& key : m_keys) {
            ungrab(key.grabbed);
            key.grabbed = grab(key, map, deadline);
        }
    m_keyboardChanged = KeyConnection::Clock::now() >= deadline;
    if (m_keyboardChanged)
        m_connection.askForSignOfLife();
    return !m_keyboardChanged;
}

} // namespace quillora::messages
