#include "messages/platform/posix/syslog_event_log.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>

using namespace quillora::messages;

namespace {

constexpr const char* kLogSocket = "/dev/log";

/// Stands for the system's logger on a machine that has none.
class Logger {
  public:
    Logger() : m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::string(kLogSocket).copy(address.sun_path, sizeof address.sun_path - 1);
        m_bound = bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~Logger()
    {
        closelog();
        if (m_bound)
            unlink(kLogSocket);
        close(m_socket);
    }
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    bool listens() const { return m_bound; }
    /// The next entry, or nothing.
    std::string next() const
    {
        pollfd readable{m_socket, POLLIN, 0};
        std::array<char, 4096> entry{};
        if (poll(&readable, 1, 5000) != 1)
            return {};
        const auto bytes = recv(m_socket, entry.data(), entry.size(), 0);
        return {entry.data(), static_cast<std::size_t>(std::max<ssize_t>(bytes, 0))};
    }

  private:
    int m_socket;
    bool m_bound = false;
};

class SyslogEventLogTest : public testing::Test {
  protected:
    void SetUp() override
    {
        if (!logger.listens())
            GTEST_SKIP() << "this machine has a logger of its own, or lets nobody stand for it";
    }

    Logger logger;
    SyslogEventLog log;
};

} // namespace

TEST_F(SyslogEventLogTest, WritesAnErrorOfAUserProgram)
{
    log.error("WaveInRecorder.sc_Subclass: Invalid window handle");
    const std::string entry = logger.next();
    EXPECT_TRUE(entry.starts_with("<" + std::to_string(LOG_USER | LOG_ERR) + ">")) << entry;
    EXPECT_TRUE(entry.ends_with(": WaveInRecorder.sc_Subclass: Invalid window handle")) << entry;
}

TEST_F(SyslogEventLogTest, WritesOneLineAndNoFormat)
{
    log.error("one\r\ntwo %s %n");
    EXPECT_TRUE(logger.next().ends_with(": one  two %s %n"));
}
