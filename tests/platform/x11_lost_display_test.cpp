#include "tests/platform/x11_fixture.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <unistd.h>

using namespace quillora::capture;
using quillora::tests::XCanvas;
using namespace std::chrono_literals;

TEST_F(X11ScreenSourceTest, ThrowsWhereThereIsNoDisplay)
{
    server.kill();
    for (int attempt = 0; attempt < 5; ++attempt)
        EXPECT_THROW(grab(), std::runtime_error);
    EXPECT_THROW(source.screen(), std::runtime_error);
    EXPECT_THROW(source.pointer(), std::runtime_error);
}

TEST_F(X11ScreenSourceTest, ThrowsForNamesThatAreNoDisplay)
{
    for (const char* name : {"", "no display", ":", ":99999999", "no.such.host.invalid:0"}) {
        X11ScreenSource none{std::string(name)};
        EXPECT_THROW(none.screen(), std::runtime_error) << name;
    }
}

TEST_F(X11ScreenSourceTest, WorksAgainWithANewServerOnTheSameDisplay)
{
    grab();
    server.kill();
    EXPECT_FALSE(grabWorks());
    server.restart({200, 100, 24});
    XCanvas(server.display()).fill({0, 0, 200, 100}, kPaper);
    ASSERT_TRUE(happensWithin(10s, [&] { return grabWorks(); }));
    EXPECT_EQ(colourAt(image, 0, 0), kPaper);
    EXPECT_EQ(source.screen(), (PixelRectangle{0, 0, 200, 100}));
}

TEST_F(X11ScreenSourceTest, ThrowsInTimeWhenTheServerStopsAnswering)
{
    pointer.cursor = true;
    grab();
    server.freeze();
    const auto taken = failureTime();
    ASSERT_TRUE(taken);
    EXPECT_LT(*taken, kGenerous);
    server.thaw();
    EXPECT_TRUE(happensWithin(10s, [&] { return grabWorks(); }));
}

TEST_F(X11ScreenSourceTest, ThrowsInTimeWhenTheServerDoesNotTakeItsConnection)
{
    server.freeze();
    // The first attempt is cut off, the next ones are spared.
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto taken = failureTime();
        ASSERT_TRUE(taken);
        EXPECT_LT(*taken, kGenerous);
    }
    server.thaw();
    EXPECT_TRUE(happensWithin(10s, [&] { return grabWorks(); }));
}

TEST_F(X11ScreenSourceTest, KeepsNoDescriptorsOfConnectionsThatItLost)
{
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    grab();
    canvas.reset();
    const auto before = descriptors();
    for (int round = 0; round < 3; ++round) {
        server.restart({320, 240, 24});
        ASSERT_TRUE(happensWithin(10s, [&] { return !grabWorks(); }));
        ASSERT_TRUE(happensWithin(10s, [&] { return grabWorks(); }));
    }
    EXPECT_EQ(descriptors(), before);
}

TEST_F(X11ScreenSourceTest, KeepsNoMoreSharedMemoryThanItsTwoPictures)
{
    const auto pictures = [](pid_t process) {
        std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
        int count = 0;
        for (std::string line; std::getline(maps, line);)
            count += line.find("memfd:screen picture") != std::string::npos;
        return count;
    };
    for (int size = 1; size < 20; ++size) {
        region = {0, 0, 10 * size, 10 * size};
        grab();
    }
    EXPECT_EQ(pictures(server.processId()), 2);
    EXPECT_EQ(pictures(getpid()), 2);
    server.kill();
    EXPECT_FALSE(grabWorks());
    EXPECT_EQ(pictures(getpid()), 0);
}
