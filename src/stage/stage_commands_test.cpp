#include "stage/stage_commands.h"

#include "tests/support/stage_world.h"

#include <map>

namespace quillora::stage {
namespace {

using tests::kFull;
using tests::kSide;
using tests::kSideFrame;
using Calls = std::vector<std::string>;
using Command = void (StageCommands::*)();

const std::vector<std::string> kMedia = {"slides", "text", "draw", "web", "youtube"};
const std::vector<std::string> kModes = {"full", "side", "mix", "fullcam"};

const std::map<std::string, Command> kMediaCommands = {{"slides", &StageCommands::toolbar_slides},
                                                       {"text", &StageCommands::toolbar_text},
                                                       {"draw", &StageCommands::toolbar_draw},
                                                       {"web", &StageCommands::toolbar_web},
                                                       {"youtube", &StageCommands::toolbar_youtube}};

struct Corner {
    Command command;
    base::TwipRectangle place;
};

const std::vector<Corner> kCorners = {
    {&StageCommands::Picture17_Click, {{100}, {100}, {2600}, {1950}}},
    {&StageCommands::Picture21_Click, {{8500}, {100}, {2600}, {1950}}},
    {&StageCommands::Picture22_Click, {{100}, {4250}, {2600}, {1950}}},
    {&StageCommands::Picture23_Click, {{8500}, {4250}, {2600}, {1950}}},
};

/// A stage in a combination of media and mode, as the commands leave it.
class StageCommandsTest : public tests::StageWorld {
  protected:
    void bring(const std::string& media, const std::string& mode)
    {
        press(kMediaCommands.at(media));
        press(commandOf(mode));
        if (mode == "fullcam") {
            ASSERT_EQ(fields.myMediaType, media);
        }
        log.clear();
    }
    void press(Command command) { (commands.*command)(); }

    static Command commandOf(const std::string& mode)
    {
        return mode == "full"   ? &StageCommands::Picture26_Click
               : mode == "side" ? &StageCommands::Picture24_Click
               : mode == "mix"  ? &StageCommands::Picture17_Click
                                : &StageCommands::Picture19_Click;
    }

    /// What a row of the table of combinations shows, read from the bottom up.
    Calls expectedShown(const std::string& media, const std::string& mode) const
    {
        Calls names;
        if (on.WebBrowser2.shown && media != "youtube")
            names.push_back("WebBrowser2");
        names.push_back(surfaceOf(media).name);
        if (mode != "full")
            names.push_back("VideoCap1_back");
        if (mode == "fullcam" && !camera.isConnected)
            names.push_back("cam_icon_trans");
        if ((mode == "side" || mode == "mix") && !camera.isConnected)
            names.push_back("cam_icon_trans_s");
        return names;
    }
    void expectCombination(const std::string& media, const std::string& mode)
    {
        SCOPED_TRACE(media + " in " + mode);
        EXPECT_EQ(fields.myMediaType, media);
        EXPECT_EQ(fields.myWindowMode, mode);
        EXPECT_EQ(shown(), expectedShown(media, mode));
        if (mode != "fullcam") {
            EXPECT_EQ(surfaceOf(media).place, mode == "side" ? kSide : kFull);
        }
        if (mode == "side") {
            EXPECT_EQ(on.VideoCap1_back.place, kSideFrame);
        }
        if (mode == "fullcam") {
            EXPECT_EQ(on.VideoCap1_back.place, kFull);
        }
        expectIconOnFrame(mode);
    }
    void expectIconOnFrame(const std::string& mode)
    {
        if (camera.isConnected || (mode != "side" && mode != "mix"))
            return;
        const auto frame = on.VideoCap1_back.place;
        const auto icon = on.cam_icon_trans_s.place;
        EXPECT_EQ(frame.left.value + frame.width.value / 2, icon.left.value + icon.width.value / 2);
        EXPECT_EQ(frame.top.value + frame.height.value / 2, icon.top.value + icon.height.value / 2);
    }
    void expectPanels()
    {
        EXPECT_EQ(window.panels[5], fields.myWindowMode);
        EXPECT_EQ(window.panels[6], fields.myMediaType);
    }
};

TEST_F(StageCommandsTest, ReachAllTwentyCombinationsWithAndWithoutACamera)
{
    for (const bool connected : {false, true}) {
        camera.isConnected = connected;
        for (const auto& mediaName : kMedia)
            for (const auto& mode : kModes) {
                bring(mediaName, mode);
                expectCombination(mediaName, mode);
            }
    }
}

TEST_F(StageCommandsTest, OfAMedia_EndAFullCameraAndKeepEveryOtherMode)
{
    for (const auto& before : kMedia)
        for (const auto& mode : kModes)
            for (const auto& [mediaName, command] : kMediaCommands) {
                bring(before, mode);
                const auto frame = on.VideoCap1_back.place;
                const auto modePanel = window.panels[5];
                press(command);
                expectCombination(mediaName, mode == "fullcam" ? "full" : mode);
                EXPECT_EQ(on.VideoCap1_back.place, frame) << "a media command moves no camera";
                EXPECT_EQ(window.panels[6], mediaName);
                EXPECT_EQ(window.panels[5], modePanel) << "also where the mode ends, the panel keeps it";
            }
}

TEST_F(StageCommandsTest, OfAMode_KeepTheMedia)
{
    for (const auto& mediaName : kMedia)
        for (const auto& before : kModes)
            for (const auto& mode : kModes) {
                bring(mediaName, before);
                press(commandOf(mode));
                expectCombination(mediaName, mode);
                expectPanels();
            }
}

TEST_F(StageCommandsTest, OfACorner_PutTheCameraThereFromEveryCombination)
{
    for (const auto& mediaName : kMedia)
        for (const auto& before : kModes)
            for (const auto& [command, place] : kCorners) {
                bring(mediaName, before);
                auto expected = place;
                if (command == &StageCommands::Picture23_Click)
                    expected.height = on.VideoCap1_back.place.height;
                press(command);
                expectCombination(mediaName, "mix");
                EXPECT_EQ(on.VideoCap1_back.place, expected);
                expectPanels();
            }
}

TEST_F(StageCommandsTest, BottomRightCornerStraightAfterAFullCamera_LeavesAFrameAsHighAsTheStage)
{
    press(&StageCommands::Picture19_Click);
    press(&StageCommands::Picture23_Click);
    EXPECT_EQ(on.VideoCap1_back.place, (base::TwipRectangle{{8500}, {4250}, {2600}, {6300}}));
    press(&StageCommands::Picture24_Click);
    press(&StageCommands::Picture23_Click);
    EXPECT_EQ(on.VideoCap1_back.place.height, base::Twips{1950});
}

TEST_F(StageCommandsTest, OfTheModeStrip_HideTheSlideMeanwhileAndGoThroughTheirSteps)
{
    log.clear();
    press(&StageCommands::Picture26_Click);
    EXPECT_EQ(log.calls.front(), "slide_img hidden");
    EXPECT_EQ(log.calls.back(), "slide_img shown");
    const Calls end(log.calls.end() - 8, log.calls.end());
    EXPECT_EQ(end, (Calls{"textBoard_txt hidden", "picPaint hidden", "WebBrowser1 hidden", "LoadSlide",
                          "panel6 slides", "panel5 full", "panel6 slides", "slide_img shown"}));
}

TEST_F(StageCommandsTest, FullCamera_NeitherHidesTheSlideNorTouchesTheMedia)
{
    fields.myMediaType = "web";
    log.clear();
    press(&StageCommands::Picture19_Click);
    EXPECT_EQ(log.calls,
              (Calls{"VideoCap1_back 0,0 11205x6300", "VideoCap1_back shown", "cam_icon_trans_s hidden",
                     "cam_icon_trans shown", "cam_icon_trans to the front", "panel5 fullcam"}));
    EXPECT_EQ(view.expanded(), Calls{"camera"});
}

TEST_F(StageCommandsTest, FullCamera_LeavesASlideThatWasHiddenHidden)
{
    on.slide_img.shown = false;
    press(&StageCommands::Picture19_Click);
    EXPECT_FALSE(on.slide_img.shown);
}

TEST_F(StageCommandsTest, OfTheModeStrip_EndWithTheBarOfTheMediaButFullCameraWithItsOwn)
{
    for (const auto& mode : kModes) {
        bring("web", mode);
        EXPECT_EQ(view.expanded(), Calls{mode == "fullcam" ? "camera" : "web"}) << mode;
    }
}

TEST_F(StageCommandsTest, SideBySide_IsTheSameTwice)
{
    log.clear();
    press(&StageCommands::Picture24_Click);
    const auto calls = log.calls;
    EXPECT_EQ((Calls{calls.end() - 3, calls.end()}),
              (Calls{"changeback_btn shown", "panel5 side", "slide_img shown"}));
    log.clear();
    press(&StageCommands::Picture4_Click);
    EXPECT_EQ(log.calls, calls);
}

TEST_F(StageCommandsTest, SideBySide_OffersAnotherBackdropExceptWhileRecording)
{
    for (const auto* state : {"stop", "record", "pause"}) {
        fields.recordState = state;
        window.changeBackVisible = false;
        press(&StageCommands::Picture24_Click);
        EXPECT_EQ(window.changeBackVisible, fields.recordState != "record") << state;
    }
}

TEST_F(StageCommandsTest, SideBySide_WritesNoMediaPanel)
{
    fields.myMediaType = "text";
    log.clear();
    press(&StageCommands::Picture24_Click);
    EXPECT_EQ(log.startingWith("panel6"), Calls{});
}

TEST_F(StageCommandsTest, OfACorner_ShowTheCameraLast)
{
    log.clear();
    press(&StageCommands::Picture22_Click);
    const Calls end(log.calls.end() - 8, log.calls.end());
    EXPECT_EQ(end, (Calls{"VideoCap1_back 100,4250 2600x1950", "cam_icon_trans_s 1025,4940 750x570",
                          "cam_icon_trans_s shown", "cam_icon_trans_s to the front", "VideoCap1_back shown",
                          "panel5 mix", "panel6 slides", "slide_img shown"}));
}

TEST_F(StageCommandsTest, StayFreeWhileRecording)
{
    fields.recordState = "record";
    for (const auto& mediaName : kMedia)
        for (const auto& mode : kModes) {
            bring(mediaName, mode);
            expectCombination(mediaName, mode);
        }
}

TEST_F(StageCommandsTest, FullCameraAndThenWeb_FillsTheStageWithThePage)
{
    press(&StageCommands::Picture19_Click);
    press(&StageCommands::toolbar_web);
    expectCombination("web", "full");
    EXPECT_EQ(on.WebBrowser1.place, kFull);
}

TEST_F(StageCommandsTest, SideAndThenWeb_ShowsThePageAtTheLeft)
{
    press(&StageCommands::Picture24_Click);
    press(&StageCommands::toolbar_web);
    expectCombination("web", "side");
    EXPECT_EQ(on.WebBrowser1.place, kSide);
}

TEST_F(StageCommandsTest, YoutubeAndThenSlides_LeavesTheVideoBehindTheSlide)
{
    press(&StageCommands::toolbar_youtube);
    press(&StageCommands::toolbar_slides);
    EXPECT_EQ(shown(), (Calls{"WebBrowser2", "slide_img_back"}));
}

TEST_F(StageCommandsTest, Slides_ReloadTheSlide)
{
    log.clear();
    press(&StageCommands::toolbar_slides);
    EXPECT_EQ(log.count("LoadSlide"), 1);
}

TEST_F(StageCommandsTest, Draw_ReadiesTheBoardBeforeThePanelIsWritten)
{
    operations.provide(session::Operation::DrawPrepare, [this] { log.add("DrawPrepare"); });
    fields.myWindowMode = "fullcam";
    log.clear();
    press(&StageCommands::toolbar_draw);
    EXPECT_EQ((Calls{log.calls.end() - 3, log.calls.end()}),
              (Calls{"WebBrowser2 0,0 11205x6300", "DrawPrepare", "panel6 draw"}));
}

TEST_F(StageCommandsTest, ThatChooseAMedia_EndAtASurfaceThatFails)
{
    fields.myWindowMode = "fullcam";
    on.slide_img.failing.names = {"move"};
    EXPECT_THROW(press(&StageCommands::toolbar_web), std::runtime_error);
    EXPECT_EQ(fields.myWindowMode, "full");
    EXPECT_FALSE(window.panels.contains(6));
}

TEST_F(StageCommandsTest, OfTheModeStrip_GoOnAfterASurfaceThatFails)
{
    on.VideoCap1_back.failing.names = {"move", "setVisible"};
    window.failing.names = {"setStatusPanel"};
    for (const auto& mode : kModes)
        EXPECT_NO_THROW(press(commandOf(mode))) << mode;
    EXPECT_TRUE(on.slide_img.shown);
}

TEST_F(StageCommandsTest, Label12_LeavesTheCameraHiddenAtItsCorner)
{
    press(&StageCommands::Label12_Click);
    EXPECT_EQ(stageFields.CamStart_txt, "on");
    EXPECT_EQ(on.VideoCap1_back.place, (base::TwipRectangle{{6000}, {120}, {2280}, {1710}}));
    EXPECT_FALSE(on.VideoCap1_back.shown);
    EXPECT_EQ(fields.myWindowMode, "full");
}

TEST_F(StageCommandsTest, Label13_ShowsTheCameraAtItsCorner)
{
    press(&StageCommands::Label13_Click);
    EXPECT_EQ(stageFields.CamStart_txt, "on");
    EXPECT_EQ(on.VideoCap1_back.place, (base::TwipRectangle{{6000}, {4480}, {2280}, {1710}}));
    EXPECT_TRUE(on.VideoCap1_back.shown);
}

TEST_F(StageCommandsTest, Picture16_ShowsTheCameraAtItsCorner)
{
    press(&StageCommands::Picture16_Click);
    EXPECT_EQ(stageFields.CamStart_txt, "off");
    EXPECT_EQ(on.VideoCap1_back.place, (base::TwipRectangle{{120}, {4480}, {2280}, {1710}}));
    EXPECT_TRUE(on.VideoCap1_back.shown);
}

TEST_F(StageCommandsTest, KeepTheOrderInWhichTheSurfacesLie)
{
    for (const auto& mediaName : kMedia)
        for (const auto& mode : kModes)
            bring(mediaName, mode);
    const Calls lowest(on.order.begin(), on.order.begin() + 6);
    EXPECT_EQ(lowest, (Calls{"WebBrowser2", "WebBrowser1", "picPaint", "textBoard_txt", "slide_img_back",
                             "VideoCap1_back"}));
}

} // namespace
} // namespace quillora::stage
