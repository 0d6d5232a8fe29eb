#include "tests/support/private_x_server.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillora::tests {
namespace {

/// The number that the server writes once it listens, or -1 when it ends or says nothing for ten seconds.
int readDisplayNumber(int descriptor)
{
    std::string text;
    pollfd ready{descriptor, POLLIN, 0};
    while (poll(&ready, 1, 10'000) > 0) {
        char character = 0;
        if (read(descriptor, &character, 1) != 1)
            return -1;
        if (character == '\n')
            return std::atoi(text.c_str());
        text += character;
    }
    return -1;
}

std::string nameOf(int number) { return std::string(":").append(std::to_string(number)); }

std::string socketPath(int number) { return "/tmp/.X11-unix/X" + std::to_string(number); }

bool somebodyListens(int number)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath(number).copy(address.sun_path, sizeof address.sun_path - 1);
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool accepted = connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(probe);
    return accepted;
}

/// Far from the numbers of real displays, and another one for each server of each test program: a server that
/// is given the descriptor to report on takes no lock, so programs that both look for the first free number
/// would get in each other's way, and a killed server's number would be gone before it is restarted.
int unusedNumber()
{
    static std::atomic<int> count{0};
    int number = 0;
    do
        number = 1000 + (getpid() % 3000) * 16 + count++ % 16;
    while (somebodyListens(number));
    return number;
}

} // namespace

PrivateXServer::PrivateXServer(const Screen& screen, std::optional<int> number) { start(screen, number); }

PrivateXServer::~PrivateXServer()
{
    m_server->terminate();
    removeLeftovers();
}

std::string PrivateXServer::display() const { return nameOf(m_number); }

void PrivateXServer::freeze() { m_server->sendSignal(SIGSTOP); }

void PrivateXServer::thaw() { m_server->sendSignal(SIGCONT); }

void PrivateXServer::kill()
{
    m_server->kill();
    removeLeftovers();
}

void PrivateXServer::restart(const Screen& screen)
{
    kill();
    start(screen, m_number);
}

void PrivateXServer::start(const Screen& screen, std::optional<int> number)
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        const int candidate = number.value_or(unusedNumber());
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe for the X server");
        const std::string geometry = std::to_string(screen.width) + "x" + std::to_string(screen.height) +
                                     "x" + std::to_string(screen.depth);
        std::vector<std::string> arguments{"Xvfb",       nameOf(candidate),
                                           "-displayfd", std::to_string(ends[1]),
                                           "-screen",    "0",
                                           geometry,     "-nolisten",
                                           "tcp",        "-noreset"};
        arguments.insert(arguments.end(), screen.options.begin(), screen.options.end());
        m_server = std::make_unique<ChildProcess>(arguments, ChildProcess::Environment{}, ends[1]);
        close(ends[1]);
        m_number = readDisplayNumber(ends[0]);
        close(ends[0]);
        if (m_number >= 0)
            return;
    }
    throw std::runtime_error("no X server comes up");
}

void PrivateXServer::removeLeftovers() const
{
    // Another server may have taken the number over by now: only a socket that nobody listens on is ours.
    std::error_code ignored;
    if (!somebodyListens(m_number))
        std::filesystem::remove(socketPath(m_number), ignored);
}

} // namespace quillora::tests
