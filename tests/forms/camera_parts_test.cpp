// The camera and its panel, joined with the stage as the program joins them.

#include "app/camera_parts.h"

#include "app/stage_parts.h"
#include "forms/camera_panel.h"
#include "forms/stage_widget.h"
#include "tests/forms/form_fixture.h"
#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_slide_show.h"
#include "tests/support/fake_video_cap_x.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSlider>
#include <QTest>

using namespace quillora;
using Calls = std::vector<std::string>;

namespace {

class NoDeck : public session::DeckOpening {
  public:
    void openSlides() override {}
};

class CameraPartsTest : public tests::FormTest {
  protected:
    CameraPartsTest()
    {
        camera.names = {"Lecture Camera", "Document Camera"};
        camera.ranges = {{stage::kBrightness, {-64, 64, 1, 10}}, {stage::kHue, {0, 60, 2, 40}}};
    }
    ~CameraPartsTest() override
    {
        // Here the window outlives the pictures, which it looks at as long as it is shown.
        form.hide();
        frames.onChange([] {});
    }

    void click(const char* name) { find<QAbstractButton>(name)->click(); }
    Calls callsOf(const std::function<void()>& action)
    {
        log.clear();
        action();
        return log.startingWith("camera.");
    }
    base::TwipRectangle frame() { return form.surfaces().VideoCap1_back.rectangle(); }

    stage::NewestFrame frames;
    session::SessionFields fields;
    tests::CallLog log;
    tests::FakeSlideShow slides{log};
    NoDeck deck;
    tests::FakeVideoCapX camera{log};
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    session::OperationTable operations;
    app::StageParts onStage{{form, fields, slides, ebDemo, deck, camera, dialog, boxes, operations}};
    app::CameraParts parts{{.window = form,
                            .fields = fields,
                            .camera = camera,
                            .frames = frames,
                            .layout = onStage.layout(),
                            .commands = onStage.commands()}};
};

} // namespace

TEST_F(CameraPartsTest, TheSwitchConnectsTheFirstCameraAndLetsItGo)
{
    click("Option6");
    EXPECT_TRUE(camera.isConnected);
    EXPECT_EQ(camera.deviceIndex, 0);
    EXPECT_EQ(find<QComboBox>("Combo1")->count(), 2);
    click("Option5");
    EXPECT_FALSE(camera.isConnected);
    EXPECT_EQ(find<QComboBox>("Combo1")->count(), 0);
}

TEST_F(CameraPartsTest, TheSwitchTakesAwayThePictureThatStandsInForACameraAndPutsItBack)
{
    click("Picture24");
    auto& standIn = form.surfaces().cam_icon_trans_s;
    ASSERT_TRUE(standIn.visible());
    click("Option6");
    EXPECT_FALSE(standIn.visible());
    click("Option5");
    EXPECT_TRUE(standIn.visible());
}

TEST_F(CameraPartsTest, TheListConnectsTheChosenCamera)
{
    click("Option6");
    QTest::keyClick(find("Combo1"), Qt::Key_Down);
    EXPECT_TRUE(camera.isConnected);
    EXPECT_EQ(camera.deviceIndex, 1);
}

TEST_F(CameraPartsTest, ASliderSetsItsOwnControl)
{
    click("Option6");
    EXPECT_EQ(callsOf([&] { find<QSlider>("Slider1_2")->setValue(50); }), Calls{"camera.value 2 50"});
    EXPECT_EQ(callsOf([&] { find<QSlider>("Slider1_0")->setValue(70); }), Calls{"camera.value 0 70"});
}

TEST_F(CameraPartsTest, ASliderOfACameraThatWasUnpluggedDoesNothing)
{
    click("Option6");
    camera.failing.names = {"setVideoControlValue"};
    EXPECT_EQ(callsOf([&] { find<QSlider>("Slider1_2")->setValue(50); }), Calls{"camera.value 2 50"});
    EXPECT_EQ(find<QSlider>("Slider1_2")->value(), 50);
}

TEST_F(CameraPartsTest, ACheckBoxAsksForTheAutomaticModeOfItsOwnControl)
{
    click("Option6");
    EXPECT_EQ(callsOf([&] { click("Check1_2"); }), Calls{"camera.value -2 0"});
    EXPECT_FALSE(find("Slider1_2")->isEnabled());
    EXPECT_TRUE(find("Slider1_0")->isEnabled());
}

TEST_F(CameraPartsTest, SettingsAreTheCamerasOwn)
{
    click("Option6");
    EXPECT_EQ(callsOf([&] { click("Label14"); }), Calls{"camera.settings"});
}

TEST_F(CameraPartsTest, TheCaptionsOfContrastAndHuePutTheCameraIntoACornerEach)
{
    click("Option6");
    QTest::mouseClick(find("Label12"), Qt::LeftButton);
    EXPECT_EQ(frame(), (base::TwipRectangle{{6000}, {120}, {2280}, {1710}}));
    QTest::mouseClick(find("Label13"), Qt::LeftButton);
    EXPECT_EQ(frame(), (base::TwipRectangle{{6000}, {4480}, {2280}, {1710}}));
}

TEST_F(CameraPartsTest, PicturesOfTheCameraStandOnTheStage)
{
    ASSERT_TRUE(shown);
    click("Option6");
    stage::CameraFrame green{2, 2, {0xFF00C000, 0xFF00C000, 0xFF00C000, 0xFF00C000}};
    frames.put(green);
    EXPECT_TRUE(tests::waitUntil([&] { return grabStage().pixel(373, 210) == 0xFF00C000; }));
}

TEST_F(CameraPartsTest, TheEndOfTheProgramLetsTheCameraGo)
{
    click("Option6");
    parts.cameraSwitch().CloseCam();
    EXPECT_FALSE(camera.isConnected);
}
