#include "messages/local_atoms.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace quillora::messages;

TEST(LocalAtoms, GivesOneNumberForOneText)
{
    LocalAtoms atoms;
    const auto one = atoms.GlobalAddAtom("one");
    const auto other = atoms.GlobalAddAtom("other");
    EXPECT_GE(one, 0xC000);
    EXPECT_NE(one, other);
    EXPECT_EQ(atoms.GlobalAddAtom("one"), one);
}

TEST(LocalAtoms, ForgetsATextThatIsTakenBackAsOftenAsItWasAdded)
{
    LocalAtoms atoms;
    const auto one = atoms.GlobalAddAtom("one");
    atoms.GlobalAddAtom("one");
    atoms.GlobalDeleteAtom(one);
    EXPECT_NE(atoms.GlobalAddAtom("other"), one);
    atoms.GlobalDeleteAtom(one);
    EXPECT_NE(atoms.GlobalAddAtom("one"), one);
    atoms.GlobalDeleteAtom(0xFFFF);
}

TEST(LocalAtoms, TakesTextsOf255CharactersAndNoneOf256)
{
    LocalAtoms atoms;
    EXPECT_NE(atoms.GlobalAddAtom(std::string(255, 'x')), 0);
    errno = 0;
    EXPECT_EQ(atoms.GlobalAddAtom(std::string(256, 'x')), 0);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(atoms.GlobalAddAtom(""), 0);
}

TEST(LocalAtoms, CountsATextsCharactersNotItsBytes)
{
    std::string text;
    for (int i = 0; i < 255; ++i)
        text += "\u0639";
    LocalAtoms atoms;
    EXPECT_NE(atoms.GlobalAddAtom(text), 0);
    EXPECT_EQ(atoms.GlobalAddAtom(text + "x"), 0);
}

TEST(LocalAtoms, RunsOutBeforeTheNumbersOfTheDesktopsOwnKeys)
{
    LocalAtoms atoms;
    std::uint16_t last = 0;
    std::uint16_t highest = 0;
    int count = 0;
    while ((last = atoms.GlobalAddAtom(std::to_string(count))) != 0) {
        highest = std::max(highest, last);
        ++count;
        ASSERT_LT(count, 0x10000);
    }
    EXPECT_EQ(count, 0x3FFE);
    EXPECT_EQ(highest, 0xFFFD);
    EXPECT_EQ(errno, ENOMEM);
    atoms.GlobalDeleteAtom(0xC123);
    EXPECT_EQ(atoms.GlobalAddAtom("one more"), 0xC123);
}
