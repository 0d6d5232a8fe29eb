#include "stage/backdrop.h"

#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/stage_world.h"

#include <stdexcept>

namespace quillora::stage {
namespace {

using Calls = std::vector<std::string>;

class FakeBackdropPicture : public BackdropPicture {
  public:
    std::string picture = "design";
    int loads = 0;

    void load(const std::filesystem::path& file) override
    {
        if (file.extension() == ".txt")
            throw std::runtime_error("no picture");
        picture = file.string();
        ++loads;
    }
};

class BackdropTest : public tests::StageWorld {
  protected:
    void expectSideRectanglesInModeFull()
    {
        EXPECT_EQ(on.slide_img_back.place, tests::kSide);
        EXPECT_EQ(on.VideoCap1_back.place, tests::kSideFrame);
        EXPECT_TRUE(on.VideoCap1_back.shown);
        EXPECT_EQ(fields.myWindowMode, "full");
        EXPECT_FALSE(window.panels.contains(5));
    }

    tests::FakeCommonDialog CommonDialog4{log};
    tests::FakeMessageBoxes boxes{log};
    FakeBackdropPicture back_img{};
    Backdrop backdrop{{stageFields, layout, CommonDialog4, boxes, back_img}};
};

TEST_F(BackdropTest, OfTheButton_IsTheChosenPictureBesideTheMedia)
{
    CommonDialog4.willChoose("/pictures/ö #1%.jpg");
    backdrop.changeback_btn_Click();
    EXPECT_EQ(back_img.picture, "/pictures/ö #1%.jpg");
    EXPECT_EQ(stageFields.background_txt, "/pictures/ö #1%.jpg");
    EXPECT_EQ(CommonDialog4.shown[0].DialogTitle, "Select Background Picture");
    EXPECT_EQ(CommonDialog4.shown[0].Filter, "Picture Files JPG, GIF|*.gif;*.jpg");
    EXPECT_EQ(log.count("LoadSlide"), 2) << "laid out before the dialog and after it";
    EXPECT_TRUE(boxes.shown.empty());
    expectSideRectanglesInModeFull();
}

TEST_F(BackdropTest, AfterACancelledDialog_IsAsItWasButTheStageIsLaidOutForSide)
{
    CommonDialog4.willBeCancelled();
    backdrop.changeback_btn_Click();
    EXPECT_EQ(back_img.picture, "design");
    EXPECT_EQ(stageFields.background_txt, "");
    expectSideRectanglesInModeFull();
}

TEST_F(BackdropTest, AfterASecondDialogThatIsCancelled_IsLoadedAgainFromTheFileThatTheDialogStillNames)
{
    CommonDialog4.willChoose("/a.jpg");
    CommonDialog4.willBeCancelled();
    backdrop.changeback_btn_Click();
    backdrop.changeback_btn_Click();
    EXPECT_EQ(back_img.loads, 2);
    EXPECT_EQ(back_img.picture, "/a.jpg");
    EXPECT_EQ(stageFields.background_txt, "/a.jpg");
}

TEST_F(BackdropTest, CancelledAfterAFileThatIsNoPicture_LeavesTheMessageOnceMore)
{
    CommonDialog4.willChoose("/notes.txt");
    CommonDialog4.willBeCancelled();
    backdrop.changeback_btn_Click();
    backdrop.changeback_btn_Click();
    EXPECT_EQ(boxes.shown.size(), 2U);
    EXPECT_EQ(back_img.picture, "design");
}

TEST_F(BackdropTest, FromAFileThatIsNoPicture_LeavesAMessageAndTheBadPath)
{
    CommonDialog4.willChoose("/notes.txt");
    backdrop.changeback_btn_Click();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, "Only pictures in JPG, GIF & BMP formats are allowed");
    EXPECT_EQ(boxes.shown[0].title, "");
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
    EXPECT_EQ(back_img.picture, "design");
    EXPECT_EQ(stageFields.background_txt, "/notes.txt");
}

TEST_F(BackdropTest, OfTheLabel_OffersBmpAndLetsAFailureThrough)
{
    CommonDialog4.willChoose("/a.bmp");
    backdrop.Label19_Click();
    EXPECT_EQ(back_img.picture, "/a.bmp");
    EXPECT_EQ(CommonDialog4.shown[0].Filter, "Picture Files|*.bmp;*.gif;*.jpg");
    expectSideRectanglesInModeFull();
    CommonDialog4.willChoose("/notes.txt");
    EXPECT_THROW(backdrop.Label19_Click(), std::runtime_error);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(BackdropTest, OfTheOtherLabel_LeavesTheLayoutAlone)
{
    CommonDialog4.willChoose("/a.gif");
    backdrop.loadpic_lb_Click();
    EXPECT_EQ(back_img.picture, "/a.gif");
    EXPECT_EQ(on.slide_img_back.place, tests::kFull);
    EXPECT_EQ(log.count("LoadSlide"), 0);
    CommonDialog4.willChoose("/notes.txt");
    EXPECT_THROW(backdrop.loadpic_lb_Click(), std::runtime_error);
}

TEST_F(BackdropTest, WhoseLayoutFails_LeavesAMessageToo)
{
    on.slide_img.failing.names = {"move"};
    backdrop.changeback_btn_Click();
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(CommonDialog4.shown.empty());
}

} // namespace
} // namespace quillora::stage
