#include "base/characters.h"

#include <gtest/gtest.h>

using namespace quillora::base;

namespace {

/// Four characters of one to four bytes.
constexpr const char* kText = "a\u00e9\u20ac\U0001F399";

} // namespace

TEST(Characters, AreCountedWhateverTheirBytes)
{
    EXPECT_EQ(characterCount(kText), 4U);
    EXPECT_EQ(characterCount(""), 0U);
}

TEST(Characters, AreKeptWholeWhereATextIsCut)
{
    EXPECT_EQ(firstCharacters(kText, 0), "");
    EXPECT_EQ(firstCharacters(kText, 1), "a");
    EXPECT_EQ(firstCharacters(kText, 2), "a\u00e9");
    EXPECT_EQ(firstCharacters(kText, 3), "a\u00e9\u20ac");
    EXPECT_EQ(firstCharacters(kText, 4), kText);
}

TEST(Characters, AreAllKeptOfATextThatIsShorter)
{
    EXPECT_EQ(firstCharacters(kText, 5), kText);
    EXPECT_EQ(firstCharacters("", 3), "");
}
