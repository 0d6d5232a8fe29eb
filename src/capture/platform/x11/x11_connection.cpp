#include "capture/platform/x11/x11_connection.h"

#include "capture/platform/x11/display_socket.h"

#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>

#include <stdexcept>

namespace quillora::capture {
namespace {

xcb_connection_t* connectTo(int socket, DisplayAuthorisation authorisation)
{
    if (authorisation.data.empty())
        return xcb_connect_to_fd(socket, nullptr);
    xcb_auth_info_t information{};
    information.name = authorisation.protocol.data();
    information.namelen = static_cast<int>(authorisation.protocol.size());
    information.data = authorisation.data.data();
    information.datalen = static_cast<int>(authorisation.data.size());
    return xcb_connect_to_fd(socket, &information);
}

const xcb_screen_t* screenOf(const xcb_setup_t& setup, int number)
{
    auto screens = xcb_setup_roots_iterator(&setup);
    for (int skipped = 0; skipped < number && screens.rem > 0; ++skipped)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

std::optional<std::uint8_t> firstEvent(xcb_connection_t* connection, xcb_extension_t* extension)
{
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(connection, extension);
    if (!data || !data->present)
        return std::nullopt;
    return data->first_event;
}

} // namespace

X11Connection::X11Connection(const std::optional<std::string>& displayName,
                             ConnectionWatchdog::Clock::time_point since)
{
    const DisplayName name = parseDisplayName(displayName);
    const int socket = openDisplaySocket(name);
    const bool local = isLocalSocket(socket);
    m_watchdog = std::make_unique<ConnectionWatchdog>(socket);
    const ConnectionWatchdog::Stretch stretch(*m_watchdog, since);
    m_connection.reset(connectTo(socket, displayAuthorisation(name, socket)));
    check();
    const xcb_setup_t& setup = *xcb_get_setup(get());
    m_screen = screenOf(setup, name.screen);
    if (!m_screen)
        throw std::runtime_error("the display has no screen " + std::to_string(name.screen));
    m_layout = pixelLayoutOf(setup, *m_screen);
    findExtensions(local);
}

void X11Connection::findExtensions(bool local)
{
    for (xcb_extension_t* extension : {&xcb_damage_id, &xcb_xfixes_id, &xcb_randr_id, &xcb_shm_id})
        xcb_prefetch_extension_data(get(), extension);
    m_extensions.damage = firstEvent(get(), &xcb_damage_id);
    m_extensions.xfixes = firstEvent(get(), &xcb_xfixes_id);
    m_extensions.randr = firstEvent(get(), &xcb_randr_id);
    const bool sharedMemory = local && firstEvent(get(), &xcb_shm_id);

    // Servers refuse the extensions' other requests until they have been told which version a client speaks.
    if (m_extensions.damage)
        expect(xcb_damage_query_version_reply(get(), xcb_damage_query_version(get(), 1, 1), nullptr));
    if (m_extensions.xfixes)
        expect(xcb_xfixes_query_version_reply(get(), xcb_xfixes_query_version(get(), 4, 0), nullptr));
    if (m_extensions.randr)
        expect(xcb_randr_query_version_reply(get(), xcb_randr_query_version(get(), 1, 2), nullptr));
    if (sharedMemory) {
        const auto version =
            expect(xcb_shm_query_version_reply(get(), xcb_shm_query_version(get()), nullptr));
        m_extensions.sharedMemory =
            version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2);
    }
}

void X11Connection::throwLost() const { throw std::runtime_error("the display is gone or doesn't answer"); }

} // namespace quillora::capture
