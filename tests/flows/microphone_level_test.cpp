#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

class MicrophoneLevel : public LectureWorld {
  protected:
    MicrophoneLevel() { openDeck(); }

    void recordAtLevel(const std::string& level, base::BoxAnswer answer = base::BoxAnswer::no)
    {
        mic_frm.level = level;
        boxes.answer = answer;
        press("record");
    }
};

TEST_F(MicrophoneLevel, OfTheLabelsDefault_PassesWithoutAWord)
{
    recordAtLevel("100%");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(countDown_tmr2.enabled);
}

TEST_F(MicrophoneLevel, OfNinety_PassesWithoutAWord)
{
    recordAtLevel("90%");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(countDown_tmr2.enabled);
}

TEST_F(MicrophoneLevel, OfEightyNine_AsksWhetherToAdjustIt)
{
    recordAtLevel("89%");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text,
              "Microphone level is low!\rWould you like to adjust the audio level before recording?");
    EXPECT_EQ(boxes.shown[0].title, "Quillora");
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::warning);
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::yesNoDefaultNo);
}

TEST_F(MicrophoneLevel, TooLowAndLeftSo_RecordsAllTheSame)
{
    recordAtLevel("89%", base::BoxAnswer::no);
    EXPECT_EQ(log.count("mic_frm shown"), 0);
    EXPECT_TRUE(countDown_tmr2.enabled);
}

TEST_F(MicrophoneLevel, TooLowAndToBeAdjusted_ShowsTheDialogInsteadOfRecording)
{
    recordAtLevel("89%", base::BoxAnswer::yes);
    EXPECT_EQ(log.count("mic_frm shown"), 1);
    EXPECT_FALSE(countDown_tmr2.enabled);
    EXPECT_TRUE(window.minimizeBox);
}

TEST_F(MicrophoneLevel, WithoutANumber_CountsAsTooLow)
{
    recordAtLevel("no mixer");
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(MicrophoneLevel, ThatCannotBeRead_CountsAsTooLow)
{
    mic_frm.failing.names = {"lblVolPer"};
    recordAtLevel("100%");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(countDown_tmr2.enabled);
}

TEST_F(MicrophoneLevel, IsNotAskedForBeforeADeckWasOpened)
{
    fields.ppt_txt = "no";
    recordAtLevel("10%");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::critical);
}

} // namespace
} // namespace quillora::tests
