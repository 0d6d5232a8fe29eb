#include "deck/deck_import.h"

#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_image_surface.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_presentation_converter.h"
#include "tests/support/fake_slide_show.h"
#include "tests/support/file_contents.h"
#include "tests/support/names_in.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/working_directory.h"

#include <gtest/gtest.h>

namespace quillora::deck {
namespace {

class DeckImportTest : public testing::Test {
  protected:
    tests::TemporaryFolder disk{};
    tests::TemporaryFolder current{};
    tests::WorkingDirectory workingDirectory{current.path()};
    tests::CallLog log{};
    tests::FakeMainWindow window{log};
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    tests::FakePresentationConverter converter{log};
    tests::FakeSlideShow slides{log};
    tests::FakeImageSurface slide_img{log, "slide_img"};
    session::SessionFields fields{};
    session::Workspace workspace{fields, {.appData = disk.path(), .localAppData = disk.path()}};
    DeckImport deckImport{
        {fields, window, dialog, boxes, workspace, converter, slides, slide_img, "/assets"}};

    DeckImportTest()
    {
        workspace.makeFolders();
        tests::writeFile(current.path() / "some file", "x");
    }

    void import()
    {
        dialog.willChoose("/decks/talk.pptx");
        deckImport.openSlides();
    }
};

using Calls = std::vector<std::string>;

TEST_F(DeckImportTest, GoesThroughItsStepsInTheirOrder)
{
    converter.slideCount = 2;
    import();
    EXPECT_EQ(log.calls,
              (Calls{"ShowOpen", "converter.createApplication",
                     "converter.Open talk.pptx read-only untitled windowless", "panel1 Loading slides...",
                     "pointer WAIT02.CUR", "converter.Count", "converter.SaveAs 18 fonts",
                     "converter.Export slide1.jpg", "converter.Export slide2.jpg",
                     "converter.presentation released", "LoadSlide", "slide_img.LoadFile ", "ResizeSlide",
                     "panel2 Slide 1/2", "pointer ", "converter.application released"}));
}

TEST_F(DeckImportTest, AsksWithItsDialog)
{
    import();
    ASSERT_EQ(dialog.shown.size(), 1U);
    EXPECT_EQ(dialog.shown[0].FileName, "*.ppt; *.pptx; *.pps");
    EXPECT_EQ(dialog.shown[0].DefaultExt, "ppt; ppx, pps");
    EXPECT_EQ(dialog.shown[0].DialogTitle, "Open PowerPoint File");
    EXPECT_EQ(dialog.shown[0].Filter, "PowerPoint 2003 (*.ppt)|*.ppt|PowerPoint 2007/2010 (*.pptx)|*.pptx|"
                                      "PowerPointShow (*.pps)|*.pps");
}

TEST_F(DeckImportTest, LeavesThePicturesAndTheFields)
{
    converter.slideCount = 2;
    import();
    EXPECT_EQ(tests::namesIn(workspace.root()),
              (Calls{"Preview", "Slide1.PNG", "Slide2.PNG", "slide1.jpg", "slide2.jpg"}));
    EXPECT_EQ(fields.Text1, "/decks/talk.pptx");
    EXPECT_EQ(fields.ppt_txt, "ppt");
    EXPECT_EQ(fields.slideCount, "2");
    EXPECT_EQ(fields.scount_lb, "2");
    EXPECT_EQ(fields.currentSlide, "1");
    EXPECT_EQ(fields.slideStatus, "Slide 1/2");
    EXPECT_EQ(fields.workspacePath, workspace.root().string());
}

TEST_F(DeckImportTest, ExportsEverySlideAt560By420)
{
    import();
    EXPECT_EQ(converter.exportSize, "jpg 560x420");
}

TEST_F(DeckImportTest, LeavesTheStatusToItsCaller)
{
    import();
    EXPECT_EQ(window.panels[1], "Loading slides...");
}

TEST_F(DeckImportTest, Cancelled_ChangesNothing)
{
    tests::writeFile(workspace.root() / "Slide1.PNG", "old");
    dialog.willBeCancelled();
    deckImport.openSlides();
    EXPECT_EQ(log.calls, Calls{"ShowOpen"});
    EXPECT_EQ(tests::readFile(workspace.root() / "Slide1.PNG"), "old");
    EXPECT_EQ(fields.ppt_txt, "no");
    EXPECT_EQ(fields.Text1, "PPT fName for resizing the PPT");
}

TEST_F(DeckImportTest, WithADialogThatCannotBeShown_ChangesNothing)
{
    deckImport.openSlides();
    EXPECT_EQ(log.calls, Calls{"ShowOpen"});
    EXPECT_EQ(fields.ppt_txt, "no");
}

TEST_F(DeckImportTest, WithoutAConverterOrAReadableDeck_GivesAnEmptyDeck)
{
    for (const auto* broken : {"createApplication", "Open", "Count"}) {
        tests::writeFile(workspace.root() / "Slide1.PNG", "old");
        fields = {};
        converter.failing.names = {broken};
        import();
        EXPECT_EQ(fields.slideCount, "0") << broken;
        EXPECT_EQ(fields.currentSlide, "1") << broken;
        EXPECT_EQ(fields.slideStatus, "Slide 1/0") << broken;
        EXPECT_EQ(fields.ppt_txt, "ppt") << broken;
        EXPECT_EQ(window.panels[2], "Slide 1/0") << broken;
        EXPECT_EQ(window.pointer, "") << broken;
        EXPECT_FALSE(std::filesystem::exists(workspace.root() / "slide1.jpg")) << broken;
        EXPECT_TRUE(boxes.shown.empty()) << broken;
    }
}

TEST_F(DeckImportTest, AnExportThatFails_LeavesTheOthersToGo)
{
    converter.failing.names = {"Export 2"};
    import();
    EXPECT_TRUE(std::filesystem::exists(workspace.root() / "slide1.jpg"));
    EXPECT_FALSE(std::filesystem::exists(workspace.root() / "slide2.jpg"));
    EXPECT_TRUE(std::filesystem::exists(workspace.root() / "slide3.jpg"));
    EXPECT_EQ(fields.slideStatus, "Slide 1/3");
}

TEST_F(DeckImportTest, AWholeSeriesThatFails_LeavesTheOtherToGo)
{
    converter.failing.names = {"SaveAs"};
    import();
    EXPECT_EQ(tests::namesIn(workspace.root()), (Calls{"Preview", "slide1.jpg", "slide2.jpg", "slide3.jpg"}));
}

TEST_F(DeckImportTest, AMissingCursor_KeepsNothingFromBeingImported)
{
    window.failing.names = {"setMousePointer"};
    import();
    EXPECT_EQ(window.panels[2], "Slide 1/3");
}

TEST_F(DeckImportTest, InACurrentDirectoryWithoutAFile_ShowsItsMessageAlthoughAllWentWell)
{
    std::filesystem::remove(current.path() / "some file");
    std::filesystem::create_directory(current.path() / "some folder");
    import();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(
        boxes.shown[0].text,
        "Sorry, not able to import slides! Please close the program and run it with administrator privileges "
        "(righ-click on the program icon and select Run as Administrator)");
    EXPECT_EQ(boxes.shown[0].title, "");
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
    EXPECT_EQ(log.count("ResizeSlide"), 0);
    EXPECT_EQ(window.panels[2], "Slide 1/3");
    EXPECT_EQ(window.pointer, "");
}

TEST_F(DeckImportTest, TheClosingCheck_FitsThePicturesAlthoughItsLoadFails)
{
    slide_img.failing.names = {"LoadFile"};
    import();
    EXPECT_EQ(log.count("ResizeSlide"), 1);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DeckImportTest, EmptiesTheWorkspaceOfTheLastDeckAndItsContainer)
{
    for (const auto* name : {"Slide9.PNG", "slide9.jpg", "MyZip.zip", "slidetime.xml"})
        tests::writeFile(workspace.root() / name, "old");
    import();
    EXPECT_FALSE(std::filesystem::exists(workspace.root() / "Slide9.PNG"));
    EXPECT_FALSE(std::filesystem::exists(workspace.root() / "slide9.jpg"));
    EXPECT_FALSE(std::filesystem::exists(workspace.root() / "MyZip.zip"));
    EXPECT_FALSE(std::filesystem::exists(workspace.root() / "slidetime.xml"));
}

} // namespace
} // namespace quillora::deck
