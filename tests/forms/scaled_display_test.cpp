// The form on a display with a scale factor of two: positions are told in the display's own pixels, and a
// slide is as sharp as the display.

#include "tests/forms/form_fixture.h"

#include "forms/image_surface_widget.h"

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
