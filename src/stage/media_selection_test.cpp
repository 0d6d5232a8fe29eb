#include "stage/media_selection.h"

#include "deck/task_pane.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_slide_show.h"
#include "tests/support/fake_stage_surfaces.h"
#include "tests/support/fake_task_pane_view.h"

#include <gtest/gtest.h>

namespace quillora::stage {
namespace {

using session::BarState;
using Calls = std::vector<std::string>;

class MediaSelectionTest : public testing::Test {
  protected:
    MediaSelectionTest() { pane.AddExpBar(); }

    void choose(const std::string& media)
    {
        log.clear();
        fields.myMediaType = media;
        selection.setMediaType();
    }
    void expandAll()
    {
        for (const auto* bar : {"camera", "powerpoint", "text", "draw", "web", "youtube", "help"})
            pane.setBarState(bar, BarState::expanded);
    }

    tests::CallLog log{};
    tests::FakeMainWindow window{log};
    tests::FakeSlideShow slides{log};
    tests::FakeStageSurfaces surfaces{log};
    tests::FakeTaskPaneView view{};
    deck::TaskPane pane{view};
    session::SessionFields fields{};
    MediaSelection selection{{fields, window, slides, pane, surfaces.all}};
};

TEST_F(MediaSelectionTest, OfSlides_ShowsThemAndReloadsBeforePanelSixIsWritten)
{
    choose("slides");
    EXPECT_EQ(log.calls, (Calls{"slide_img_back shown", "textBoard_txt hidden", "picPaint hidden",
                                "WebBrowser1 hidden", "LoadSlide", "panel6 slides"}));
}

TEST_F(MediaSelectionTest, OfSlides_LoadsTheSlideBetweenTheSurfacesAndTheBars)
{
    view.log = &log;
    choose("slides");
    EXPECT_EQ(log.calls,
              (Calls{"slide_img_back shown", "textBoard_txt hidden", "picPaint hidden", "WebBrowser1 hidden",
                     "LoadSlide", "powerpoint expanded", "camera collapsed", "text collapsed",
                     "Draw collapsed", "web collapsed", "help collapsed", "panel6 slides"}));
}

TEST_F(MediaSelectionTest, OfText_ShowsTheTextBoardAndHidesTheOthers)
{
    choose("text");
    EXPECT_EQ(log.calls, (Calls{"textBoard_txt shown", "slide_img_back hidden", "picPaint hidden",
                                "WebBrowser1 hidden"}));
}

TEST_F(MediaSelectionTest, OfDraw_ShowsTheDrawingBoardAndHidesTheOthers)
{
    choose("draw");
    EXPECT_EQ(log.calls, (Calls{"picPaint shown", "slide_img_back hidden", "textBoard_txt hidden",
                                "WebBrowser1 hidden"}));
}

TEST_F(MediaSelectionTest, OfWeb_ShowsThePageAndHidesTheOthers)
{
    choose("web");
    EXPECT_EQ(log.calls, (Calls{"WebBrowser1 shown", "picPaint hidden", "slide_img_back hidden",
                                "textBoard_txt hidden"}));
}

TEST_F(MediaSelectionTest, OfYoutube_ShowsTheVideoAndHidesTheOthers)
{
    choose("youtube");
    EXPECT_EQ(log.calls, (Calls{"WebBrowser2 shown", "picPaint hidden", "slide_img_back hidden",
                                "textBoard_txt hidden", "WebBrowser1 hidden"}));
}

TEST_F(MediaSelectionTest, NeverHidesTheVideoAgain)
{
    choose("youtube");
    for (const auto* media : {"slides", "text", "draw", "web", "youtube"}) {
        choose(media);
        EXPECT_TRUE(surfaces.WebBrowser2.shown) << media;
    }
    EXPECT_EQ(surfaces.order.front(), "WebBrowser2");
}

TEST_F(MediaSelectionTest, LeavesTheCameraAsTheModeLeftIt)
{
    for (const bool shown : {true, false}) {
        surfaces.VideoCap1_back.shown = surfaces.cam_icon_trans.shown = surfaces.cam_icon_trans_s.shown =
            shown;
        for (const auto* media : {"slides", "text", "draw", "web", "youtube"}) {
            choose(media);
            EXPECT_EQ(surfaces.VideoCap1_back.shown, shown);
            EXPECT_EQ(surfaces.cam_icon_trans.shown, shown);
            EXPECT_EQ(surfaces.cam_icon_trans_s.shown, shown);
        }
    }
}

TEST_F(MediaSelectionTest, OpensTheBarOfTheMediaAndClosesTheOthers)
{
    const std::pair<const char*, const char*> barOf[] = {
        {"text", "text"}, {"draw", "Draw"}, {"web", "web"}, {"youtube", "youtube"}};
    for (const auto& [media, bar] : barOf) {
        expandAll();
        choose(media);
        EXPECT_EQ(view.expanded(), Calls{bar});
    }
}

TEST_F(MediaSelectionTest, OfSlides_LeavesTheBarOfTheVideoAsItIs)
{
    expandAll();
    choose("slides");
    EXPECT_EQ(view.expanded(), (Calls{"powerpoint", "youtube"}));
    pane.setBarState("youtube", BarState::collapsed);
    choose("slides");
    EXPECT_EQ(view.expanded(), Calls{"powerpoint"});
}

TEST_F(MediaSelectionTest, WorksInTheShortPaneThatLacksMostBars)
{
    pane.AddExpBarLess();
    for (const auto* media : {"text", "draw", "web", "youtube"}) {
        EXPECT_NO_THROW(choose(media));
        EXPECT_EQ(view.expanded(), Calls{});
    }
    choose("slides");
    EXPECT_EQ(view.expanded(), Calls{"powerpoint"});
    EXPECT_EQ(window.panels[6], "slides");
}

TEST_F(MediaSelectionTest, OfAnyOtherText_DoesNothing)
{
    for (const auto* text : {"", "Slides", "powerpoint", "camera", "help", "WEB", "web "}) {
        choose(text);
        EXPECT_EQ(log.calls, Calls{}) << text;
    }
}

TEST_F(MediaSelectionTest, SkipsWhatFails)
{
    surfaces.picPaint.failing.names = {"setVisible"};
    window.failing.names = {"setStatusPanel"};
    EXPECT_NO_THROW(choose("slides"));
    EXPECT_EQ(log.calls,
              (Calls{"slide_img_back shown", "textBoard_txt hidden", "WebBrowser1 hidden", "LoadSlide"}));
    EXPECT_EQ(view.expanded(), Calls{"powerpoint"});
}

} // namespace
} // namespace quillora::stage
