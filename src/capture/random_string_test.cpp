#include "capture/random_string.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

using namespace quillora;

namespace {

class StandingClock : public base::WallClock {
  public:
    explicit StandingClock(long long seconds) : m_seconds(seconds) {}
    std::chrono::sys_seconds now() const override
    {
        return std::chrono::sys_seconds(std::chrono::seconds(m_seconds));
    }

  private:
    long long m_seconds;
};

} // namespace

TEST(RandomString, HasTheLengthThatIsAskedFor)
{
    const StandingClock clock(1'700'000'000);
    capture::RandomNames names(clock);
    EXPECT_EQ(names.RandomString(8).size(), 8U);
    EXPECT_EQ(names.RandomString(1).size(), 1U);
}

TEST(RandomString, IsEmptyForALengthOfZeroOrLess)
{
    const StandingClock clock(1'700'000'000);
    capture::RandomNames names(clock);
    EXPECT_EQ(names.RandomString(0), "");
    EXPECT_EQ(names.RandomString(-8), "");
    EXPECT_EQ(names.RandomString(-32768), "");
}

TEST(RandomString, IsMadeOfAll62LettersAndDigitsAndOfNothingElse)
{
    const StandingClock clock(1'700'000'000);
    const std::string text = capture::RandomNames(clock).RandomString(32767);
    EXPECT_TRUE(std::ranges::all_of(text, [](unsigned char c) { return c < 128 && std::isalnum(c); }));
    EXPECT_EQ(std::set<char>(text.begin(), text.end()).size(), 62U);
}

TEST(RandomString, DiffersBetweenTwoCallsInTheSameSecond)
{
    const StandingClock clock(1'700'000'000);
    capture::RandomNames names(clock);
    EXPECT_NE(names.RandomString(8), names.RandomString(8));
}

TEST(RandomString, DiffersBetweenTwoRunsOfTheProgram)
{
    const StandingClock today(1'700'000'000);
    const StandingClock tomorrow(1'700'086'400);
    EXPECT_NE(capture::RandomNames(today).RandomString(8), capture::RandomNames(tomorrow).RandomString(8));
}
