#include "base/skip_failures.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

TEST(SkipFailures, RunsTheStatementsAfterAFailingOne)
{
    std::string ran;
    quillora::base::skipFailures([&] { ran += "a"; },
                                 [&] {
                                     ran += "b";
                                     throw std::runtime_error("no device");
                                 },
                                 [&] { ran += "c"; });
    EXPECT_EQ(ran, "abc");
}

TEST(SkipFailures, LetsThroughWhatIsNoFailure)
{
    EXPECT_THROW(quillora::base::skipFailures([] { throw 1; }), int);
}
