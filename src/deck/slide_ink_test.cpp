#include "deck/slide_ink.h"

#include "tests/support/slide_viewer_world.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillora::deck {
namespace {

using Texts = std::vector<std::string>;

class SlideInkTest : public tests::SlideViewerWorld {
  protected:
    SlidePen pen{slide_img};
    SlideInk ink{{window, slide_img, pen, viewer, "/assets"}};

    SlideInkTest()
    {
        makeDeck(9);
        fields.currentSlide = "3";
        viewer.LoadSlide();
        log.clear();
    }

    void press(std::string_view key) { ink.pens_TB_ButtonClick(key); }
    /// One segment, as a drag of the left button makes it.
    void drag()
    {
        pen.slide_img_MouseDown(1, 0, 10, 20);
        pen.slide_img_MouseMove(1, 0, 30, 40);
        pen.slide_img_MouseUp(1, 0, 30, 40);
    }
};

TEST_F(SlideInkTest, StartsWithTheArrow)
{
    EXPECT_EQ(pen.penMode, 0);
    drag();
    EXPECT_EQ(slide_img.lines, Texts{});
}

TEST_F(SlideInkTest, APenSetsWidthColourCursorAndMode)
{
    const std::pair<const char*, const char*> pens[] = {
        {"black", "000000 2"}, {"blue", "ff0000 2"}, {"red", "0000ff 2"}};
    for (const auto& [key, expected] : pens) {
        window.stagePointer.clear();
        pen.penMode = SlidePen::kArrow;
        slide_img.penWidth = 7;
        slide_img.pens.clear();
        press(key);
        EXPECT_EQ(window.stagePointer, "/assets/draw.cur") << key;
        EXPECT_EQ(pen.penMode, 1) << key;
        drag();
        EXPECT_EQ(slide_img.pens, Texts{expected}) << key;
    }
}

TEST_F(SlideInkTest, TheArrowTakesCursorAndPenAway)
{
    press("red");
    press("arrow");
    EXPECT_EQ(window.stagePointer, "");
    EXPECT_EQ(pen.penMode, 0);
    drag();
    EXPECT_EQ(slide_img.lines, Texts{});
}

TEST_F(SlideInkTest, EveryToolbarKeySetsWidth2)
{
    for (const char* key : {"arrow", "black", "blue", "red", "eraser", "unknown", ""}) {
        slide_img.penWidth = 7;
        press(key);
        EXPECT_EQ(slide_img.penWidth, 2) << key;
    }
}

TEST_F(SlideInkTest, AnUnknownKeyChangesNothingButTheWidth)
{
    press("blue");
    log.clear();
    press("Red");
    EXPECT_EQ(log.calls, Texts{"slide_img.PenWidth 2"});
    EXPECT_EQ(slide_img.penColour, base::rgb(0, 0, 255));
    EXPECT_EQ(pen.penMode, 1);
}

TEST_F(SlideInkTest, AWidthLastsUntilTheNextToolbarClick)
{
    press("red");
    ink.Option_Click(11);
    drag();
    EXPECT_EQ(slide_img.pens, Texts{"0000ff 4"});
    press("blue");
    drag();
    EXPECT_EQ(slide_img.pens, (Texts{"0000ff 4", "ff0000 2"}));
}

TEST_F(SlideInkTest, TheWidthsAre1And4And7)
{
    for (const auto& [option, width] : {std::pair{10, 1}, {11, 4}, {12, 7}}) {
        ink.Option_Click(option);
        EXPECT_EQ(slide_img.penWidth, width);
    }
}

TEST_F(SlideInkTest, TheOlderPensSetColourAndCursorAlone)
{
    const std::pair<int, base::Colour> pens[] = {
        {7, base::rgb(0, 0, 0)}, {8, base::rgb(0, 0, 255)}, {9, base::rgb(255, 0, 0)}};
    slide_img.penWidth = 7;
    for (const auto& [option, colour] : pens) {
        window.stagePointer.clear();
        slide_img.penColour = base::rgb(1, 2, 3);
        ink.Option_Click(option);
        EXPECT_EQ(window.stagePointer, "/assets/draw.cur");
        EXPECT_EQ(slide_img.penColour, colour);
    }
    EXPECT_EQ(slide_img.penWidth, 7);
    EXPECT_EQ(pen.penMode, 0);
    drag();
    EXPECT_EQ(slide_img.lines, Texts{});
}

TEST_F(SlideInkTest, TheOlderArrowLeavesThePenInHand)
{
    press("black");
    ink.Option_Click(13);
    EXPECT_EQ(window.stagePointer, "");
    EXPECT_EQ(pen.penMode, 1);
    drag();
    EXPECT_EQ(slide_img.lines.size(), 1U);
}

TEST_F(SlideInkTest, TheEraserBuildsTheSlideAnewAndKeepsThePen)
{
    press("red");
    drag();
    fields.slideStatus = "stale";
    log.clear();
    press("eraser");
    EXPECT_EQ(log.calls, (Texts{"slide_img.PenWidth 2", "slide_img.NewImage 747x420",
                                "slide_img.LoadFile Slide3.PNG", "slide_img_N.LoadFile Slide4.PNG",
                                "slide_img.ResizeImage 747x420", "slide_img_N.ResizeImage 746x420"}));
    EXPECT_EQ(slide_img.lines, Texts{});
    EXPECT_EQ(fields.slideStatus, "Slide 3/9");
    EXPECT_EQ(pen.penMode, 1);
    EXPECT_EQ(slide_img.penColour, base::rgb(255, 0, 0));
    EXPECT_EQ(window.stagePointer, "/assets/draw.cur");
}

TEST_F(SlideInkTest, TheEraserUnderTheArrowDoesNotTakeUpAPen)
{
    press("eraser");
    EXPECT_EQ(pen.penMode, 0);
    EXPECT_EQ(window.stagePointer, "");
}

TEST_F(SlideInkTest, TheEraserLoadsTheSlideEvenWithoutABlankImage)
{
    slide_img.failing.names = {"NewImage"};
    press("eraser");
    EXPECT_EQ(slide_img.picture, "Slide3.PNG");
    EXPECT_EQ(fields.slideStatus, "Slide 3/9");
}

TEST_F(SlideInkTest, Command10WipesLikeTheEraserAndKeepsTheWidth)
{
    press("red");
    ink.Option_Click(12);
    drag();
    log.clear();
    ink.Command10_Click();
    EXPECT_EQ(log.calls, (Texts{"slide_img.NewImage 747x420", "slide_img.LoadFile Slide3.PNG",
                                "slide_img_N.LoadFile Slide4.PNG", "slide_img.ResizeImage 747x420",
                                "slide_img_N.ResizeImage 746x420"}));
    EXPECT_EQ(slide_img.lines, Texts{});
    EXPECT_EQ(slide_img.penWidth, 7);
    EXPECT_EQ(pen.penMode, 1);
}

TEST_F(SlideInkTest, AStepThatFailsLeavesTheRestOfItsCommandUndone)
{
    slide_img.failing.names = {"PenWidth"};
    press("red");
    EXPECT_EQ(window.stagePointer, "");
    EXPECT_EQ(pen.penMode, 0);
    press("eraser");
    EXPECT_EQ(log.count("slide_img.NewImage 747x420"), 0);

    slide_img.failing.names = {"PenColor"};
    press("red");
    EXPECT_EQ(window.stagePointer, "/assets/draw.cur");
    EXPECT_EQ(pen.penMode, 0);

    slide_img.failing.names.clear();
    window.failing.names = {"setStagePointer"};
    press("red");
    EXPECT_EQ(slide_img.penColour, base::rgb(0, 0, 0));
    EXPECT_EQ(pen.penMode, 0);
    pen.penMode = SlidePen::kPen;
    press("arrow");
    EXPECT_EQ(pen.penMode, 1);
}

TEST_F(SlideInkTest, NoOlderControlLetsAFailureOut)
{
    slide_img.failing.names = {"PenWidth", "PenColor", "NewImage", "LoadFile", "ResizeImage"};
    window.failing.names = {"setStagePointer"};
    for (int option = 7; option <= 13; ++option)
        EXPECT_NO_THROW(ink.Option_Click(option)) << option;
    EXPECT_NO_THROW(ink.Command10_Click());
}

TEST_F(SlideInkTest, ASlideChangeAmidADragTakesTheInkAndTheRestIsDrawnOnTheNewSlide)
{
    press("blue");
    pen.slide_img_MouseDown(1, 0, 10, 20);
    pen.slide_img_MouseMove(1, 0, 11, 21);
    viewer.navigation_TB_ButtonClick("next");
    EXPECT_EQ(slide_img.picture, "Slide4.PNG");
    EXPECT_EQ(slide_img.lines, Texts{});
    pen.slide_img_MouseMove(1, 0, 12, 22);
    EXPECT_EQ(slide_img.lines, Texts{"12,22 11,21"});
    EXPECT_EQ(pen.penMode, 1);
}

TEST_F(SlideInkTest, GoesWithItsSlideAndDoesNotComeBack)
{
    press("black");
    drag();
    viewer.navigation_TB_ButtonClick("next");
    viewer.navigation_TB_ButtonClick("pre");
    EXPECT_EQ(slide_img.picture, "Slide3.PNG");
    EXPECT_EQ(slide_img.lines, Texts{});
}

TEST_F(SlideInkTest, WorksInEveryStateAndTellsTheIndexNothing)
{
    for (const char* state : {"stop", "record", "pause"}) {
        fields.recordState = state;
        const std::string entries = index.slideEntries();
        press("red");
        slide_img.lines.clear();
        drag();
        EXPECT_EQ(slide_img.lines.size(), 1U) << state;
        press("eraser");
        EXPECT_EQ(slide_img.lines.size(), 0U) << state;
        EXPECT_EQ(index.slideEntries(), entries) << state;
    }
}

TEST_F(SlideInkTest, EraseDrawDoesNothing)
{
    press("black");
    drag();
    log.clear();
    ink.EraseDraw();
    EXPECT_EQ(log.calls, Texts{});
    EXPECT_EQ(slide_img.lines.size(), 1U);
}

} // namespace
} // namespace quillora::deck
