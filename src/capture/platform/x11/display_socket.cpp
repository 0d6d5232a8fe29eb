#include "capture/platform/x11/display_socket.h"

#include <X11/Xauth.h>
#include <xcb/xcb.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillora::capture {
namespace {

constexpr int kFirstPort = 6000;
constexpr int kConnectPatienceMs = 500;
constexpr std::string_view kCookieProtocol = "MIT-MAGIC-COOKIE-1";

/// -1 when nobody listens there.
int connectLocally(const std::string& path, socklen_t length)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0)
        return -1;
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), length) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

int connectLocally(int display)
{
    const std::string path = "/tmp/.X11-unix/X" + std::to_string(display);
    const auto headBytes = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path));
    const auto pathBytes = static_cast<socklen_t>(path.size() + 1);
    // The abstract socket first, as libX11 does: nobody can have removed it from under the server.
    const int descriptor = connectLocally(std::string(1, '\0') + path, headBytes + pathBytes);
    return descriptor >= 0 ? descriptor : connectLocally(path, headBytes + pathBytes);
}

bool waitForConnection(int descriptor)
{
    pollfd ready{descriptor, POLLOUT, 0};
    int error = 0;
    socklen_t length = sizeof error;
    return poll(&ready, 1, kConnectPatienceMs) == 1 &&
           getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &length) == 0 && error == 0;
}

int connectRemotely(const std::string& host, int display)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(kFirstPort + display).c_str(), &hints, &found) != 0)
        return -1;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
    for (const addrinfo* each = found; each; each = each->ai_next) {
        const int descriptor = socket(each->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (descriptor < 0)
            continue;
        if (connect(descriptor, each->ai_addr, each->ai_addrlen) == 0 ||
            (errno == EINPROGRESS && waitForConnection(descriptor)))
            return descriptor;
        close(descriptor);
    }
    return -1;
}

struct AuthorisationAddress {
    unsigned short family = FamilyLocal;
    std::string bytes{};
};

/// A server reached over the loopback device is filed under this machine's name like one on a local socket.
AuthorisationAddress authorisationAddress(int socket)
{
    sockaddr_storage peer{};
    socklen_t length = sizeof peer;
    getpeername(socket, reinterpret_cast<sockaddr*>(&peer), &length);
    if (peer.ss_family == AF_INET) {
        const in_addr address = reinterpret_cast<const sockaddr_in&>(peer).sin_addr;
        if (address.s_addr != htonl(INADDR_LOOPBACK))
            return {XCB_FAMILY_INTERNET, {reinterpret_cast<const char*>(&address), sizeof address}};
    }
    if (peer.ss_family == AF_INET6) {
        const in6_addr address = reinterpret_cast<const sockaddr_in6&>(peer).sin6_addr;
        if (!IN6_IS_ADDR_LOOPBACK(&address))
            return {XCB_FAMILY_INTERNET_6, {reinterpret_cast<const char*>(&address), sizeof address}};
    }
    std::array<char, HOST_NAME_MAX + 1> name{};
    gethostname(name.data(), name.size() - 1);
    return {FamilyLocal, name.data()};
}

} // namespace

DisplayName parseDisplayName(const std::optional<std::string>& name)
{
    char* host = nullptr;
    DisplayName parsed;
    if (!xcb_parse_display(name ? name->c_str() : nullptr, &host, &parsed.display, &parsed.screen))
        throw std::runtime_error("no display is named");
    parsed.host = host;
    std::free(host);
    if (parsed.host == "unix")
        parsed.host.clear();
    return parsed;
}

DisplayAuthorisation displayAuthorisation(const DisplayName& name, int socket)
{
    AuthorisationAddress address = authorisationAddress(socket);
    const std::string number = std::to_string(name.display);
    std::string protocol(kCookieProtocol);
    char* protocols[] = {protocol.data()};
    const int lengths[] = {static_cast<int>(protocol.size())};
    const std::unique_ptr<Xauth, decltype(&XauDisposeAuth)> entry(
        XauGetBestAuthByAddr(address.family, static_cast<unsigned short>(address.bytes.size()),
                             address.bytes.data(), static_cast<unsigned short>(number.size()), number.c_str(),
                             1, protocols, lengths),
        XauDisposeAuth);
    if (!entry)
        return {};
    return {{entry->name, entry->name_length}, {entry->data, entry->data + entry->data_length}};
}

int openDisplaySocket(const DisplayName& name)
{
    const int descriptor =
        name.host.empty() ? connectLocally(name.display) : connectRemotely(name.host, name.display);
    if (descriptor < 0)
        throw std::runtime_error("no X server listens on display " + name.host + ":" +
                                 std::to_string(name.display));
    return descriptor;
}

bool isLocalSocket(int socket)
{
    sockaddr_storage own{};
    socklen_t length = sizeof own;
    return getsockname(socket, reinterpret_cast<sockaddr*>(&own), &length) == 0 && own.ss_family == AF_UNIX;
}

} // namespace quillora::capture
