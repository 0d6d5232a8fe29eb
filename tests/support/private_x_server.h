#pragma once

#include "tests/support/child_process.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillora::tests {

/// An X server without a screen (Xvfb) of the test's own, ended with the object.
class PrivateXServer {
  public:
    struct Screen {
        int width = 800;
        int height = 600;
        int depth = 24;
        /// More arguments of Xvfb's.
        std::vector<std::string> options{};
    };

    /// Takes a display number that nobody uses, or @p number. Throws std::runtime_error when no server comes
    /// up.
    explicit PrivateXServer(const Screen& screen, std::optional<int> number = std::nullopt);
    PrivateXServer() : PrivateXServer(Screen{}) {}
    ~PrivateXServer();

    /// ":200", as DISPLAY names it.
    std::string display() const;
    int number() const { return m_number; }
    pid_t processId() const { return m_server->id(); }

    /// Makes it deaf, as a hanging server is, until thaw().
    void freeze();
    void thaw();
    /// Kills it without notice.
    void kill();
    /// Starts a server on the same display again.
    void restart(const Screen& screen);

  private:
    void start(const Screen& screen, std::optional<int> number);
    void removeLeftovers() const;

    std::unique_ptr<ChildProcess> m_server;
    int m_number = -1;
};

} // namespace quillora::tests
