#include "tests/support/private_sound_server.h"
#include "tests/support/private_x_server.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

using namespace quillora::tests;

namespace {

bool exists(pid_t process) { return kill(process, 0) == 0; }

} // namespace

TEST(TemporaryFolder, IsRemovedWithItsContent)
{
    std::filesystem::path path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        std::ofstream(path / "file") << "content";
        ASSERT_TRUE(std::filesystem::exists(path / "file"));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ChildProcess, GivesTheExitStatus)
{
    EXPECT_EQ(runToEnd({"sh", "-c", "exit 3"}), 3);
    EXPECT_EQ(runToEnd({"no-such-program"}), 127);
}

TEST(ChildProcess, SeesTheAddedEnvironment)
{
    EXPECT_EQ(runToEnd({"sh", "-c", "test \"$QUILLORA_TEST\" = 'a b'"}, {{"QUILLORA_TEST", "a b"}}), 0);
}

TEST(ChildProcess, IsGoneWithTheObjectEvenWhenItIsStopped)
{
    pid_t process = -1;
    {
        ChildProcess child({"sleep", "100"});
        process = child.id();
        child.sendSignal(SIGSTOP);
        ASSERT_TRUE(exists(process));
    }
    EXPECT_FALSE(exists(process));
}

TEST(ChildProcess, IsKilledWhenItTakesTooLong)
{
    EXPECT_EQ(runToEnd({"sleep", "100"}, {}, std::chrono::milliseconds(50)), 124);
}

TEST(PrivateXServer, LeavesNeitherProcessNorSocketBehind)
{
    pid_t process = -1;
    std::filesystem::path socket;
    {
        PrivateXServer server;
        process = server.processId();
        socket = "/tmp/.X11-unix/X" + std::to_string(server.number());
        ASSERT_TRUE(exists(process));
        ASSERT_TRUE(std::filesystem::exists(socket));
        server.freeze();
    }
    EXPECT_FALSE(exists(process));
    EXPECT_FALSE(std::filesystem::exists(socket));
}

TEST(PrivateXServer, LeavesNoSocketBehindWhenItIsKilled)
{
    PrivateXServer server;
    const std::filesystem::path socket = "/tmp/.X11-unix/X" + std::to_string(server.number());
    server.kill();
    EXPECT_FALSE(std::filesystem::exists(socket));
}

TEST(PrivateXServer, ComesBackOnTheSameDisplay)
{
    PrivateXServer server;
    const std::string display = server.display();
    server.restart({});
    EXPECT_EQ(server.display(), display);
}

TEST(PrivateSoundServer, HasTheModulesThatItWasStartedWith)
{
    const PrivateSoundServer server({PrivateSoundServer::kToneSource});
    EXPECT_TRUE(server.control({"set-default-source", "tone"}));
    EXPECT_FALSE(server.control({"set-default-source", "no-such-source"}));
}

TEST(PrivateSoundServer, ComesBackAtTheSameAddress)
{
    PrivateSoundServer server;
    server.kill();
    EXPECT_FALSE(server.control({"info"}));
    server.restart();
    EXPECT_TRUE(server.control({"info"}));
}
