#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

using Calls = std::vector<std::string>;

class DeckFlow : public LectureWorld {
  protected:
    /// As the log has them, such as "picPaint 0,0 8400x6300".
    Calls placesGivenTo(const std::string& surface) const
    {
        Calls places;
        for (const auto& call : log.startingWith(surface + " "))
            if (call.find(',') != std::string::npos)
                places.push_back(call);
        return places;
    }
    void drawALine()
    {
        pen.penMode = deck::SlidePen::kPen;
        pen.slide_img_MouseDown(1, 0, 10, 10);
        pen.slide_img_MouseMove(1, 0, 20, 20);
        pen.slide_img_MouseUp(1, 0, 20, 20);
    }
};

TEST_F(DeckFlow, ADialog_LetsTheConverterStartBehindThePresentersChoice)
{
    CommonDialog1.willBeCancelled();
    press("open");
    EXPECT_EQ(converter.prepared, 1);
}

TEST_F(DeckFlow, OpeningADeck_ShowsItsFirstSlide)
{
    openDeck(12);
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
    EXPECT_EQ(slide_img_N.picture, "Slide2.PNG");
    EXPECT_TRUE(surfaces.slide_img_back.shown);
    EXPECT_EQ(window.panels[1], "Ready...");
    EXPECT_EQ(window.panels[2], "Slide 1/12");
    EXPECT_EQ(window.panels[6], "slides");
    EXPECT_EQ(fields.ppt_txt, "ppt");
}

TEST_F(DeckFlow, OpeningADeck_GivesBothPointersBack)
{
    window.stagePointer = assets / "pen.cur";
    openDeck();
    EXPECT_EQ(window.pointer, "");
    EXPECT_EQ(window.stagePointer, "");
}

TEST_F(DeckFlow, OpeningADeck_BringsTheSlidesBackOntoTheStage)
{
    fields.myMediaType = "web";
    surfaces.slide_img_back.shown = false;
    openDeck();
    EXPECT_EQ(fields.myMediaType, "slides");
    EXPECT_TRUE(surfaces.slide_img_back.shown);
}

TEST_F(DeckFlow, OpeningADeck_EndsAFullCameraAndNoOtherMode)
{
    for (const auto& [before, after] : {std::pair{"fullcam", "full"}, {"side", "side"}, {"mix", "mix"}}) {
        fields.myWindowMode = before;
        openDeck();
        EXPECT_EQ(fields.myWindowMode, after);
    }
}

TEST_F(DeckFlow, OpeningADeck_MovesNoSurfaceInSideAndMix)
{
    for (const auto command :
         {&stage::StageCommands::Picture24_Click, &stage::StageCommands::Picture17_Click}) {
        (stageCommands.*command)();
        log.clear();
        openDeck();
        for (const auto& name : surfaces.order)
            EXPECT_EQ(placesGivenTo(name), Calls{}) << fields.myWindowMode;
        EXPECT_EQ(placesGivenTo("slide_img"), Calls{}) << fields.myWindowMode;
    }
}

TEST_F(DeckFlow, OpeningADeck_LeavesTheBarOfTheSlidesAloneExpanded)
{
    press("more");
    for (const auto& bar : std::vector(paneView.bars))
        ebDemo.setBarState(bar.key, session::BarState::expanded);
    ASSERT_EQ(paneView.expanded().size(), 7U);
    openDeck();
    EXPECT_EQ(paneView.expanded(), Calls{"powerpoint"});
}

TEST_F(DeckFlow, ASecondDeck_ReplacesTheFirstAsAWhole)
{
    openDeck(5);
    turn("last");
    openDeck(2);
    EXPECT_EQ(fields.currentSlide, "1");
    EXPECT_EQ(fields.slideStatus, "Slide 1/2");
    EXPECT_EQ(namesIn(root), (Calls{"Preview", "Slide1.PNG", "Slide2.PNG", "slide1.jpg", "slide2.jpg"}));
}

TEST_F(DeckFlow, CancellingTheDialog_LeavesTheDeckAndItsFiles)
{
    openDeck(3);
    turn("next");
    const auto files = namesIn(root);
    CommonDialog1.willBeCancelled();
    press("open");
    EXPECT_EQ(namesIn(root), files);
    EXPECT_EQ(fields.slideStatus, "Slide 2/3");
    EXPECT_EQ(fields.ppt_txt, "ppt");
    EXPECT_EQ(slide_img.picture, "Slide2.PNG");
}

TEST_F(DeckFlow, CancellingTheFirstDialog_LeavesNoDeck)
{
    CommonDialog1.willBeCancelled();
    press("open");
    EXPECT_EQ(fields.ppt_txt, "no");
    EXPECT_EQ(slide_img.picture, "PPT.png");
}

TEST_F(DeckFlow, WithoutAConverter_LeavesAnEmptyDeckAndAUsableProgram)
{
    converter.failing.names = {"createApplication"};
    openDeck();
    EXPECT_EQ(window.panels[2], "Slide 1/0");
    EXPECT_EQ(slide_img.picture, "PPT.png");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(window.pointer, "");
    converter.failing.names.clear();
    openDeck(2);
    EXPECT_EQ(window.panels[2], "Slide 1/2");
}

TEST_F(DeckFlow, WithoutAConverter_KeepsTheOldPictureButNotItsFile)
{
    openDeck(3);
    converter.failing.names = {"Open"};
    openDeck();
    EXPECT_EQ(slide_img.picture, "Slide1.PNG");
    EXPECT_EQ(namesIn(root), Calls{"Preview"});
}

TEST_F(DeckFlow, AnEmptyDeck_LeavesNextAndPreWithoutEffect)
{
    openDeck(0);
    EXPECT_EQ(fields.slideStatus, "Slide 1/0");
    turn("next");
    turn("pre");
    EXPECT_EQ(fields.currentSlide, "1");
    turn("last");
    EXPECT_EQ(fields.currentSlide, "0");
    turn("first");
    EXPECT_EQ(fields.currentSlide, "1");
}

TEST_F(DeckFlow, OfMoreThanAHundredSlides_CanBeWalkedThrough)
{
    openDeck(120);
    turn("last");
    EXPECT_EQ(window.panels[2], "Slide 120/120");
    EXPECT_EQ(slide_img.picture, "Slide120.PNG");
}

TEST_F(DeckFlow, ThePenLines_AreGoneAfterNextAndDoNotComeBack)
{
    openDeck(3);
    drawALine();
    ASSERT_EQ(slide_img.lines.size(), 1U);
    turn("next");
    EXPECT_TRUE(slide_img.lines.empty());
    turn("pre");
    EXPECT_TRUE(slide_img.lines.empty());
}

TEST_F(DeckFlow, ThePenLines_AreGoneAfterSlidesWasPressed)
{
    openDeck(3);
    turn("next");
    drawALine();
    ASSERT_EQ(slide_img.lines.size(), 1U);
    press("slides");
    EXPECT_TRUE(slide_img.lines.empty());
    EXPECT_EQ(slide_img.picture, "Slide2.PNG");
}

TEST_F(DeckFlow, WithoutADeck_TheStartPictureIsStretchedToThePanelInEachMode)
{
    stageCommands.Picture24_Click();
    EXPECT_EQ(slide_img.picture, "PPT.png");
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(560, 420));
    stageCommands.Picture26_Click();
    EXPECT_EQ(slide_img.picture, "PPT.png");
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(747, 420));
}

TEST_F(DeckFlow, TheSizeOfThePanel_IsFollowedBothWaysWithoutANewImport)
{
    openDeck(3);
    surfaces.slide_img_back.place.width = base::Twips{8400};
    viewer.LoadSlide();
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(560, 420));
    surfaces.slide_img_back.place.width = base::kStageWidth;
    viewer.LoadSlide();
    EXPECT_EQ(std::pair(slide_img.width, slide_img.height), std::pair(747, 420));
}

TEST_F(DeckFlow, OpeningADeck_EndsWithTheSlidesTheStatusAndThePointer)
{
    converter.failing.names = {"createApplication"};
    log.clear();
    openDeck();
    const Calls end(std::ranges::find(log.calls, "panel2 Slide 1/0"), log.calls.end());
    EXPECT_EQ(end,
              (Calls{"panel2 Slide 1/0", "pointer ", "slide_img_back shown", "textBoard_txt hidden",
                     "picPaint hidden", "WebBrowser1 hidden", "slide_img.LoadFile Slide1.jpg",
                     "slide_img_N.LoadFile Slide2.jpg", "slide_img.ResizeImage 747x420",
                     "slide_img_N.ResizeImage 746x420", "panel6 slides", "panel1 Ready...", "pointer "}));
}

TEST_F(DeckFlow, CancellingTheFirstDialog_StillBuildsAStatusSoThatFirstPassesItsGuard)
{
    turn("first");
    EXPECT_EQ(fields.currentSlide, "");
    CommonDialog1.willBeCancelled();
    press("open");
    EXPECT_EQ(fields.slideStatus, "Slide /");
    turn("first");
    EXPECT_EQ(window.panels[2], "Slide 1/");
}

TEST_F(DeckFlow, ADeckThatCouldNotBeImported_CanBeRecordedAllTheSame)
{
    converter.failing.names = {"Open"};
    openDeck();
    startRecording();
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(window.panels[2], "Slide 1/0");
}

TEST_F(DeckFlow, ThePictureOnTheStage_OpensADeckAndLeavesMediaModeAndStatus)
{
    fields.myMediaType = "web";
    fields.myWindowMode = "fullcam";
    surfaces.slide_img_back.shown = false;
    CommonDialog1.willChoose(documents / "deck.pptx");
    deckShortcut.Image1_Click();
    EXPECT_TRUE(surfaces.slide_img_back.shown);
    EXPECT_EQ(fields.slideStatus, "Slide 1/3");
    EXPECT_EQ(fields.myMediaType, "web");
    EXPECT_EQ(fields.myWindowMode, "fullcam");
    EXPECT_EQ(window.panels[1], "Loading slides...");
}

TEST_F(DeckFlow, ThePictureOnTheStage_OpensADeckAlsoWhileRecording)
{
    openDeck(3);
    startRecording();
    CommonDialog1.willChoose(documents / "other.pptx");
    converter.slideCount = 7;
    deckShortcut.Image1_Click();
    EXPECT_EQ(fields.slideStatus, "Slide 1/7");
    EXPECT_EQ(fields.recordState, "record");
}

} // namespace
} // namespace quillora::tests
