#include "stage/stage_layout.h"

#include "tests/support/stage_world.h"

namespace quillora::stage {
namespace {

using tests::kFull;
using tests::kSide;
using tests::kSideFrame;
using Calls = std::vector<std::string>;

class StageLayoutTest : public tests::StageWorld {
  protected:
    void lay(const std::string& mode)
    {
        fields.myWindowMode = mode;
        log.clear();
        layout.setWindowMode();
    }
    void expectMediaAt(const base::TwipRectangle& place)
    {
        for (const auto* surface : {&on.slide_img_back, &on.slide_img, &on.textBoard_txt, &on.picPaint,
                                    &on.WebBrowser1, &on.WebBrowser2})
            EXPECT_EQ(surface->place, place) << surface->name;
    }
};

TEST_F(StageLayoutTest, OfFull_GoesThroughItsStepsInTheirOrder)
{
    lay("full");
    EXPECT_EQ(log.calls, (Calls{"VideoCap1_back hidden", "cam_icon_trans hidden", "cam_icon_trans_s hidden",
                                "slide_img 0,0 11205x6300", "slide_img_back 0,0 11205x6300", "LoadSlide",
                                "textBoard_txt 0,0 11205x6300", "picPaint 0,0 11205x6300",
                                "WebBrowser1 0,0 11205x6300", "WebBrowser2 0,0 11205x6300"}));
}

TEST_F(StageLayoutTest, OfMix_IsThatOfFull)
{
    lay("full");
    const auto full = log.calls;
    lay("mix");
    EXPECT_EQ(log.calls, full);
}

TEST_F(StageLayoutTest, OfSide_GoesThroughItsStepsInTheirOrder)
{
    lay("side");
    EXPECT_EQ(log.calls, (Calls{"cam_icon_trans hidden", "cam_icon_trans_s shown",
                                "cam_icon_trans_s to the front", "VideoCap1_back 8500,100 2600x1950",
                                "VideoCap1_back shown", "cam_icon_trans_s 9425,790 750x570",
                                "slide_img_back 0,0 8400x6300", "slide_img 0,0 8400x6300", "LoadSlide",
                                "picPaint 0,0 8400x6300", "textBoard_txt 0,0 8400x6300",
                                "WebBrowser1 0,0 8400x6300", "WebBrowser2 0,0 8400x6300"}));
}

TEST_F(StageLayoutTest, OfSideWithACamera_HidesItsStandIn)
{
    camera.isConnected = true;
    on.cam_icon_trans_s.shown = true;
    lay("side");
    EXPECT_FALSE(on.cam_icon_trans_s.shown);
    EXPECT_EQ(shown(), (Calls{"slide_img_back", "VideoCap1_back"}));
}

TEST_F(StageLayoutTest, OfFullCamera_GoesThroughItsStepsInTheirOrder)
{
    lay("fullcam");
    EXPECT_EQ(log.calls,
              (Calls{"VideoCap1_back 0,0 11205x6300", "VideoCap1_back shown", "cam_icon_trans_s hidden",
                     "cam_icon_trans shown", "cam_icon_trans to the front"}));
}

TEST_F(StageLayoutTest, OfFullCamera_SetsTheBarsLast)
{
    view.log = &log;
    lay("fullcam");
    EXPECT_EQ(log.calls,
              (Calls{"VideoCap1_back 0,0 11205x6300", "VideoCap1_back shown", "cam_icon_trans_s hidden",
                     "cam_icon_trans shown", "cam_icon_trans to the front", "camera expanded",
                     "powerpoint collapsed", "text collapsed", "Draw collapsed", "web collapsed"}));
}

TEST_F(StageLayoutTest, OfFullCameraWithACamera_ShowsNoStandIn)
{
    camera.isConnected = true;
    on.cam_icon_trans.shown = true;
    lay("fullcam");
    EXPECT_EQ(shown(), (Calls{"slide_img_back", "VideoCap1_back"}));
}

TEST_F(StageLayoutTest, OfFullCamera_OpensTheCamerasBarAndLeavesThoseOfVideoAndHelp)
{
    for (const auto* bar : {"powerpoint", "text", "draw", "web", "youtube", "help"})
        pane.setBarState(bar, session::BarState::expanded);
    pane.setBarState("camera", session::BarState::collapsed);
    lay("fullcam");
    EXPECT_EQ(view.expanded(), (Calls{"camera", "youtube", "help"}));
}

TEST_F(StageLayoutTest, OfFullCamera_WorksInTheShortPane)
{
    pane.AddExpBarLess();
    EXPECT_NO_THROW(lay("fullcam"));
    EXPECT_EQ(view.expanded(), (Calls{"camera", "help"}));
}

TEST_F(StageLayoutTest, OfFullCamera_LeavesTheMediaWhereTheyAre)
{
    lay("side");
    lay("fullcam");
    expectMediaAt(kSide);
    lay("full");
    expectMediaAt(kFull);
}

TEST_F(StageLayoutTest, OfFullAfterSide_PutsEveryMediaBackAlsoThoseThatAreHidden)
{
    lay("side");
    expectMediaAt(kSide);
    lay("full");
    expectMediaAt(kFull);
    EXPECT_EQ(shown(), Calls{"slide_img_back"});
}

TEST_F(StageLayoutTest, OfSideAfterFull_PutsTheFrameAtTheTopRightWhicheverCornerItHad)
{
    on.VideoCap1_back.place = {{100}, {4250}, {2600}, {1950}};
    lay("full");
    lay("side");
    EXPECT_EQ(on.VideoCap1_back.place, kSideFrame);
}

TEST_F(StageLayoutTest, OfFull_LeavesTheCameraConnected)
{
    camera.isConnected = true;
    lay("full");
    EXPECT_TRUE(camera.isConnected);
    EXPECT_FALSE(on.VideoCap1_back.shown);
}

TEST_F(StageLayoutTest, OfAnyOtherText_DoesNothing)
{
    for (const auto* text : {"", "Full", "FULLCAM", "camera", "side "}) {
        lay(text);
        EXPECT_EQ(log.calls, Calls{}) << text;
    }
}

TEST_F(StageLayoutTest, EndsAtASurfaceThatFails)
{
    on.slide_img.failing.names = {"move"};
    EXPECT_THROW(lay("full"), std::runtime_error);
    EXPECT_EQ(log.count("LoadSlide"), 0);
}

TEST_F(StageLayoutTest, SideMode_ShowsTheSlideWhenNoMediaIsVisible)
{
    on.slide_img.shown = false;
    layout.SideMode();
    EXPECT_TRUE(on.slide_img.shown);
    EXPECT_EQ(log.calls.front(), "slide_img shown");
}

TEST_F(StageLayoutTest, SideModeAndMixedMode_LeaveTheSlideHiddenWhileAnyMediaIsVisible)
{
    for (auto* surface : {&on.picPaint, &on.WebBrowser2, &on.WebBrowser1, &on.textBoard_txt}) {
        on.slide_img.shown = false;
        surface->shown = true;
        layout.SideMode();
        layout.MixedMode();
        EXPECT_FALSE(on.slide_img.shown) << surface->name;
        surface->shown = false;
    }
}

TEST_F(StageLayoutTest, MixedMode_ShowsTheSlideAfterItHasLaidOut)
{
    on.slide_img.shown = false;
    layout.MixedMode();
    EXPECT_TRUE(on.slide_img.shown);
    EXPECT_EQ(log.calls.back(), "panel1 ");
    EXPECT_EQ(log.calls[log.calls.size() - 2], "slide_img shown");
}

TEST_F(StageLayoutTest, SideModeAndMixedMode_ClearTheSessionTextAlsoWhileRecording)
{
    fields.recordState = "record";
    window.panels[1] = "Recording ...";
    layout.SideMode();
    EXPECT_EQ(window.panels[1], "");
    window.panels[1] = "Recording ...";
    layout.MixedMode();
    EXPECT_EQ(window.panels[1], "");
}

TEST_F(StageLayoutTest, SideModeAndMixedMode_KeepTheSessionTextWhileText4SaysRun)
{
    stageFields.Text4 = "run";
    layout.SideMode();
    layout.MixedMode();
    EXPECT_EQ(window.panels[1], "Ready ...");
}

TEST_F(StageLayoutTest, SideBySideMode_LeavesTheModeAndItsPanel)
{
    layout.side_by_side_mode();
    EXPECT_EQ(stageFields.CamStart_txt, "on");
    EXPECT_EQ(fields.myWindowMode, "full");
    EXPECT_FALSE(window.panels.contains(5));
    expectMediaAt(kSide);
}

TEST_F(StageLayoutTest, CheckCamIcon_InMix_CentresTheSmallPictureOnTheFrame)
{
    fields.myWindowMode = "mix";
    on.VideoCap1_back.place = {{100}, {4250}, {2600}, {1950}};
    layout.checkCamIcon();
    EXPECT_EQ(on.cam_icon_trans_s.place, (base::TwipRectangle{{1025}, {4940}, {750}, {570}}));
    EXPECT_TRUE(on.cam_icon_trans_s.shown);
    EXPECT_EQ(on.order.back(), "cam_icon_trans_s");
}

TEST_F(StageLayoutTest, CheckCamIcon_RoundsHalfATwipToTheEvenNeighbour)
{
    fields.myWindowMode = "mix";
    on.VideoCap1_back.place = {{3000}, {2160}, {8745}, {6645}};
    layout.checkCamIcon();
    // The middles are 7372.5 and 5482.5; the icon's halves are 375 and 285.
    EXPECT_EQ(on.cam_icon_trans_s.place, (base::TwipRectangle{{6998}, {5198}, {750}, {570}}));
}

TEST_F(StageLayoutTest, CheckCamIcon_InSide_ShowsTheSmallPictureWhereItIs)
{
    fields.myWindowMode = "side";
    on.cam_icon_trans_s.place.left = {1};
    layout.checkCamIcon();
    EXPECT_EQ(log.calls, (Calls{"cam_icon_trans_s shown", "cam_icon_trans_s to the front"}));
}

TEST_F(StageLayoutTest, CheckCamIcon_InFull_ShowsNothing)
{
    layout.checkCamIcon();
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(StageLayoutTest, CheckCamIcon_WithACamera_HidesBothPicturesInEveryMode)
{
    camera.isConnected = true;
    for (const auto* mode : {"full", "side", "mix", "fullcam"}) {
        fields.myWindowMode = mode;
        on.cam_icon_trans.shown = on.cam_icon_trans_s.shown = true;
        layout.checkCamIcon();
        EXPECT_FALSE(on.cam_icon_trans.shown) << mode;
        EXPECT_FALSE(on.cam_icon_trans_s.shown) << mode;
    }
}

} // namespace
} // namespace quillora::stage
