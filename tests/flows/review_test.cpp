#include "tests/flows/lecture_world.h"
#include "tests/support/pinned_file.h"

namespace quillora::tests {
namespace {

using Calls = std::vector<std::string>;

class ReviewFlow : public LectureWorld {
  protected:
    std::filesystem::path preview = root / "Preview";

    void recordAndSave(const std::string& name = "lecture.asf", int filterIndex = 1)
    {
        openDeck();
        startRecording();
        stopAndSave(name, filterIndex);
        log.clear();
    }
    std::filesystem::path container(const std::string& name, const std::string& entries)
    {
        writeFile(documents / name, entries);
        return documents / name;
    }
    void browse()
    {
        preview_frm.load();
        review.Command3_Click();
    }
};

TEST_F(ReviewFlow, PlaysWhatWasSavedLastInThisOrder)
{
    recordAndSave();
    press("preview");
    const auto video = preview.string() + "/" + fields.VidTempTitle_txt;
    EXPECT_EQ(log.calls, (Calls{"preview_frm loaded", "ZipReader", "ExtractList 0",
                                "Unzip " + (documents / "lecture.asf").string(), "setURL " + video, "play",
                                "preview_frm modal"}));
    EXPECT_TRUE(preview_frm.playing);
    EXPECT_TRUE(std::filesystem::exists(preview / "slidetime.xml"));
}

TEST_F(ReviewFlow, BeforeAnythingWasSaved_OpensWithAnIdlePlayer)
{
    press("preview");
    EXPECT_EQ(log.count("preview_frm modal"), 1);
    EXPECT_EQ(log.count("ZipReader"), 0);
    EXPECT_EQ(preview_frm.URL, "");
    EXPECT_FALSE(preview_frm.playing);
}

TEST_F(ReviewFlow, AfterThePlainVideoAloneWasSaved_OpensWithAnIdlePlayer_AndBrowseWorks)
{
    recordAndSave("lecture.wmv", 2);
    press("preview");
    EXPECT_EQ(preview_frm.URL, "");
    CommonDialog1.willChoose(container("other.asf", "talk.wmv\n"));
    review.Command3_Click();
    EXPECT_EQ(preview_frm.URL, (preview / "talk.wmv").string());
    EXPECT_TRUE(preview_frm.playing);
}

TEST_F(ReviewFlow, AfterANewRecordingBegan_HasNothingUntilTheNextSave)
{
    recordAndSave("first.asf");
    startRecording();
    press("pause");
    press("preview");
    EXPECT_EQ(preview_frm.URL, "");
    press("resume");
    stopAndSave("second.asf");
    press("preview");
    EXPECT_EQ(readFile(preview_frm.URL), "second.asf");
}

TEST_F(ReviewFlow, OfANameThatLostItsLastFourLetters_FindsNothingUnderTheNameOfTheDialog)
{
    recordAndSave("lecture7");
    EXPECT_EQ(fields.asf_name_lb, (documents / "lect.asf").string());
    press("preview");
    EXPECT_EQ(log.count("Unzip " + (documents / "lecture7").string()), 1);
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
    EXPECT_TRUE(boxes.shown.back().text.starts_with("Congratulations!"));
}

TEST_F(ReviewFlow, DoesNotOpenDuringARecordingButInAPause_WhichGoesOn)
{
    openDeck();
    startRecording();
    press("preview");
    EXPECT_FALSE(preview_frm.loaded);
    press("pause");
    log.clear();
    press("preview");
    EXPECT_TRUE(preview_frm.loaded);
    EXPECT_TRUE(log.startingWith("engine.").empty());
    EXPECT_EQ(fields.recordState, "pause");
}

TEST_F(ReviewFlow, AtTheHiddenButton_IsTheSameWithItsTest)
{
    preview_frm.load();
    review.Command2_Click();
    EXPECT_EQ(log.count("ZipReader"), 0);
    recordAndSave();
    review.Command2_Click();
    EXPECT_TRUE(preview_frm.playing);
}

TEST_F(ReviewFlow, EmptiesThePreviewFolderFirst)
{
    writeFile(preview / "aaa.wmv", "old");
    writeFile(preview / "notes", "old");
    writeFile(preview / ".hidden", "old");
    std::filesystem::create_directory(preview / "folder");
    recordAndSave();
    press("preview");
    EXPECT_FALSE(std::filesystem::exists(preview / "aaa.wmv"));
    EXPECT_FALSE(std::filesystem::exists(preview / "notes"));
    EXPECT_FALSE(std::filesystem::exists(preview / ".hidden"));
    EXPECT_TRUE(std::filesystem::exists(preview / "folder"));
    EXPECT_EQ(preview_frm.URL, (preview / fields.VidTempTitle_txt).string());
}

TEST_F(ReviewFlow, TakesTheFirstVideoThatLiesThere)
{
    CommonDialog1.willChoose(container("two.asf", "b.wmv\na.WMV\n"));
    browse();
    EXPECT_EQ(preview_frm.URL, (preview / "a.WMV").string());
}

TEST_F(ReviewFlow, OfAContainerWithoutAVideo_SendsThePlayerToTheFolder)
{
    CommonDialog1.willChoose(container("none.asf", "version.txt\nslide1.jpg\n"));
    browse();
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ReviewFlow, OfAFileThatIsNoContainer_SaysNothing)
{
    zip_reader.failing.names = {"Unzip"};
    CommonDialog1.willChoose(container("text.asf", ""));
    browse();
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ReviewFlow, GoesOnWhereTheReaderOrThePlayerFails)
{
    zip_reader.failing.names = {"create"};
    preview_frm.failing.names = {"setURL", "play"};
    recordAndSave();
    press("preview");
    EXPECT_EQ(log.count("play"), 1);
    EXPECT_EQ(log.count("preview_frm modal"), 1);
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(ReviewFlow, Browse_AsksForAContainer)
{
    CommonDialog1.willBeCancelled();
    browse();
    const auto& shown = CommonDialog1.shown.back();
    EXPECT_EQ(log.count("ShowOpen"), 1);
    EXPECT_EQ(shown.FileName, "*.asf");
    EXPECT_EQ(shown.DefaultExt, "asf");
    EXPECT_EQ(shown.DialogTitle, "Preview Video Presentation");
    EXPECT_EQ(shown.Filter, "Quillora Video File (*.asf)|*.asf");
}

TEST_F(ReviewFlow, Browse_PlaysTheChosenContainer)
{
    recordAndSave();
    press("preview");
    CommonDialog1.willChoose(container("other.asf", "talk.wmv\nslidetime.xml\n"));
    log.clear();
    review.Command3_Click();
    EXPECT_EQ(log.calls,
              (Calls{"ZipReader", "ShowOpen", "ExtractList 0", "Unzip " + (documents / "other.asf").string(),
                     "setURL " + (preview / "talk.wmv").string(), "play"}));
    EXPECT_FALSE(std::filesystem::exists(preview / fields.VidTempTitle_txt));
}

TEST_F(ReviewFlow, Browse_Cancelled_LeavesThePlayerButNotTheFolder)
{
    recordAndSave();
    press("preview");
    const auto before = preview_frm.URL;
    log.clear();
    CommonDialog1.willBeCancelled();
    review.Command3_Click();
    EXPECT_EQ(log.calls, (Calls{"ZipReader", "ShowOpen"}));
    EXPECT_EQ(preview_frm.URL, before);
    EXPECT_TRUE(preview_frm.playing);
    EXPECT_TRUE(std::filesystem::is_empty(preview));
}

TEST_F(ReviewFlow, Browse_Cancelled_LeavesItsMaskForTheNextReview)
{
    recordAndSave();
    press("preview");
    CommonDialog1.willBeCancelled();
    review.Command3_Click();
    press("preview");
    EXPECT_EQ(log.calls.at(log.calls.size() - 4), "Unzip *.asf");
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
}

TEST_F(ReviewFlow, AfterAnotherDeckWasOpened_OpensWithAnIdlePlayer)
{
    recordAndSave();
    openDeck();
    press("preview");
    EXPECT_EQ(log.count("ZipReader"), 0);
    EXPECT_EQ(preview_frm.URL, "");
}

/// That way to a deck leaves the name of the container as it is; that of the dialog is the deck's then.
TEST_F(ReviewFlow, AfterTheStagesPictureOpenedADeck_TakesTheDeckForTheContainer)
{
    recordAndSave();
    CommonDialog1.willChoose(documents / "deck.pptx");
    deckShortcut.Image1_Click();
    log.clear();
    press("preview");
    EXPECT_EQ(log.startingWith("Unzip "), (Calls{"Unzip " + (documents / "deck.pptx").string()}));
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
}

TEST_F(ReviewFlow, AfterTheDialogOfTheStagesPictureWasCancelled_TakesItsMaskForTheContainer)
{
    recordAndSave();
    CommonDialog1.willBeCancelled();
    deckShortcut.Image1_Click();
    log.clear();
    press("preview");
    EXPECT_EQ(log.startingWith("Unzip "), (Calls{"Unzip *.ppt; *.pptx; *.pps"}));
    EXPECT_EQ(preview_frm.URL, preview.string() + "/");
}

TEST_F(ReviewFlow, AFileThatStays_LeavesTheLookupToTakeWhatComesFirst)
{
    writeFile(preview / "aaa.wmv", "held");
    const PinnedFile held(preview / "aaa.wmv");
    if (!held.pinned())
        GTEST_SKIP() << "nothing can be mounted here";
    CommonDialog1.willChoose(container("other.asf", "bbb.wmv\n"));
    browse();
    EXPECT_EQ(preview_frm.URL, (preview / "aaa.wmv").string());
    EXPECT_EQ(readFile(preview / "aaa.wmv"), "held");
}

TEST_F(ReviewFlow, Close_UnloadsTheFormAndLeavesTheFilesUntilTheNextReview)
{
    recordAndSave();
    preview_frm.whileModal = [&] { review.Command1_Click(); };
    press("preview");
    EXPECT_FALSE(preview_frm.loaded);
    EXPECT_TRUE(std::filesystem::exists(preview / fields.VidTempTitle_txt));
    openDeck();
    EXPECT_TRUE(std::filesystem::exists(preview / fields.VidTempTitle_txt));
}

TEST_F(ReviewFlow, EachOpening_StartsWithANewPlayer)
{
    recordAndSave();
    press("preview");
    EXPECT_TRUE(preview_frm.playing);
    fields.asf_name_lb = "no_video";
    press("preview");
    EXPECT_EQ(preview_frm.URL, "");
    EXPECT_FALSE(preview_frm.playing);
}

} // namespace
} // namespace quillora::tests
