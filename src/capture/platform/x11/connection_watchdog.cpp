#include "capture/platform/x11/connection_watchdog.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace quillora::capture {

ConnectionWatchdog::ConnectionWatchdog(int socket) : m_socket(fcntl(socket, F_DUPFD_CLOEXEC, 0))
{
    if (m_socket < 0)
        throw std::system_error(errno, std::generic_category(), "descriptor of the display's socket");
    m_thread = std::jthread([this](std::stop_token stop) { run(stop); });
}

ConnectionWatchdog::~ConnectionWatchdog()
{
    m_thread.request_stop();
    m_thread.join();
    close(m_socket);
}

void ConnectionWatchdog::begin(Clock::time_point since)
{
    const std::lock_guard lock(m_mutex);
    m_begun = since;
}

void ConnectionWatchdog::end()
{
    const std::lock_guard lock(m_mutex);
    m_begun.reset();
}

void ConnectionWatchdog::run(std::stop_token stop)
{
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        if (m_begun && Clock::now() - *m_begun >= kPatience)
            shutdown(m_socket, SHUT_RDWR);
        m_stopped.wait_for(lock, stop, kTick, [] { return false; });
    }
}

} // namespace quillora::capture
