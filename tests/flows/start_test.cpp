#include "panels/service_addresses.h"
#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Start = LectureWorld;
using Calls = std::vector<std::string>;

TEST_F(Start, OnAFreshMachine_MakesBothFolders)
{
    EXPECT_TRUE(std::filesystem::is_directory(root));
    EXPECT_TRUE(std::filesystem::is_directory(root / "Preview"));
}

TEST_F(Start, BringsTheWindowIntoItsFirstState)
{
    EXPECT_EQ(window.caption, "Quillora Recorder (Version 3.13.0)");
    EXPECT_EQ(window.panels[1], "Ready ...");
    EXPECT_EQ(window.panels[5], "full");
    EXPECT_EQ(window.panels[6], "slides");
    EXPECT_EQ(fields.recordState, "stop");
    EXPECT_EQ(fields.myWindowMode, "full");
    EXPECT_EQ(fields.myMediaType, "slides");
    EXPECT_EQ(fields.ppt_txt, "no");
    EXPECT_EQ(fields.asf_name_lb, "no_video");
    EXPECT_EQ(fields.lang_txt, "eng");
    EXPECT_EQ(fields.Text2, "R");
    EXPECT_EQ(fields.workspacePath, root.string());
}

TEST_F(Start, ShowsTheShortPaneWithAllItsBarsExpanded)
{
    ASSERT_EQ(paneView.bars.size(), 3U);
    EXPECT_EQ(paneView.expanded(), (Calls{"camera", "powerpoint", "help"}));
    EXPECT_TRUE(window.buttonVisible["more"]);
    for (const auto* key : {"text", "draw", "web", "youtube", "desktop", "less"})
        EXPECT_FALSE(window.buttonVisible[key]) << key;
}

TEST_F(Start, MoreAndThenLess_GiveThePaneOfTheStartBack)
{
    const auto barsAtFirst = paneView.bars;
    const auto buttonsAtFirst = window.buttonVisible;
    press("more");
    EXPECT_EQ(paneView.bars.size(), 7U);
    press("less");
    EXPECT_EQ(paneView.bars, barsAtFirst);
    EXPECT_EQ(window.buttonVisible, buttonsAtFirst);
}

TEST_F(Start, APaneThatIsBuiltAgain_ForgetsTheMediaThatTheStageStillShows)
{
    press("more");
    press("text");
    EXPECT_EQ(paneView.expanded(), Calls{"text"});
    press("less");
    press("more");
    EXPECT_EQ(paneView.expanded(), Calls{"camera"});
    EXPECT_EQ(fields.myMediaType, "text");
    EXPECT_TRUE(surfaces.textBoard_txt.shown);
}

TEST_F(Start, PutsTheStartPictureOnTheStageAtItsSize)
{
    EXPECT_EQ(log.startingWith("slide_img."),
              (Calls{"slide_img.NewImage 747x420", "slide_img.LoadFile PPT.png",
                     "slide_img.ResizeImage 747x420", "slide_img.ResizeImage 747x420"}));
    EXPECT_EQ(slide_img.picture, "PPT.png");
}

TEST_F(Start, GoesThroughItsStepsInTheirOrder)
{
    EXPECT_EQ(log.calls,
              (Calls{"ActivateHotKey", "slide_img.NewImage 747x420", "slide_img.LoadFile PPT.png",
                     "slide_img.ResizeImage 747x420", "slide_img.ResizeImage 747x420",
                     "slide_img_N.ResizeImage 746x420", "WebBrowser1.Navigate " + panels::WebStartUrl(),
                     "WebBrowser2.Navigate " + panels::PlayerBaseUrl(), "Timer1.enable", "setCaption",
                     "panel5 full", "panel6 slides"}));
}

TEST_F(Start, MakesTheWebPageSilentAtItsOneTick)
{
    log.clear();
    Timer1.tick();
    Timer1.tick();
    EXPECT_EQ(log.calls, (Calls{"WebBrowser1.Silent True", "Timer1.disable"}));
}

TEST_F(Start, GoesOnWithoutTheBrowsers)
{
    WebBrowser1.failing = {{"Navigate", "Silent"}};
    WebBrowser2.failing = {{"Navigate"}};
    log.clear();
    mainForm.Form_Load();
    EXPECT_EQ(log.calls.back(), "panel6 slides");
}

TEST_F(Start, WithoutTheStartPicture_ShowsABlankStage)
{
    std::filesystem::remove(assets / "PPT.png");
    mainForm.Form_Load();
    EXPECT_EQ(slide_img.picture, "blank");
    EXPECT_EQ(window.panels[6], "slides");
}

TEST_F(Start, AfterACrashWhileRecording_KeepsTheVersionFileAndThePreviewOnly)
{
    openDeck();
    startRecording();
    stopAndSave();
    startRecording();
    writeFile(root / "Preview" / "kept.wmv", "x");
    mainForm.Form_Load();
    EXPECT_EQ(namesIn(root), (Calls{"Preview", "version.txt"}));
    EXPECT_EQ(namesIn(root / "Preview"), Calls{"kept.wmv"});
}

TEST_F(Start, AtItsEnd_LeavesTheWorkspaceAsItIs)
{
    openDeck();
    const auto before = namesIn(root);
    mainForm.Form_Unload();
    EXPECT_EQ(namesIn(root), before);
}

TEST_F(Start, HasNoVersionFileBeforeTheFirstStop)
{
    openDeck();
    startRecording();
    EXPECT_FALSE(std::filesystem::exists(root / "version.txt"));
    stopAndSave();
    EXPECT_EQ(readFile(root / "version.txt"), "Version 3.13.0\r\n");
}

TEST_F(Start, BeforeADeckWasOpened_TheNavigationKeysDoNothing)
{
    log.clear();
    for (const auto* key : {"first", "pre", "next", "last"})
        turn(key);
    EXPECT_EQ(log.calls, Calls{});
    EXPECT_EQ(fields.currentSlide, "");
}

} // namespace
} // namespace quillora::tests
