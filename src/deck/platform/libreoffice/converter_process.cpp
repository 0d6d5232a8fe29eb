#include "deck/platform/libreoffice/converter_process.h"

#include "deck/platform/libreoffice/office_profile.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace quillora::deck::libreoffice {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// What posix_spawn() is told to do before the program runs. Everything else, limits first of all, the
/// program does to itself: it is ours, and trusted until it has seen a deck.
class SpawnSetup {
  public:
    SpawnSetup(int socket, int slots)
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawnattr_init(&m_attributes);
        ::posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_actions, socket, kSocketDescriptor);
        ::posix_spawn_file_actions_adddup2(&m_actions, slots, kSlotsDescriptor);
        ::posix_spawn_file_actions_addclosefrom_np(&m_actions, kSlotsDescriptor + 1);
        sigset_t none;
        sigset_t all;
        ::sigemptyset(&none);
        ::sigfillset(&all);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        ::posix_spawnattr_setsigdefault(&m_attributes, &all);
        // A session of its own is a group of its own, and has no terminal to write to.
        ::posix_spawnattr_setflags(&m_attributes,
                                   POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSetup()
    {
        ::posix_spawnattr_destroy(&m_attributes);
        ::posix_spawn_file_actions_destroy(&m_actions);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    const posix_spawn_file_actions_t* actions() const { return &m_actions; }
    const posix_spawnattr_t* attributes() const { return &m_attributes; }

  private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

/// A copy of @p descriptor above those that the program is given, so that handing on one can't overwrite
/// another.
int raised(int descriptor) { return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 16); }

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ConverterProcess::ConverterProcess(Confinement confinement, const std::filesystem::path& program,
                                   const std::filesystem::path& officeFolder)
{
    writeOfficeProfile(folder() / kProfileName);
    std::filesystem::create_directory(folder() / kTemporaryName);
    start(converterCommand(confinement, program, officeFolder, folder()));
}

ConverterProcess::~ConverterProcess() { kill(); }

void ConverterProcess::start(const ConverterCommand& command)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no socket for the deck converter");
    m_socket = ends[0];
    const int socket = raised(ends[1]);
    const int slots = raised(m_slots.descriptor());
    ::close(ends[1]);

    std::vector<std::string> arguments = command.arguments;
    std::vector<std::string> environment = command.environment;
    const SpawnSetup setup(socket, slots);
    pid_t process = -1;
    const int failure =
        ::posix_spawn(&process, arguments.front().c_str(), setup.actions(), setup.attributes(),
                      pointersTo(arguments).data(), pointersTo(environment).data());
    ::close(socket);
    ::close(slots);
    if (failure != 0) {
        ::close(std::exchange(m_socket, -1));
        throw std::runtime_error("the deck converter can't be started: " + arguments.front());
    }
    m_process = process;
}

void ConverterProcess::send(const Request& request)
{
    const std::string line = lineOf(request);
    // The messages that can be under way at once fit the socket's buffer many times over.
    const ssize_t sent =
        m_socket < 0 ? -1 : ::send(m_socket, line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent != static_cast<ssize_t>(line.size())) {
        kill();
        throw std::runtime_error("the deck converter has ended");
    }
}

Reply ConverterProcess::receive()
{
    try {
        while (true) {
            if (const std::optional<std::string> line = m_lines.next())
                return parseReply(*line);
            readMore();
        }
    } catch (...) {
        kill();
        throw;
    }
}

void ConverterProcess::readMore()
{
    const steady_clock::time_point asked = steady_clock::now();
    pollfd waited{m_socket, POLLIN, 0};
    const int found = ::poll(&waited, 1, static_cast<int>(std::max(milliseconds{0}, m_patience).count()));
    const int error = errno;
    m_patience -= std::chrono::ceil<milliseconds>(steady_clock::now() - asked);
    if (found == 0)
        throw std::runtime_error("the deck converter took too long");
    if (found < 0 && error == EINTR)
        return;
    std::array<char, 512> bytes{};
    const ssize_t count = found < 0 ? -1 : ::read(m_socket, bytes.data(), bytes.size());
    if (count <= 0)
        throw std::runtime_error("the deck converter has ended");
    m_lines.add({bytes.data(), static_cast<std::size_t>(count)});
}

void ConverterProcess::kill()
{
    if (m_process > 0) {
        ::kill(-m_process, SIGKILL);
        while (::waitpid(m_process, nullptr, 0) < 0 && errno == EINTR) {
        }
        m_process = -1;
    }
    if (m_socket < 0)
        return;
    // Descendants in a process namespace die a moment after the process that holds it. The socket tells when
    // the last of them is gone; only then does the folder stay empty once it is removed.
    ::shutdown(m_socket, SHUT_WR);
    const steady_clock::time_point end = steady_clock::now() + std::chrono::seconds(2);
    std::array<char, 512> bytes{};
    pollfd waited{m_socket, POLLIN, 0};
    while (steady_clock::now() < end && ::poll(&waited, 1, 100) >= 0) {
        if ((waited.revents & (POLLIN | POLLHUP)) != 0 && ::read(m_socket, bytes.data(), bytes.size()) <= 0)
            break;
        waited.revents = 0;
    }
    ::close(std::exchange(m_socket, -1));
}

} // namespace quillora::deck::libreoffice
