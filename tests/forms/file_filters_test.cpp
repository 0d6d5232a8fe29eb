#include "forms/file_filters.h"

#include <gtest/gtest.h>

using namespace quillora::forms;

TEST(FileFilters, AreThePairsOfTheFilterText)
{
    EXPECT_EQ(nameFilters("Advanced Systems Format (*.asf)|*.asf|Windows Media Video (*.wmv)|*.wmv"),
              (QStringList{"Advanced Systems Format (*.asf)", "Windows Media Video (*.wmv)"}));
}

TEST(FileFilters, NameMasksThatTheLabelDoesNot)
{
    EXPECT_EQ(nameFilters("Picture Files JPG, GIF|*.gif;*.jpg"),
              QStringList{"Picture Files JPG, GIF (*.gif *.jpg)"});
}

TEST(FileFilters, KeepBracketsOfTheLabelThatHoldNoMask)
{
    EXPECT_EQ(nameFilters("Pictures (small)|*.gif"), QStringList{"Pictures (small) (*.gif)"});
}

TEST(FileFilters, LeaveOutWhatIsNoPair)
{
    EXPECT_EQ(nameFilters(""), QStringList{});
    EXPECT_EQ(nameFilters("Lonely"), QStringList{});
    EXPECT_EQ(nameFilters("A|*.a|B"), QStringList{"A (*.a)"});
    EXPECT_EQ(nameFilters("A||B|*.b"), QStringList{"B (*.b)"});
}

TEST(FileFilters, AreMadeOfAListOfMasks)
{
    EXPECT_EQ(maskFilter("*.ppt; *.pptx; *.pps"), "All of these (*.ppt *.pptx *.pps)");
    EXPECT_EQ(maskFilter("lecture.ppt"), "");
    EXPECT_EQ(maskFilter(""), "");
}
