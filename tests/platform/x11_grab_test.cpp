#include "tests/platform/x11_fixture.h"

#include <chrono>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>

using namespace quillora::capture;
using quillora::tests::PrivateXServer;
using quillora::tests::XCanvas;
using namespace std::chrono_literals;

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
    EXPECT_EQ(image.width, 7);
    EXPECT_EQ(image.height, 5);
    EXPECT_EQ(colourAt(image, 6, 4), kRed);
}

TEST_F(X11ScreenSourceTest, GivesAnEmptyImageOfARegionWithoutArea)
{
    grab();
    for (const PixelRectangle& empty : {PixelRectangle{5, 5, 0, 9}, PixelRectangle{5, 5, -4, 9}}) {
        region = empty;
        EXPECT_TRUE(grab().changed.empty());
        EXPECT_EQ(image.width * image.height, 0);
    }
}

TEST_F(X11ScreenSourceTest, RefusesARegionThatNoMemoryHolds)
{
    grab();
    region = {0, 0, 2'000'000'000, 2'000'000'000};
    EXPECT_THROW(grab(), std::runtime_error);
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
    image = shallow.grab({0, 0, 5, 2}, {}).image;
    EXPECT_EQ(colourAt(image, 0, 1), 0xffffffU);
    EXPECT_EQ(colourAt(image, 1, 0), 0xff0000U);
    EXPECT_EQ(colourAt(image, 2, 0), 0x00ff00U);
    EXPECT_EQ(colourAt(image, 3, 0), 0x0000ffU);
    painter.fill({4, 1, 1, 1}, 0xf800);
    const ScreenSource::Grab again = shallow.grab({0, 0, 5, 2}, {});
    EXPECT_EQ(again.changed, (PixelRectangle{4, 1, 1, 1}));
    EXPECT_EQ(colourAt(again.image, 4, 1), 0xff0000U);
}

TEST_F(X11ScreenSourceTest, RefusesScreensWithAColourMap)
{
    PrivateXServer coloured({64, 32, 8});
    X11ScreenSource shallow(coloured.display());
    EXPECT_THROW(shallow.grab({0, 0, 5, 2}, {}), std::runtime_error);
}

TEST_F(X11ScreenSourceTest, FollowsMotionUntilItEnds)
{
    grab();
    for (std::uint32_t step = 1; step <= 40; ++step) {
        canvas->fill(region, 0x050301 * step);
        EXPECT_EQ(grab().changed, region) << step;
        EXPECT_EQ(colourAt(image, 15, 7), 0x050301 * step);
    }
    canvas->fill({3, 2, 4, 3}, kRed);
    EXPECT_EQ(grab().changed, (PixelRectangle{3, 2, 4, 3}));
    EXPECT_EQ(colourAt(image, 3, 2), kRed);
    EXPECT_TRUE(grab().changed.empty());
}

// A program that draws all the time may draw the same all the time.
TEST_F(X11ScreenSourceTest, SeesBeforeLongThatMotionHasEndedAlthoughTheSameIsDrawnStill)
{
    grab();
    for (std::uint32_t step = 1; step <= 40; ++step) {
        canvas->fill(region, 0x050301 * step);
        grab();
    }
    int reported = 0;
    for (int frame = 0; frame < 40; ++frame) {
        canvas->fill(region, 0x050301 * 40);
        reported += !grab().changed.empty();
    }
    EXPECT_LE(reported, 12);
    EXPECT_EQ(colourAt(image, 15, 7), 0x050301U * 40);
}
