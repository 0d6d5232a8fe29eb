#include "forms/camera_preview.h"

#include "forms/camera_off_picture.h"
#include "forms/stage_widget.h"
#include "stage/newest_frame.h"
#include "stage/stage_surfaces.h"
#include "tests/forms/form_fixture.h"

#include <thread>

using namespace quillora;

namespace {

constexpr base::TwipRectangle kWhole{{0}, {0}, {11205}, {6300}};
/// Milliseconds after which a picture is old.
constexpr int kLong = 400;

class CameraPreviewTest : public tests::FormTest {
  protected:
    CameraPreviewTest() { preview.showPicturesOf(frames); }
    ~CameraPreviewTest() override
    {
        form.hide();
        frames.onChange([] {});
    }

    /// Quarters in red, green, blue and white, from the top left to the bottom right.
    static stage::CameraFrame quarters(int width, int height)
    {
        stage::CameraFrame frame{width, height, {}};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const bool left = x < width / 2;
                const bool top = y < height / 2;
                frame.pixels.push_back(top ? (left ? 0xFFFF0000 : 0xFF00FF00)
                                           : (left ? 0xFF0000FF : 0xFFFFFFFF));
            }
        return frame;
    }

    void show(const base::TwipRectangle& place)
    {
        camera.move(place);
        camera.setVisible(true);
        camera.bringToFront();
        tests::settle(50);
    }

    void hideForLong()
    {
        camera.setVisible(false);
        tests::settle(kLong);
    }

    void put(stage::CameraFrame frame) { frames.put(frame); }

    QRgb onStage(int x, int y) { return grabStage().pixel(x, y); }

    bool becomes(int x, int y, QRgb colour)
    {
        return tests::waitUntil([&] { return onStage(x, y) == colour; });
    }

    stage::NewestFrame frames;
    forms::CameraPreview& preview = form.Picture1().VideoCap1_back();
    stage::StageSurface& camera = form.surfaces().VideoCap1_back;
};

constexpr QRgb kBlack = 0xFF000000;

} // namespace

TEST_F(CameraPreviewTest, IsBlackWithoutAPicture)
{
    show(kWhole);
    EXPECT_TRUE(becomes(0, 0, kBlack));
    EXPECT_TRUE(becomes(373, 210, kBlack));
    EXPECT_TRUE(becomes(746, 419, kBlack));
}

TEST_F(CameraPreviewTest, ShowsTheWholePictureInItsOwnShapeInTheMiddle)
{
    show(kWhole);
    put(quarters(640, 480));
    // 4:3 in 747 by 420: 560 columns, 93 of black at the left.
    EXPECT_TRUE(becomes(96, 3, 0xFFFF0000));
    EXPECT_EQ(onStage(650, 3), 0xFF00FF00);
    EXPECT_EQ(onStage(96, 416), 0xFF0000FF);
    EXPECT_EQ(onStage(650, 416), 0xFFFFFFFF);
    EXPECT_EQ(onStage(91, 210), kBlack);
    EXPECT_EQ(onStage(655, 210), kBlack);
}

TEST_F(CameraPreviewTest, ShowsAWidePictureBetweenBarsAboveAndBelow)
{
    show({{100}, {100}, {2600}, {1950}});
    put(quarters(1280, 720));
    EXPECT_TRUE(becomes(12, 30, 0xFFFF0000));
    EXPECT_EQ(onStage(170, 110), 0xFFFFFFFF);
    EXPECT_EQ(onStage(90, 10), kBlack);
    EXPECT_EQ(onStage(90, 133), kBlack);
}

TEST_F(CameraPreviewTest, ShowsTheWholePictureInAFrameThatReachesBeyondTheStage)
{
    // The bottom right corner after a camera that filled the stage: 420 pixels high, 137 of them on it.
    show({{8500}, {4250}, {2600}, {6300}});
    put(quarters(640, 480));
    EXPECT_TRUE(becomes(572, 292, 0xFFFF0000));
    EXPECT_EQ(onStage(734, 292), 0xFF00FF00);
    EXPECT_EQ(onStage(572, 410), 0xFF0000FF);
    EXPECT_EQ(onStage(734, 410), 0xFFFFFFFF);
}

TEST_F(CameraPreviewTest, TakesPicturesFromAnotherThread)
{
    show(kWhole);
    std::thread([&] { put(quarters(640, 480)); }).join();
    EXPECT_TRUE(becomes(96, 3, 0xFFFF0000));
}

TEST_F(CameraPreviewTest, TurnsBlackWhenTheCameraGoes)
{
    show(kWhole);
    put(quarters(640, 480));
    ASSERT_TRUE(becomes(650, 416, 0xFFFFFFFF));
    frames.clear();
    EXPECT_TRUE(becomes(650, 416, kBlack));
}

TEST_F(CameraPreviewTest, WantsNoPicturesWhileItIsHidden)
{
    EXPECT_TRUE(frames.room().empty());
    show(kWhole);
    EXPECT_FALSE(frames.room().empty());
    camera.setVisible(false);
    EXPECT_TRUE(frames.room().empty());
}

TEST_F(CameraPreviewTest, DoesNotBeginWithTheLastMomentBeforeItWasHidden)
{
    show(kWhole);
    put(quarters(640, 480));
    ASSERT_TRUE(becomes(650, 416, 0xFFFFFFFF));
    hideForLong();
    show(kWhole);
    EXPECT_TRUE(becomes(650, 416, kBlack));
}

TEST_F(CameraPreviewTest, DoesNotBeginWithAPictureThatWasOnItsWayWhenItWasHidden)
{
    show(kWhole);
    camera.setVisible(false);
    put(quarters(640, 480));
    tests::settle(kLong);
    show(kWhole);
    tests::settle(50);
    EXPECT_EQ(onStage(650, 416), kBlack);
    put(quarters(640, 480));
    EXPECT_TRUE(becomes(650, 416, 0xFFFFFFFF)) << "it tells no more of new pictures";
}

TEST_F(CameraPreviewTest, KeepsItsPictureWhileTheStageIsRearranged)
{
    show(kWhole);
    put(quarters(640, 480));
    ASSERT_TRUE(becomes(650, 416, 0xFFFFFFFF));
    camera.setVisible(false);
    camera.move({{100}, {100}, {2600}, {1950}});
    camera.setVisible(true);
    tests::settle(50);
    EXPECT_EQ(onStage(12, 12), 0xFFFF0000);
    EXPECT_EQ(onStage(170, 126), 0xFFFFFFFF);
    EXPECT_EQ(frames.room(), (stage::FrameSize{173, 130})) << "pictures are wanted again";
}

TEST_F(CameraPreviewTest, LeavesTheRestOfTheStageAlone)
{
    const QImage slide = tests::busyPicture({747, 420});
    form.slide_img().LoadFile(save(slide, "slide.png"));
    form.slide_img().ResizeImage(747, 420);
    show({{100}, {100}, {2600}, {1950}});
    put(quarters(640, 480));
    ASSERT_TRUE(becomes(12, 12, 0xFFFF0000));
    const QImage stage = grabStage();
    const QRect touched(6, 6, 176, 132);
    for (int y = 0; y < 420; ++y)
        for (int x = 0; x < 747; ++x) {
            if (!touched.contains(x, y)) {
                ASSERT_EQ(stage.pixel(x, y), slide.pixel(x, y)) << x << ',' << y;
            }
        }
}

TEST_F(CameraPreviewTest, APictureStandsInForAnAbsentCamera)
{
    show(kWhole);
    auto& large = form.surfaces().cam_icon_trans;
    large.setVisible(true);
    large.bringToFront();
    EXPECT_TRUE(tests::waitUntil([&] {
        const QImage place = grabStage().copy(312, 160, 117, 90);
        int drawn = 0;
        for (int y = 0; y < place.height(); ++y)
            for (int x = 0; x < place.width(); ++x)
                drawn += qGray(place.pixel(x, y)) > 80;
        return drawn > 500 && drawn < 117 * 90 / 2;
    }));
    EXPECT_EQ(onStage(312, 160), kBlack);
}
