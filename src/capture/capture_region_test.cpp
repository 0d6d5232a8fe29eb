#include "capture/capture_region.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillora::capture;

namespace {

class Screen : public ScreenSource {
  public:
    Grab grab(const PixelRectangle&, const PointerDrawing&) override { return {}; }
    PixelRectangle screen() override { return size; }
    PixelPoint pointer() override { return position; }

    PixelRectangle size{0, 0, 1920, 1080};
    PixelPoint position{960, 540};
};

PixelRectangle aroundMouse(Screen& screen)
{
    return regionOf({CaptureMode::aroundMouse, {}, {}}, screen, 746, 420);
}

} // namespace

TEST(CaptureRegion, IsTheRectangleAsItWasSetEvenOffTheScreen)
{
    Screen screen;
    const PixelRectangle rectangle{-50, 1000, 747, 420};
    EXPECT_EQ(regionOf({CaptureMode::rectangle, rectangle, {}}, screen, 746, 420), rectangle);
}

TEST(CaptureRegion, IsTheWholeScreen)
{
    Screen screen;
    EXPECT_EQ(regionOf({CaptureMode::wholeScreen, {1, 2, 3, 4}, {}}, screen, 746, 420), screen.size);
}

TEST(CaptureRegion, HasTheMouseInItsMiddle)
{
    Screen screen;
    EXPECT_EQ(aroundMouse(screen), (PixelRectangle{960 - 373, 540 - 210, 746, 420}));
}

TEST(CaptureRegion, StaysOnTheScreenNearItsEdges)
{
    Screen screen;
    screen.position = {0, 1079};
    EXPECT_EQ(aroundMouse(screen), (PixelRectangle{0, 660, 746, 420}));
    screen.position = {1919, 0};
    EXPECT_EQ(aroundMouse(screen), (PixelRectangle{1174, 0, 746, 420}));
}

TEST(CaptureRegion, BeginsAtTheCornerOfAScreenThatIsTooSmall)
{
    Screen screen;
    screen.size = {0, 0, 640, 400};
    screen.position = {600, 300};
    EXPECT_EQ(aroundMouse(screen), (PixelRectangle{0, 0, 746, 420}));
}

TEST(CaptureRegion, IsNeverEmptyAndNeverLargerThanAnyScreen)
{
    Screen screen;
    const auto sized = [&](int edge) {
        return regionOf({CaptureMode::rectangle, {0, 0, edge, edge}, {}}, screen, 746, 420);
    };
    EXPECT_EQ(sized(0), (PixelRectangle{0, 0, 1, 1}));
    EXPECT_EQ(sized(std::numeric_limits<int>::min()), (PixelRectangle{0, 0, 1, 1}));
    EXPECT_EQ(sized(std::numeric_limits<int>::max()), (PixelRectangle{0, 0, 8192, 8192}));
}
