#include "audio/input_numbers.h"

#include "tests/support/fake_sound_inputs.h"

#include <gtest/gtest.h>

using namespace quillora::audio;
using namespace quillora::tests;

namespace {

class InputNumbersTest : public testing::Test {
  protected:
    CallLog log;
    FakeSoundInputs inputs{log};
    InputNumbers numbers{inputs};
};

} // namespace

TEST_F(InputNumbersTest, FollowTheOrderOfTheInputs)
{
    inputs.present = {{.id = "default"}, {.id = "other"}};
    EXPECT_EQ(numbers.refresh(), 2);
    EXPECT_EQ(numbers.at(0)->id, "default");
    EXPECT_EQ(numbers.at(1)->id, "other");
}

TEST_F(InputNumbersTest, AreNotGivenBeforeTheFirstLook)
{
    inputs.present = {{.id = "default"}};
    EXPECT_EQ(numbers.at(0), nullptr);
}

TEST_F(InputNumbersTest, EndBehindTheLastInput)
{
    inputs.present = {{.id = "default"}};
    numbers.refresh();
    EXPECT_EQ(numbers.at(-1), nullptr);
    EXPECT_EQ(numbers.at(1), nullptr);
}

TEST_F(InputNumbersTest, StayWhenInputsComeAndGo)
{
    inputs.present = {{.id = "one"}, {.id = "two"}};
    numbers.refresh();
    inputs.present = {{.id = "three"}, {.id = "two"}};
    EXPECT_EQ(numbers.refresh(), 3);
    EXPECT_EQ(numbers.at(0)->id, "one");
    EXPECT_EQ(numbers.at(1)->id, "two");
    EXPECT_EQ(numbers.at(2)->id, "three");
}

TEST_F(InputNumbersTest, StayWhenThereIsNoAnswer)
{
    inputs.present = {{.id = "one"}};
    numbers.refresh();
    inputs.answers = false;
    EXPECT_EQ(numbers.refresh(), 1);
}

TEST_F(InputNumbersTest, AreNoneWithoutAnAnswer)
{
    inputs.answers = false;
    EXPECT_EQ(numbers.refresh(), 0);
}
