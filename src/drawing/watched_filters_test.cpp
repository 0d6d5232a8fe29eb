#include "drawing/image_filters.h"

#include "tests/support/fake_random_numbers.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillora::drawing {
namespace {

using tests::kPaper;

constexpr Colour grey(int value) { return rgb(value, value, value); }

struct SurfaceWithPicture : Surface {
    SurfaceWithPicture(const RasterImage& picture, SurfaceScreen& screen)
        : Surface(picture.width(), picture.height(), kPaper, &screen)
    {
        PaintPicture(picture, 0, 0);
    }
};

/// Filters of a surface that a screen shows meanwhile.
struct WatchedFiltersTest : testing::Test {
    tests::FakeRandomNumbers random;
    tests::FakeSurfaceScreen screen;
    ImageFilters filters{random};
};

TEST_F(WatchedFiltersTest, SeeTheSameWhetherWatchedOrNot)
{
    RasterImage picture(40, 30);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x)
            picture.at(x, y) = rgb(x * 2, y * 3, x + y);
    }
    for (int id = 0; id <= 13; ++id) {
        random.given = 0;
        SurfaceWithPicture surface(picture, screen);
        filters.ApplyFilter(id, surface, kWholeSurface);
        random.given = 0;
        RasterImage unseen = picture;
        filters.applyUnseen(id, unseen, kWholeSurface);
        EXPECT_EQ(surface.Image(), unseen) << id;
    }
}

TEST_F(WatchedFiltersTest, ALargeAreaIsRefreshedColumnByColumn)
{
    SurfaceWithPicture surface(RasterImage(20, 20, grey(10)), screen);
    screen.refreshes = 0;
    filters.ApplyFilter(static_cast<int>(Filter::brighten), surface, kWholeSurface);
    EXPECT_EQ(screen.refreshes, 20 + 1);
}

TEST_F(WatchedFiltersTest, ASmallAreaIsRefreshedOnce)
{
    SurfaceWithPicture surface(RasterImage(20, 20, grey(10)), screen);
    screen.refreshes = 0;
    screen.shown.clear();
    filters.ApplyFilter(static_cast<int>(Filter::brighten), surface, {3, 4, 8, 9});
    EXPECT_EQ(screen.refreshes, 1);
    ASSERT_EQ(screen.shown.size(), 1U);
    EXPECT_EQ(screen.shown[0], (base::PixelRectangle{3, 4, 6, 6}));
}

TEST_F(WatchedFiltersTest, GiveTheDrawModeBack)
{
    for (int id = 0; id <= 14; ++id) {
        SurfaceWithPicture surface(RasterImage(20, 20, grey(10)), screen);
        surface.DrawMode = RasterOperation::xorPen;
        filters.ApplyFilter(id, surface, {0, 0, 5, 5});
        EXPECT_EQ(surface.DrawMode, RasterOperation::xorPen) << id;
    }
}

TEST_F(WatchedFiltersTest, KeepTheDrawModeOfAFailure)
{
    SurfaceWithPicture surface(RasterImage(20, 20, grey(10)), screen);
    surface.DrawMode = RasterOperation::xorPen;
    EXPECT_THROW(filters.ApplyFilter(static_cast<int>(Filter::softBlur), surface, {-1, -1, 2, 2}),
                 std::out_of_range);
    EXPECT_EQ(surface.DrawMode, RasterOperation::copyPen);
}

TEST_F(WatchedFiltersTest, ShowWhatWasDoneBeforeAFailure)
{
    RasterImage picture(20, 20, rgb(80, 90, 60));
    picture.at(3, 10) = kPaper;
    SurfaceWithPicture surface(picture, screen);
    EXPECT_THROW(filters.ApplyFilter(static_cast<int>(Filter::comicGrey), surface, kWholeSurface),
                 std::overflow_error);
    EXPECT_EQ(surface.Point(3, 9), grey(33));
    EXPECT_EQ(surface.Point(3, 10), kPaper);
    EXPECT_EQ(surface.Point(4, 0), rgb(80, 90, 60));
}

} // namespace
} // namespace quillora::drawing
