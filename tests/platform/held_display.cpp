#include "tests/platform/held_display.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace quillora::tests {
namespace {

/// How late a hold or the end may be noticed.
constexpr int kTurnMs = 10;

struct Socket {
    int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);

    Socket() = default;
    explicit Socket(int accepted) : descriptor(accepted) {}
    ~Socket() { close(descriptor); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
};

/// The other number of a pair among those that one test program takes for its servers.
int besideNumber(int server) { return server ^ 8; }

std::string socketPath(int number) { return "/tmp/.X11-unix/X" + std::to_string(number); }

sockaddr_un addressOf(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

int listenerOn(const std::string& path)
{
    const sockaddr_un address = addressOf(path);
    unlink(path.c_str());
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 1) != 0)
        throw std::runtime_error("no way to the display");
    return listener;
}

bool readable(const pollfd& polled) { return (polled.revents & (POLLIN | POLLHUP)) != 0; }

/// Empty when the other side has gone.
std::string receive(int socket)
{
    char buffer[16384];
    const ssize_t bytes = recv(socket, buffer, sizeof buffer, 0);
    return {buffer, static_cast<std::size_t>(std::max<ssize_t>(bytes, 0))};
}

void sendAll(int socket, std::string_view data)
{
    while (!data.empty()) {
        const ssize_t bytes = send(socket, data.data(), data.size(), MSG_NOSIGNAL);
        if (bytes <= 0)
            return;
        data.remove_prefix(static_cast<std::size_t>(bytes));
    }
}

} // namespace

HeldDisplay::HeldDisplay(int server)
    : m_number(besideNumber(server)),
      m_listener(listenerOn(socketPath(m_number))),
      m_thread([this, server](const std::stop_token& stop) { run(stop, server); })
{}

HeldDisplay::~HeldDisplay()
{
    m_thread.request_stop();
    m_thread.join();
    close(m_listener);
    unlink(socketPath(m_number).c_str());
}

void HeldDisplay::run(const std::stop_token& stop, int server) const
{
    pollfd waiting{m_listener, POLLIN, 0};
    while (poll(&waiting, 1, kTurnMs) <= 0)
        if (stop.stop_requested())
            return;
    const Socket client(accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC));
    const Socket display;
    const sockaddr_un address = addressOf(socketPath(server));
    if (connect(display.descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        pass(stop, client.descriptor, display.descriptor);
}

void HeldDisplay::pass(const std::stop_token& stop, int client, int server) const
{
    std::string held;
    while (!stop.stop_requested()) {
        if (!held.empty() && m_held == kNone) {
            sendAll(server, held);
            held.clear();
        }
        // What is not to pass stays where it is, as with a server that doesn't read it.
        pollfd polled[] = {{held.empty() ? client : -1, POLLIN, 0}, {server, POLLIN, 0}};
        poll(polled, 2, kTurnMs);
        if (readable(polled[0])) {
            const std::string requests = receive(client);
            if (requests.empty())
                return;
            if (static_cast<unsigned char>(requests.front()) == m_held)
                held = requests;
            else
                sendAll(server, requests);
        }
        if (readable(polled[1])) {
            const std::string answers = receive(server);
            if (answers.empty())
                return;
            sendAll(client, answers);
        }
    }
}

} // namespace quillora::tests
