#include "tests/flows/lecture_world.h"

namespace quillora::tests {
namespace {

class IndexOfALecture : public LectureWorld {
  protected:
    IndexOfALecture() { openDeck(3); }
};

TEST_F(IndexOfALecture, NotesEachSlideWithItsTime)
{
    startRecording();
    secondsPass(65);
    turn("next");
    secondsPass(55);
    turn("pre");
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(entry("2", "00:01:05", "65") + entry("1", "00:02:00", "120")));
}

TEST_F(IndexOfALecture, NotesTwoChangesWithinOneSecondInTheirOrder)
{
    startRecording();
    secondsPass(4);
    turn("next");
    turn("next");
    EXPECT_EQ(index.slideEntries(), entry("2", "00:00:04", "4") + entry("3", "00:00:04", "4"));
}

TEST_F(IndexOfALecture, GoesPastAnHour)
{
    startRecording();
    secondsPass(3661);
    turn("next");
    EXPECT_EQ(index.slideEntries(), entry("2", "01:01:01", "3661"));
}

TEST_F(IndexOfALecture, BeginsAgainAtZeroAfterADay)
{
    startRecording();
    clock.advance(std::chrono::hours(24));
    secondsPass(2);
    turn("next");
    EXPECT_EQ(index.slideEntries(), entry("2", "00:00:02", "2"));
}

TEST_F(IndexOfALecture, FollowsAClockThatIsSetDuringTheRecording)
{
    startRecording();
    clock.advance(std::chrono::minutes(10));
    secondsPass(1);
    turn("next");
    EXPECT_EQ(index.slideEntries(), entry("2", "00:10:01", "601"));
}

TEST_F(IndexOfALecture, LeavesOutWhatHappensBeforeTheRecording)
{
    turn("next");
    turn("last");
    EXPECT_EQ(index.slideEntries(), "");
}

TEST_F(IndexOfALecture, LeavesOutASlideOfTheCountdown_WhichTheStageKeeps)
{
    press("record");
    secondsPass(2);
    turn("next");
    secondsPass(3);
    EXPECT_EQ(fields.recordState, "record");
    EXPECT_EQ(fields.currentSlide, "2");
    EXPECT_EQ(index.slideEntries(), "");
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(""));
}

TEST_F(IndexOfALecture, NotesFirstAndLastAlsoWhereTheSlideStoodAlready)
{
    startRecording();
    secondsPass(1);
    turn("first");
    turn("last");
    turn("last");
    EXPECT_EQ(index.slideEntries(),
              entry("1", "00:00:01", "1") + entry("3", "00:00:01", "1") + entry("3", "00:00:01", "1"));
}

TEST_F(IndexOfALecture, NotesNothingAtTheEndsOfTheDeck)
{
    startRecording();
    secondsPass(1);
    turn("pre");
    turn("last");
    const auto entries = index.slideEntries();
    turn("next");
    EXPECT_EQ(index.slideEntries(), entries);
}

TEST_F(IndexOfALecture, HasNoEntryBeforeTheFirstTickOfTheProgramsFirstRecording)
{
    press("record");
    for (int i = 0; i < 5; ++i)
        countDown_tmr2.tick();
    ASSERT_EQ(fields.recordState, "record");
    turn("next");
    EXPECT_EQ(index.slideEntries(), "");
    EXPECT_EQ(window.panels[2], "Slide 2/3");
}

TEST_F(IndexOfALecture, TakesTheLastRecordingsTimeBeforeTheFirstTick)
{
    startRecording();
    secondsPass(9);
    stopAndSave();
    press("record");
    for (int i = 0; i < 5; ++i)
        countDown_tmr2.tick();
    turn("next");
    EXPECT_EQ(index.slideEntries(), entry("2", "00:00:09", "9"));
}

TEST_F(IndexOfALecture, IsWrittenAnewByTheNextStop)
{
    startRecording();
    secondsPass(1);
    turn("next");
    stopAndSave();
    startRecording();
    EXPECT_TRUE(std::filesystem::exists(root / "slidetime.xml"));
    stopAndSave();
    EXPECT_EQ(indexFile(), indexOf(""));
}

TEST_F(IndexOfALecture, GoesAwayWithTheNextDeck)
{
    startRecording();
    stopAndSave();
    openDeck(2);
    EXPECT_FALSE(std::filesystem::exists(root / "slidetime.xml"));
}

TEST_F(IndexOfALecture, IsNotTouchedByAReloadOfTheSlideOrAMediaChange)
{
    startRecording();
    secondsPass(1);
    viewer.Command10_Click();
    media.setMediaType();
    EXPECT_EQ(index.slideEntries(), "");
}

} // namespace
} // namespace quillora::tests
