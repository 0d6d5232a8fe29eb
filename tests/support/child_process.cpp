#include "tests/support/child_process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace quillora::tests {
namespace {

std::vector<std::string> mergedEnvironment(const ChildProcess::Environment& additions)
{
    std::vector<std::string> merged;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        bool replaced = false;
        for (const auto& [name, value] : additions)
            replaced = replaced || text.starts_with(name + "=");
        if (!replaced)
            merged.push_back(text);
    }
    for (const auto& [name, value] : additions)
        merged.push_back(name + "=" + value);
    return merged;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, const Environment& environment,
                           int inherited)
{
    // Everything that allocates happens before the fork: other threads of the test may hold the allocator's
    // lock.
    std::vector<std::string> argumentTexts = arguments;
    std::vector<std::string> environmentTexts = mergedEnvironment(environment);
    const std::vector<char*> argumentPointers = pointersTo(argumentTexts);
    std::vector<char*> environmentPointers = pointersTo(environmentTexts);
    const bool silent = std::getenv("QUILLORA_TEST_CHILD_OUTPUT") == nullptr;
    const pid_t parent = getpid();

    m_id = fork();
    if (m_id < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (m_id > 0)
        return;

    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
    if (inherited >= 0)
        fcntl(inherited, F_SETFD, 0);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    if (silent) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    execvpe(argumentPointers[0], argumentPointers.data(), environmentPointers.data());
    _exit(127);
}

ChildProcess::~ChildProcess() { terminate(); }

bool ChildProcess::running() { return waitForExit(std::chrono::milliseconds(0)) < 0; }

void ChildProcess::sendSignal(int signal)
{
    if (running())
        ::kill(m_id, signal);
}

int ChildProcess::waitForExit(std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (m_exitStatus < 0) {
        int status = 0;
        if (waitpid(m_id, &status, WNOHANG) == m_id)
            m_exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        else if (std::chrono::steady_clock::now() >= deadline)
            break;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return m_exitStatus;
}

void ChildProcess::terminate()
{
    sendSignal(SIGTERM);
    // A stopped process takes the signal only once it goes on.
    sendSignal(SIGCONT);
    if (waitForExit(std::chrono::seconds(2)) < 0)
        kill();
}

void ChildProcess::kill()
{
    sendSignal(SIGKILL);
    waitForExit(std::chrono::seconds(10));
}

int runToEnd(const std::vector<std::string>& arguments, const ChildProcess::Environment& environment,
             std::chrono::milliseconds limit)
{
    ChildProcess child(arguments, environment);
    const int status = child.waitForExit(limit);
    if (status >= 0)
        return status;
    child.kill();
    return 124;
}

} // namespace quillora::tests
