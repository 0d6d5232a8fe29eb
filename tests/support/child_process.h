#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace quillora::tests {

/// A program that a test starts and that never outlives it: ended and reaped by the destructor, and killed by
/// the system when the test dies first. What it prints goes nowhere unless the environment variable
/// QUILLORA_TEST_CHILD_OUTPUT is set.
class ChildProcess {
  public:
    using Environment = std::vector<std::pair<std::string, std::string>>;

    /// Starts @p arguments[0], looked up in PATH. @p environment is added to the test's own. The descriptor
    /// @p inherited stays open in the child under the same number. Throws std::system_error when nothing can
    /// be forked; a program that isn't there shows as a child that exits with 127.
    explicit ChildProcess(const std::vector<std::string>& arguments, const Environment& environment = {},
                          int inherited = -1);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t id() const { return m_id; }
    bool running();
    void sendSignal(int signal);
    /// The exit status as a shell gives it (128 + signal), or -1 when it still runs after @p limit.
    int waitForExit(std::chrono::milliseconds limit);
    /// Asks it to end, and kills it when it hasn't after two seconds. Also ends a stopped process.
    void terminate();
    /// SIGKILL, without giving it the time to clean up.
    void kill();

  private:
    pid_t m_id = -1;
    int m_exitStatus = -1;
};

/// Runs a program to its end and returns its exit status; 124 when it had to be killed after @p limit.
int runToEnd(const std::vector<std::string>& arguments, const ChildProcess::Environment& environment = {},
             std::chrono::milliseconds limit = std::chrono::seconds(10));

} // namespace quillora::tests
