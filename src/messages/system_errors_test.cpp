#include "messages/system_errors.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace quillora::messages;

TEST(ErrnoErrors, GivesTheNumberOfTheLastFailure)
{
    errno = EACCES;
    EXPECT_EQ(ErrnoErrors().lastError(), std::uint32_t{EACCES});
}

TEST(ErrnoErrors, GivesTheSystemsTextOfANumber)
{
    EXPECT_EQ(ErrnoErrors().text(ENOENT), "No such file or directory");
}

TEST(ErrnoErrors, HasNothingToSayOfANumberThatTheSystemDoesNotKnow)
{
    EXPECT_EQ(ErrnoErrors().text(99999), "");
    EXPECT_EQ(ErrnoErrors().text(0xFFFFFFFF), "");
    EXPECT_NE(ErrnoErrors().text(0), "");
}
