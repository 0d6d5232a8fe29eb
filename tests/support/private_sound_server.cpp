#include "tests/support/private_sound_server.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

namespace quillora::tests {

PrivateSoundServer::PrivateSoundServer(std::vector<std::string> modules) : m_modules(std::move(modules))
{
    start();
}

PrivateSoundServer::~PrivateSoundServer() = default;

std::string PrivateSoundServer::address() const { return "unix:" + (m_folder.path() / "native").string(); }

ChildProcess::Environment PrivateSoundServer::environment() const
{
    const std::string folder = m_folder.path().string();
    return {{"PULSE_SERVER", address()},
            {"PULSE_RUNTIME_PATH", folder},
            {"PULSE_STATE_PATH", folder},
            {"PULSE_COOKIE", folder + "/cookie"},
            {"PULSE_CLIENTCONFIG", ""}};
}

void PrivateSoundServer::freeze() { m_server->sendSignal(SIGSTOP); }

void PrivateSoundServer::thaw() { m_server->sendSignal(SIGCONT); }

void PrivateSoundServer::kill() { m_server->kill(); }

void PrivateSoundServer::restart()
{
    kill();
    start();
}

bool PrivateSoundServer::control(const std::vector<std::string>& arguments) const
{
    std::vector<std::string> command{"pactl"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return runToEnd(command, environment()) == 0;
}

void PrivateSoundServer::start()
{
    const std::string socket = (m_folder.path() / "native").string();
    std::error_code ignored;
    std::filesystem::remove(socket, ignored);
    std::vector<std::string> arguments{
        "pulseaudio",          "-n",          "--daemonize=no",   "--use-pid-file=no",
        "--exit-idle-time=-1", "--system=no", "--disable-shm=no", "--high-priority=no",
        "--realtime=no"};
    for (const std::string& module : m_modules)
        arguments.insert(arguments.end(), {"-L", module});
    arguments.insert(arguments.end(),
                     {"-L", "module-native-protocol-unix auth-anonymous=1 socket=" + socket});
    m_server = std::make_unique<ChildProcess>(arguments, environment());

    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!answers()) {
        if (!m_server->running() || std::chrono::steady_clock::now() >= deadline)
            throw std::runtime_error("no sound server comes up");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

bool PrivateSoundServer::answers() const
{
    return std::filesystem::exists(m_folder.path() / "native") && control({"info"});
}

} // namespace quillora::tests
