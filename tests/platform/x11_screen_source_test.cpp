#include "capture/platform/x11/x11_screen_source.h"

#include "tests/platform/x_canvas.h"
#include "tests/support/private_x_server.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <stdexcept>
#include <thread>
#include <unistd.h>

using namespace quillora::capture;
using quillora::tests::PrivateXServer;
using quillora::tests::TemporaryFolder;
using quillora::tests::XCanvas;
using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t kBackground = 0x203040;
constexpr std::uint32_t kRed = 0xff1020;
constexpr std::uint32_t kPaper = 0xf0f4f8;

/// Longer than any promise of the source, for the sake of a busy machine.
constexpr auto kGenerous = 3s;

std::uint32_t colourAt(const ScreenImage& image, int x, int y)
{
    const std::uint8_t* pixel = image.pixels.data() + 4 * (y * image.width + x);
    return static_cast<std::uint32_t>(pixel[2] << 16 | pixel[1] << 8 | pixel[0]);
}

/// The image as a picture in letters, for screens of few pixels.
std::string letters(const ScreenImage& image)
{
    std::string grid;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const std::uint32_t colour = colourAt(image, x, y);
            grid += colour == 0             ? '.'
                    : colour == kBackground ? 'b'
                    : colour == kRed        ? 'R'
                    : colour == kPaper      ? 'p'
                                            : '?';
        }
        grid += '\n';
    }
    return grid;
}

bool happensWithin(std::chrono::milliseconds limit, const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

/// One entry for any host and any display.
void writeCookie(const std::string& file)
{
    const std::string protocol = "MIT-MAGIC-COOKIE-1";
    const std::string wildFamily = "\xff\xff";
    const std::string none(2, '\0');
    std::ofstream(file, std::ios::binary) << wildFamily << none << none << std::string("\0\x12", 2)
                                          << protocol << std::string("\0\x10", 2) << "0123456789abcdef";
}

class X11ScreenSourceTest : public testing::Test {
  protected:
    X11ScreenSourceTest()
    {
        canvas->fill({0, 0, 320, 240}, kBackground);
        canvas->movePointer(300, 200);
    }

    ScreenSource::Grab grab() { return source.grab(region, pointer, image); }

    bool grabWorks()
    {
        try {
            grab();
            return true;
        } catch (const std::runtime_error&) {
            return false;
        }
    }

    /// How long a grab takes that fails, or nothing when it doesn't fail.
    std::optional<std::chrono::steady_clock::duration> failureTime()
    {
        const auto start = std::chrono::steady_clock::now();
        try {
            grab();
            return std::nullopt;
        } catch (const std::runtime_error&) {
            return std::chrono::steady_clock::now() - start;
        }
    }

    PrivateXServer server{{320, 240, 24}};
    std::unique_ptr<XCanvas> canvas = std::make_unique<XCanvas>(server.display());
    X11ScreenSource source{server.display()};
    ScreenImage image;
    PixelRectangle region{0, 0, 16, 8};
    PointerDrawing pointer{};
};

} // namespace

TEST_F(X11ScreenSourceTest, GivesThePixelsOfTheRegion)
{
    region = {10, 20, 6, 4};
    canvas->fill({12, 21, 2, 2}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 6, 4}));
    EXPECT_EQ(letters(image), "bbbbbb\n"
                              "bbRRbb\n"
                              "bbRRbb\n"
                              "bbbbbb\n");
}

TEST_F(X11ScreenSourceTest, LeavesBlackWhatIsLeftOfAndAboveTheScreen)
{
    region = {-2, -1, 5, 3};
    grab();
    EXPECT_EQ(letters(image), ".....\n"
                              "..bbb\n"
                              "..bbb\n");
}

TEST_F(X11ScreenSourceTest, LeavesBlackWhatIsRightOfAndBelowTheScreen)
{
    region = {317, 238, 5, 3};
    grab();
    EXPECT_EQ(letters(image), "bbb..\n"
                              "bbb..\n"
                              ".....\n");
}

TEST_F(X11ScreenSourceTest, IsBlackWhollyOffTheScreen)
{
    for (const PixelRectangle& off :
         {PixelRectangle{-50, 0, 3, 2}, PixelRectangle{0, 240, 3, 2}, PixelRectangle{320, 0, 3, 2},
          PixelRectangle{0, -2, 3, 2}, PixelRectangle{std::numeric_limits<int>::max() - 3, 0, 3, 2},
          PixelRectangle{std::numeric_limits<int>::min(), 0, 3, 2}}) {
        region = off;
        grab();
        EXPECT_EQ(letters(image), "...\n...\n");
        EXPECT_TRUE(grab().changed.empty());
    }
}

TEST_F(X11ScreenSourceTest, SurroundsAScreenThatIsSmallerThanTheRegion)
{
    region = {-100, -100, 1000, 800};
    grab();
    EXPECT_EQ(colourAt(image, 99, 100), 0U);
    EXPECT_EQ(colourAt(image, 100, 100), kBackground);
    EXPECT_EQ(colourAt(image, 419, 339), kBackground);
    EXPECT_EQ(colourAt(image, 420, 339), 0U);
    canvas->fill({319, 239, 1, 1}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{419, 339, 1, 1}));
    EXPECT_EQ(colourAt(image, 419, 339), kRed);
}

TEST_F(X11ScreenSourceTest, TakesOddSizes)
{
    region = {1, 1, 7, 5};
    canvas->fill({7, 5, 1, 1}, kRed);
    grab();
    EXPECT_EQ(image.pixels.size(), 4U * 7 * 5);
    EXPECT_EQ(colourAt(image, 6, 4), kRed);
}

TEST_F(X11ScreenSourceTest, GivesAnEmptyImageOfARegionWithoutArea)
{
    grab();
    for (const PixelRectangle& empty : {PixelRectangle{5, 5, 0, 9}, PixelRectangle{5, 5, -4, 9}}) {
        region = empty;
        EXPECT_TRUE(grab().changed.empty());
        EXPECT_TRUE(image.pixels.empty());
    }
}

TEST_F(X11ScreenSourceTest, RefusesARegionThatNoMemoryHolds)
{
    grab();
    const std::string before = letters(image);
    region = {0, 0, 2'000'000'000, 2'000'000'000};
    EXPECT_THROW(grab(), std::runtime_error);
    EXPECT_EQ(letters(image), before);
    region = {0, 0, 16, 8};
    EXPECT_TRUE(grabWorks());
}

TEST_F(X11ScreenSourceTest, ReportsNothingWhereNothingChanges)
{
    grab();
    // Long enough for a full look, too.
    for (int frame = 0; frame < 20; ++frame) {
        EXPECT_TRUE(grab().changed.empty());
        std::this_thread::sleep_for(40ms);
    }
}

TEST_F(X11ScreenSourceTest, ReportsWhatChangedAndNoMore)
{
    grab();
    canvas->fill({3, 2, 4, 3}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{3, 2, 4, 3}));
    EXPECT_EQ(letters(image), "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbRRRRbbbbbbbbb\n"
                              "bbbRRRRbbbbbbbbb\n"
                              "bbbRRRRbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11ScreenSourceTest, ReportsAChangeThatReachesIntoTheRegionOnly)
{
    region = {10, 10, 16, 8};
    grab();
    canvas->fill({0, 0, 12, 11}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 2, 1}));
}

TEST_F(X11ScreenSourceTest, ReportsNothingWhenTheSameIsDrawnAgain)
{
    grab();
    canvas->fill({3, 2, 4, 3}, kBackground);
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11ScreenSourceTest, ReportsNothingOfChangesElsewhere)
{
    grab();
    canvas->fill({100, 100, 50, 50}, kRed);
    EXPECT_TRUE(grab().changed.empty());
    canvas->fill({5, 5, 1, 1}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{5, 5, 1, 1}));
}

TEST_F(X11ScreenSourceTest, LosesNoChangeHoweverManyFollow)
{
    grab();
    for (int step = 0; step < 200; ++step) {
        const std::uint32_t colour = 0x010000U + static_cast<std::uint32_t>(step) * 7;
        canvas->fill({step % 16, step % 8, 1, 1}, colour);
        EXPECT_EQ(grab().changed, (PixelRectangle{step % 16, step % 8, 1, 1})) << step;
        EXPECT_EQ(colourAt(image, step % 16, step % 8), colour) << step;
    }
}

TEST_F(X11ScreenSourceTest, ReportsTheWholeImageWhenTheRegionMoves)
{
    grab();
    canvas->fill({18, 1, 1, 1}, kRed);
    region = {16, 0, 16, 8};
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 16, 8}));
    EXPECT_EQ(colourAt(image, 2, 1), kRed);
    region = {16, 0, 5, 3};
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 5, 3}));
    EXPECT_EQ(letters(image), "bbbbb\n"
                              "bbRbb\n"
                              "bbbbb\n");
}

TEST_F(X11ScreenSourceTest, KnowsTheScreenAndThePointer)
{
    EXPECT_EQ(source.screen(), (PixelRectangle{0, 0, 320, 240}));
    canvas->movePointer(17, 23);
    EXPECT_EQ(source.pointer(), (PixelPoint{17, 23}));
}

TEST_F(X11ScreenSourceTest, FollowsAScreenThatShrinksAndGrows)
{
    region = {195, 95, 10, 10};
    grab();
    EXPECT_EQ(colourAt(image, 9, 9), kBackground);
    canvas->resizeScreen(200, 100);
    canvas->fill({0, 0, 200, 100}, kBackground);
    grab();
    EXPECT_EQ(source.screen(), (PixelRectangle{0, 0, 200, 100}));
    EXPECT_EQ(colourAt(image, 4, 4), kBackground);
    EXPECT_EQ(colourAt(image, 5, 4), 0U);
    EXPECT_EQ(colourAt(image, 4, 5), 0U);
    canvas->resizeScreen(320, 240);
    canvas->fill({0, 0, 320, 240}, kPaper);
    grab();
    EXPECT_EQ(source.screen(), (PixelRectangle{0, 0, 320, 240}));
    EXPECT_EQ(colourAt(image, 9, 9), kPaper);
}

TEST_F(X11ScreenSourceTest, ReadsScreensOf16Bits)
{
    PrivateXServer small({64, 32, 16});
    XCanvas painter(small.display());
    painter.fill({0, 0, 64, 32}, 0xffff);
    painter.fill({1, 0, 1, 1}, 0xf800);
    painter.fill({2, 0, 1, 1}, 0x07e0);
    painter.fill({3, 0, 1, 1}, 0x001f);
    X11ScreenSource shallow(small.display());
    shallow.grab({0, 0, 5, 2}, {}, image);
    EXPECT_EQ(colourAt(image, 0, 1), 0xffffffU);
    EXPECT_EQ(colourAt(image, 1, 0), 0xff0000U);
    EXPECT_EQ(colourAt(image, 2, 0), 0x00ff00U);
    EXPECT_EQ(colourAt(image, 3, 0), 0x0000ffU);
    painter.fill({4, 1, 1, 1}, 0xf800);
    EXPECT_EQ(shallow.grab({0, 0, 5, 2}, {}, image).changed, (PixelRectangle{4, 1, 1, 1}));
    EXPECT_EQ(colourAt(image, 4, 1), 0xff0000U);
}

TEST_F(X11ScreenSourceTest, RefusesScreensWithAColourMap)
{
    PrivateXServer coloured({64, 32, 8});
    X11ScreenSource shallow(coloured.display());
    EXPECT_THROW(shallow.grab({0, 0, 5, 2}, {}, image), std::runtime_error);
}

// Servers that lack something

/// An X server without the extension that is named.
class X11WithoutExtensionTest : public testing::TestWithParam<const char*> {
  protected:
    PrivateXServer server{{320, 240, 24, {"-extension", GetParam()}}};
    XCanvas canvas{server.display()};
    X11ScreenSource source{server.display()};
    ScreenImage image;
    const PixelRectangle region{0, 0, 16, 8};
};

TEST_P(X11WithoutExtensionTest, IsGrabbedAllTheSame)
{
    canvas.fill({0, 0, 320, 240}, kBackground);
    canvas.movePointer(300, 200);
    EXPECT_EQ(source.grab(region, {true, true, 35}, image).changed, region);
    EXPECT_EQ(colourAt(image, 5, 5), kBackground);
    canvas.fill({3, 2, 4, 3}, kRed);
    EXPECT_EQ(source.grab(region, {true, true, 35}, image).changed, (PixelRectangle{3, 2, 4, 3}));
    EXPECT_EQ(colourAt(image, 6, 4), kRed);
    EXPECT_TRUE(source.grab(region, {true, true, 35}, image).changed.empty());
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
    ScreenImage image;
    source.grab({0, 0, 300, 200}, {}, image);
    EXPECT_EQ(colourAt(image, 299, 199), kPaper);
}

TEST(X11WithAccessControl, IsReachedWithTheUsersCookieOnly)
{
    const TemporaryFolder folder;
    const std::string file = folder.path() / "cookies";
    const PixelRectangle region{0, 0, 4, 4};
    ScreenImage image;
    setenv("XAUTHORITY", file.c_str(), 1);
    writeCookie(file);
    PrivateXServer server({320, 240, 24, {"-auth", file}});
    X11ScreenSource allowed(server.display());
    EXPECT_EQ(allowed.grab(region, {}, image).changed, region);

    setenv("XAUTHORITY", "/nonexistent", 1);
    X11ScreenSource refused(server.display());
    EXPECT_THROW(refused.grab(region, {}, image), std::runtime_error);
    unsetenv("XAUTHORITY");
}

/// A display whose pixels are changed in memory, behind the back of the server, which tells of no damage
/// then.
class X11ForgottenDamageTest : public testing::Test {
  protected:
    X11ForgottenDamageTest()
    {
        source.grab(region, {}, image);
        // A server that has just started has something to tell yet.
        std::this_thread::sleep_for(200ms);
        source.grab(region, {}, image);
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
    ScreenImage image;
    const PixelRectangle region{0, 0, 16, 8};
};

TEST_F(X11ForgottenDamageTest, IsSeenAllTheSame)
{
    changePixel(3, 2);
    ASSERT_TRUE(happensWithin(10s, [&] {
        return source.grab(region, {}, image).changed == PixelRectangle{3, 2, 1, 1};
    }));
    EXPECT_EQ(colourAt(image, 3, 2), kRed);
}

TEST_F(X11ForgottenDamageTest, IsSeenAtOnceWhenItHappensAllTheTime)
{
    for (int x = 0; x < 5; ++x) {
        changePixel(x, 0);
        ASSERT_TRUE(happensWithin(10s, [&] { return !source.grab(region, {}, image).changed.empty(); }));
    }
    for (int x = 5; x < 15; ++x) {
        changePixel(x, 0);
        EXPECT_EQ(source.grab(region, {}, image).changed, (PixelRectangle{x, 0, 1, 1}));
    }
}

// The pointer

class X11PointerTest : public X11ScreenSourceTest {
  protected:
    X11PointerTest()
    {
        canvas->setCursor(3, 2, {1, 0}, {kOpaque | kRed, kOpaque | kRed, 0, 0, kOpaque | kRed, 0});
        canvas->movePointer(5, 3);
        pointer.cursor = true;
    }

    static constexpr std::uint32_t kOpaque = 0xff000000;
};

TEST_F(X11PointerTest, IsDrawnWithItsHotSpotAtItsPlace)
{
    grab();
    EXPECT_EQ(letters(image), "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbRRbbbbbbbbbb\n"
                              "bbbbbRbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
}

TEST_F(X11PointerTest, IsNotDrawnWhenItIsNotAsked)
{
    pointer.cursor = false;
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), kBackground);
}

TEST_F(X11PointerTest, UncoversWhatWasUnderItWhenItMoves)
{
    canvas->fill({4, 3, 1, 1}, kPaper);
    grab();
    canvas->movePointer(9, 5);
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 7, 4}));
    EXPECT_EQ(letters(image), "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbpbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbRRbbbbbb\n"
                              "bbbbbbbbbRbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, StaysOnTopOfWhatIsDrawnUnderIt)
{
    grab();
    canvas->fill({0, 0, 6, 4}, kPaper);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 0, 6, 4}));
    EXPECT_EQ(letters(image), "ppppppbbbbbbbbbb\n"
                              "ppppppbbbbbbbbbb\n"
                              "ppppppbbbbbbbbbb\n"
                              "ppppRRbbbbbbbbbb\n"
                              "bbbbbRbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n"
                              "bbbbbbbbbbbbbbbb\n");
}

TEST_F(X11PointerTest, IsCutOffAtTheEdgesOfTheRegion)
{
    canvas->movePointer(0, 7);
    grab();
    EXPECT_EQ(colourAt(image, 0, 7), kRed);
    canvas->movePointer(16, 7);
    EXPECT_EQ(grab().changed, (PixelRectangle{0, 7, 16, 1}));
    EXPECT_EQ(colourAt(image, 15, 7), kRed);
    canvas->movePointer(200, 100);
    EXPECT_EQ(grab().changed, (PixelRectangle{15, 7, 1, 1}));
    canvas->movePointer(210, 100);
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, IsDrawnAnewWhenItsShapeChanges)
{
    grab();
    canvas->setCursor(1, 1, {0, 0}, {kOpaque | kPaper});
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 4, 3), kBackground);
    EXPECT_EQ(colourAt(image, 5, 3), kPaper);
    EXPECT_TRUE(grab().changed.empty());
}

TEST_F(X11PointerTest, IsDrawnAnewWhenItsColoursAloneChange)
{
    grab();
    canvas->setCursor(3, 2, {1, 0}, {0, kOpaque | kPaper, 0, 0, 0, 0});
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 4, 3), kBackground);
    EXPECT_EQ(colourAt(image, 5, 3), kPaper);
}

TEST_F(X11PointerTest, IsBlendedByItsAlpha)
{
    canvas->setCursor(1, 1, {0, 0}, {0x80800000});
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), 0x901820U);
}

TEST_F(X11PointerTest, AppearsAndDisappearsAsTheDrawingIsChanged)
{
    pointer.cursor = false;
    grab();
    pointer.cursor = true;
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 5, 3), kRed);
    pointer.cursor = false;
    EXPECT_EQ(grab().changed, (PixelRectangle{4, 3, 3, 2}));
    EXPECT_EQ(colourAt(image, 5, 3), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightOf35PixelsWithoutTheCursor)
{
    region = {0, 0, 100, 100};
    canvas->fill(region, kPaper);
    canvas->movePointer(50, 40);
    pointer.cursor = false;
    grab();
    pointer.highlight = true;
    EXPECT_EQ(grab().changed, (PixelRectangle{33, 23, 35, 35}));
    EXPECT_EQ(colourAt(image, 32, 40), kPaper);
    EXPECT_NE(colourAt(image, 33, 40), kPaper);
    EXPECT_NE(colourAt(image, 67, 40), kPaper);
    EXPECT_EQ(colourAt(image, 68, 40), kPaper);
    EXPECT_NE(colourAt(image, 50, 40), kRed);
}

TEST_F(X11PointerTest, HasItsHighlightUnderTheCursor)
{
    pointer.highlight = true;
    grab();
    EXPECT_EQ(colourAt(image, 5, 3), kRed);
    EXPECT_NE(colourAt(image, 8, 3), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightThatMovesAndUncoversWhatWasUnderIt)
{
    region = {0, 0, 100, 100};
    canvas->movePointer(20, 20);
    pointer = {false, true, 35};
    grab();
    canvas->movePointer(70, 70);
    EXPECT_EQ(grab().changed, (PixelRectangle{3, 3, 85, 85}));
    EXPECT_EQ(colourAt(image, 20, 20), kBackground);
    EXPECT_NE(colourAt(image, 70, 70), kBackground);
}

TEST_F(X11PointerTest, HasAHighlightThatIsNotLaidOnTwice)
{
    region = {0, 0, 100, 100};
    canvas->movePointer(50, 50);
    pointer = {false, true, 35};
    grab();
    const ScreenImage before = image;
    canvas->fill({0, 0, 51, 100}, kRed);
    grab();
    canvas->fill({0, 0, 51, 100}, kBackground);
    grab();
    EXPECT_EQ(image.pixels, before.pixels);
}

TEST_F(X11PointerTest, HasAHighlightThatLeavesDarkTextDark)
{
    region = {0, 0, 40, 40};
    canvas->fill(region, 0xffffff);
    canvas->fill({15, 20, 10, 1}, 0x000000);
    canvas->movePointer(20, 20);
    pointer = {false, true, 35};
    grab();
    const auto brightness = [&](int x, int y) {
        const std::uint32_t colour = colourAt(image, x, y);
        return (colour >> 16) + (colour >> 8 & 0xff) + (colour & 0xff);
    };
    EXPECT_LT(brightness(20, 20) * 4, brightness(20, 21));
}

TEST_F(X11PointerTest, LeavesBlackWhatIsOffTheScreen)
{
    region = {-20, -20, 60, 60};
    canvas->movePointer(0, 0);
    pointer.highlight = true;
    grab();
    EXPECT_EQ(colourAt(image, 19, 20), 0U);
    EXPECT_EQ(colourAt(image, 20, 19), 0U);
    EXPECT_EQ(colourAt(image, 20, 20), kRed);
}

// A display that fails

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

TEST_F(X11ScreenSourceTest, LeavesTheImageAloneWhenTheDisplayDies)
{
    grab();
    const std::string before = letters(image);
    server.kill();
    EXPECT_THROW(grab(), std::runtime_error);
    EXPECT_EQ(letters(image), before);
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
