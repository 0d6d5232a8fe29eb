// The form on a display with a scale factor of two: positions are told in the display's own pixels, and a
// slide is as sharp as the display.

#include "tests/forms/form_fixture.h"

#include "deck/slide_viewer.h"
#include "forms/image_surface_widget.h"
#include "stage/slide_place.h"
#include "stage/stage_surfaces.h"
#include "tests/support/fake_image_surface.h"
#include "tests/support/fake_main_window.h"

using namespace quillora;
using tests::busyPicture;
using tests::plainPicture;

namespace {

class ScaledDisplayTest : public tests::FormTest {};

} // namespace

TEST_F(ScaledDisplayTest, StageIsToldInPhysicalPixels)
{
    ASSERT_TRUE(shown);
    ASSERT_EQ(form.devicePixelRatioF(), 2);
    const QRect window = probe.geometry(this->window());
    EXPECT_EQ(form.stageRectangle(), (capture::PixelRectangle{window.x() + 528, window.y() + 86, 1494, 840}));
    form.move(13, 21);
    tests::settle();
    const QRect moved = probe.geometry(this->window());
    EXPECT_EQ(form.stageRectangle(), (capture::PixelRectangle{moved.x() + 528, moved.y() + 86, 1494, 840}));
}

TEST_F(ScaledDisplayTest, SlideIsShownInPhysicalPixels)
{
    ASSERT_TRUE(shown);
    const QImage picture = busyPicture({1494, 840});
    form.slide_img().LoadFile(save(picture, "slide.png"));
    form.slide_img().ResizeImage(747, 420);
    EXPECT_TRUE(tests::waitUntil([&] { return grabStage() == picture; }));
}

TEST_F(ScaledDisplayTest, SlideIsFittedToThePanelByItsTwips)
{
    tests::CallLog log;
    tests::FakeMainWindow window(log);
    tests::FakeImageSurface slide_img(log, "slide_img");
    tests::FakeImageSurface slide_img_N(log, "slide_img_N");
    session::SessionFields fields;
    session::Workspace workspace(fields, {.appData = folder.path(), .localAppData = folder.path()});
    session::SlideTimeIndex index(fields, workspace);
    const stage::SlidePlace place(form.surfaces().slide_img_back);
    deck::SlideViewer viewer(
        {fields, window, workspace, index, slide_img, slide_img_N, place, folder.path()});
    form.surfaces().slide_img_back.move({{0}, {0}, {8400}, {6300}});
    viewer.ResizeSlide();
    EXPECT_EQ(log.calls,
              (std::vector<std::string>{"slide_img.ResizeImage 560x420", "slide_img_N.ResizeImage 746x420"}));
}

TEST_F(ScaledDisplayTest, PenLineLiesWhereThePointerWas)
{
    ASSERT_TRUE(shown);
    form.slide_img().NewImage(747, 420);
    form.slide_img().DrawSegment(100, 50, 200, 50);
    EXPECT_TRUE(tests::waitUntil([&] {
        const QImage stage = grabStage();
        return qGray(stage.pixel(300, 101)) < 128 && qGray(stage.pixel(300, 90)) > 200;
    }));
}

TEST_F(ScaledDisplayTest, PreviewIsSeenWhole)
{
    ASSERT_TRUE(shown);
    form.slide_img_N().LoadFile(save(plainPicture({1280, 720}, Qt::darkGreen), "next.png"));
    form.slide_img_N().ResizeImage(746, 420);
    const auto* preview = find<forms::ImageSurfaceWidget>("slide_img_N");
    const QPoint inWindow = preview->mapTo(&form, QPoint()) * 2;
    const QRect area(probe.geometry(this->window()).topLeft() + inWindow, preview->size() * 2);
    EXPECT_TRUE(
        tests::waitUntil([&] { return probe.grab(area) == plainPicture(area.size(), Qt::darkGreen); }));
}
