#include "deck/slide_viewer.h"

#include "tests/support/slide_viewer_world.h"

#include <gtest/gtest.h>

namespace quillora::deck {
namespace {

class SlideViewerTest : public tests::SlideViewerWorld {
  protected:
    void deckOf(int slides, const std::string& stem = "Slide", const std::string& extension = ".PNG")
    {
        makeDeck(slides, stem, extension);
        fields.currentSlide = "1";
        viewer.LoadSlide();
    }
    void press(std::string_view key) { viewer.navigation_TB_ButtonClick(key); }
};

using Calls = std::vector<std::string>;

TEST_F(SlideViewerTest, LoadsTheSlideThenTheNextAndFitsThem)
{
    deckOf(3);
    EXPECT_EQ(log.calls, (Calls{"slide_img.LoadFile Slide1.PNG", "slide_img_N.LoadFile Slide2.PNG",
                                "slide_img.ResizeImage 747x420", "slide_img_N.ResizeImage 746x420"}));
    EXPECT_EQ(fields.slideStatus, "Slide 1/3");
}

TEST_F(SlideViewerTest, FitsTheSlideToANarrowPanelAndThePreviewToItsHeightAlone)
{
    slide_img_back.width = base::Twips{8400};
    deckOf(3);
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(560, 420));
    EXPECT_EQ(std::pair(slide_img_N.width, slide_img_N.height), std::pair(746, 420));
}

TEST_F(SlideViewerTest, RoundsSizesToTheNearestPixelAndAHalfToTheEvenOne)
{
    // 172.5 by 100.5 pixels; 1.777 times 100.5 is 178.5885.
    slide_img_back.width = base::Twips{2587};
    slide_img_back.height = base::Twips{1508};
    viewer.ResizeSlide();
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(172, 101));
    EXPECT_EQ(slide_img_N.width, 179);
    slide_img_back.width = base::Twips{1500};
    slide_img_back.height = base::Twips{1500};
    viewer.ResizeSlide();
    EXPECT_EQ(slide_img_N.width, 178);
}

TEST_F(SlideViewerTest, ShowsTheJpegSeriesWhereThereIsNoOther)
{
    deckOf(3, "slide", ".jpg");
    EXPECT_EQ(slide_img.picture, "slide1.jpg");
    EXPECT_EQ(slide_img_N.picture, "slide2.jpg");
}

TEST_F(SlideViewerTest, WithAPngOfSlide1Only_ShowsJpegFromSlide2On)
{
    deckOf(3, "slide", ".jpg");
    make("Slide1.PNG");
    viewer.LoadSlide();
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
    // The preview follows the format of the slide, whose next picture is missing: it stays as it was.
    EXPECT_EQ(slide_img_N.picture, "slide2.jpg");
    press("next");
    EXPECT_EQ(slide_img.picture, "slide2.jpg");
    EXPECT_EQ(slide_img_N.picture, "slide3.jpg");
}

TEST_F(SlideViewerTest, AtTheLastSlide_ThePreviewKeepsItsPicture)
{
    deckOf(3);
    press("next");
    EXPECT_EQ(slide_img_N.picture, "Slide3.PNG");
    press("next");
    EXPECT_EQ(slide_img.picture, "Slide3.PNG");
    EXPECT_EQ(slide_img_N.picture, "Slide3.PNG");
}

TEST_F(SlideViewerTest, OfAMissingPicture_KeepsTheOldOneUnderTheNewNumber)
{
    deckOf(3);
    std::filesystem::remove(workspace.root() / "Slide2.PNG");
    press("next");
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
    EXPECT_EQ(window.panels[2], "Slide 2/3");
}

TEST_F(SlideViewerTest, ASurfaceThatCannotLoad_LeavesThePreviewToLoad)
{
    slide_img.failing.names = {"LoadFile"};
    deckOf(3);
    EXPECT_EQ(slide_img_N.picture, "Slide2.PNG");
}

TEST_F(SlideViewerTest, MovesByItsKeys)
{
    deckOf(4);
    press("next");
    EXPECT_EQ(fields.currentSlide, "2");
    press("last");
    EXPECT_EQ(fields.currentSlide, "4");
    press("pre");
    EXPECT_EQ(fields.currentSlide, "3");
    press("first");
    EXPECT_EQ(fields.currentSlide, "1");
    EXPECT_EQ(window.panels[2], "Slide 1/4");
}

TEST_F(SlideViewerTest, TellsTheIndexAfterTheSlideIsShownAndThePanelLast)
{
    deckOf(2);
    fields.recordState = "record";
    fields.runningTime = "00:00:09";
    log.clear();
    press("next");
    EXPECT_EQ(log.calls.back(), "panel2 Slide 2/2");
    EXPECT_NE(index.slideEntries().find("currentS=\"2\""), std::string::npos);
}

TEST_F(SlideViewerTest, PreOnSlide1AndNextOnTheLast_DoNothing)
{
    deckOf(2);
    log.clear();
    press("pre");
    EXPECT_EQ(log.calls, Calls{});
    press("last");
    log.clear();
    press("next");
    EXPECT_EQ(log.calls, Calls{});
    EXPECT_EQ(fields.currentSlide, "2");
}

TEST_F(SlideViewerTest, FirstAndLast_ReloadWhereTheyStandAlready)
{
    deckOf(2);
    log.clear();
    press("first");
    EXPECT_EQ(log.count("slide_img.LoadFile Slide1.PNG"), 1);
    press("last");
    press("last");
    EXPECT_EQ(log.count("slide_img.LoadFile Slide2.PNG"), 2);
}

TEST_F(SlideViewerTest, WithoutADeck_DoesNothing)
{
    for (const auto* key : {"first", "pre", "next", "last"})
        press(key);
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(SlideViewerTest, OfAnUnknownKey_DoesNothing)
{
    deckOf(3);
    log.clear();
    for (const auto* key : {"", "Next", "second"})
        press(key);
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(SlideViewerTest, CanBeBrowsedInEveryState)
{
    deckOf(4);
    fields.runningTime = "00:00:01";
    for (const auto* state : {"stop", "record", "pause"}) {
        fields.recordState = state;
        press("next");
    }
    EXPECT_EQ(fields.currentSlide, "4");
}

TEST_F(SlideViewerTest, Command10_RebuildsThePictureWithoutItsLines)
{
    deckOf(2);
    slide_img.DrawSegment(0, 0, 5, 5);
    log.clear();
    viewer.Command10_Click();
    EXPECT_EQ(log.calls[0], "slide_img.NewImage 747x420");
    EXPECT_EQ(log.calls[1], "slide_img.LoadFile Slide1.PNG");
    EXPECT_TRUE(slide_img.lines.empty());
    EXPECT_EQ(fields.slideStatus, "Slide 1/2");
}

TEST_F(SlideViewerTest, Command10_ReloadsAlsoWhereNoBlankCanBeMade)
{
    deckOf(2);
    slide_img.failing.names = {"NewImage"};
    slide_img.picture.clear();
    viewer.Command10_Click();
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
}

} // namespace
} // namespace quillora::deck
