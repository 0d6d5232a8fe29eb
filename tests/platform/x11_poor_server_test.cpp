#include "tests/platform/x11_fixture.h"
#include "tests/support/temporary_folder.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

using namespace quillora::capture;
using quillora::tests::PrivateXServer;
using quillora::tests::TemporaryFolder;
using quillora::tests::XCanvas;
using namespace std::chrono_literals;

namespace {

/// One entry for any host and any display.
void writeCookie(const std::string& file)
{
    const std::string protocol = "MIT-MAGIC-COOKIE-1";
    const std::string wildFamily = "\xff\xff";
    const std::string none(2, '\0');
    std::ofstream(file, std::ios::binary) << wildFamily << none << none << std::string("\0\x12", 2)
                                          << protocol << std::string("\0\x10", 2) << "0123456789abcdef";
}

} // namespace

/// An X server without the extension that is named.
class X11WithoutExtensionTest : public testing::TestWithParam<const char*> {
  protected:
    PrivateXServer server{{320, 240, 24, {"-extension", GetParam()}}};
    XCanvas canvas{server.display()};
    X11ScreenSource source{server.display()};
    ScreenImageView image;
    const PixelRectangle region{0, 0, 16, 8};

    PixelRectangle grab()
    {
        const ScreenSource::Grab taken = source.grab(region, {true, true, 35});
        image = taken.image;
        return taken.changed;
    }
};

TEST_P(X11WithoutExtensionTest, IsGrabbedAllTheSame)
{
    canvas.fill({0, 0, 320, 240}, kBackground);
    canvas.movePointer(300, 200);
    EXPECT_EQ(grab(), region);
    EXPECT_EQ(colourAt(image, 5, 5), kBackground);
    canvas.fill({3, 2, 4, 3}, kRed);
    EXPECT_EQ(grab(), (PixelRectangle{3, 2, 4, 3}));
    EXPECT_EQ(colourAt(image, 6, 4), kRed);
    EXPECT_TRUE(grab().empty());
    EXPECT_EQ(source.screen(), (PixelRectangle{0, 0, 320, 240}));
}

INSTANTIATE_TEST_SUITE_P(Each, X11WithoutExtensionTest,
                         testing::Values("MIT-SHM", "DAMAGE", "XFIXES", "RANDR"),
                         [](const auto& information) {
                             const std::string name = information.param;
                             return name == "MIT-SHM" ? std::string("SharedMemory") : name;
                         });

TEST(X11OverTheNetwork, IsGrabbedWithoutSharedMemory)
{
    PrivateXServer server({320, 240, 24, {"-listen", "tcp"}});
    XCanvas(server.display()).fill({0, 0, 320, 240}, kPaper);
    X11ScreenSource source("127.0.0.1" + server.display());
    const ScreenImageView image = source.grab({0, 0, 300, 200}, {}).image;
    EXPECT_EQ(colourAt(image, 299, 199), kPaper);
}

TEST(X11WithAccessControl, IsReachedWithTheUsersCookieOnly)
{
    const TemporaryFolder folder;
    const std::string file = folder.path() / "cookies";
    const PixelRectangle region{0, 0, 4, 4};
    setenv("XAUTHORITY", file.c_str(), 1);
    writeCookie(file);
    PrivateXServer server({320, 240, 24, {"-auth", file}});
    X11ScreenSource allowed(server.display());
    EXPECT_EQ(allowed.grab(region, {}).changed, region);

    setenv("XAUTHORITY", "/nonexistent", 1);
    X11ScreenSource refused(server.display());
    EXPECT_THROW(refused.grab(region, {}), std::runtime_error);
    unsetenv("XAUTHORITY");
}

/// A display whose pixels are changed in memory, behind the back of the server, which tells of no damage
/// then.
class X11ForgottenDamageTest : public testing::Test {
  protected:
    X11ForgottenDamageTest()
    {
        source.grab(region, {});
        // A server that has just started has something to tell yet.
        std::this_thread::sleep_for(200ms);
        source.grab(region, {});
    }

    void changePixel(int x, int y)
    {
        std::fstream file(folder.path() / "Xvfb_screen0", std::ios::in | std::ios::out | std::ios::binary);
        // The file is in the format of xwd: sizes in words, high byte first, then colours of twelve bytes.
        const auto word = [&](int index) {
            unsigned char bytes[4] = {};
            file.seekg(4 * index);
            file.read(reinterpret_cast<char*>(bytes), sizeof bytes);
            return bytes[0] << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3];
        };
        file.seekp(word(0) + 12 * word(19) + y * word(12) + 4 * x);
        file.write("\x20\x10\xff", 3);
    }

    TemporaryFolder folder;
    PrivateXServer server{{320, 240, 24, {"-fbdir", folder.path()}}};
    X11ScreenSource source{server.display()};
    const PixelRectangle region{0, 0, 16, 8};
};

TEST_F(X11ForgottenDamageTest, IsSeenAllTheSame)
{
    changePixel(3, 2);
    ASSERT_TRUE(happensWithin(10s, [&] {
        return source.grab(region, {}).changed == PixelRectangle{3, 2, 1, 1};
    }));
    EXPECT_EQ(colourAt(source.grab(region, {}).image, 3, 2), kRed);
}

TEST_F(X11ForgottenDamageTest, IsSeenAtOnceWhenItHappensAllTheTime)
{
    for (int x = 0; x < 5; ++x) {
        changePixel(x, 0);
        ASSERT_TRUE(happensWithin(10s, [&] { return !source.grab(region, {}).changed.empty(); }));
    }
    for (int x = 5; x < 15; ++x) {
        changePixel(x, 0);
        EXPECT_EQ(source.grab(region, {}).changed, (PixelRectangle{x, 0, 1, 1}));
    }
}
