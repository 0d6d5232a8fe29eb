#include "messages/message_table.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace quillora::messages;

namespace {

MessageTable fullTable()
{
    MessageTable table;
    for (int message = 1; message <= MSG_ENTRIES; ++message)
        table.add(100 + message);
    return table;
}

} // namespace

TEST(MessageTable, AppliesToNothingAtFirst)
{
    const MessageTable table;
    EXPECT_EQ(table.count(), 0);
    EXPECT_FALSE(table.applies(960));
    EXPECT_FALSE(table.applies(0));
}

TEST(MessageTable, AppliesToWhatWasAdded)
{
    MessageTable table;
    EXPECT_EQ(table.add(960), MessageTable::Added::yes);
    EXPECT_TRUE(table.applies(960));
    EXPECT_FALSE(table.applies(961));
    EXPECT_EQ(table.count(), 1);
}

TEST(MessageTable, RefusesAThirtyThirdMessageAndKeepsItsThirtyTwo)
{
    MessageTable table = fullTable();
    EXPECT_EQ(table.add(500), MessageTable::Added::overflow);
    EXPECT_EQ(table.count(), 32);
    EXPECT_FALSE(table.applies(500));
    for (int message = 1; message <= 32; ++message)
        EXPECT_TRUE(table.applies(100 + message));
}

TEST(MessageTable, RefusesEvenAMessageThatIsThereWhenItIsFull)
{
    MessageTable table = fullTable();
    EXPECT_EQ(table.add(101), MessageTable::Added::overflow);
    EXPECT_TRUE(table.applies(101));
}

TEST(MessageTable, DoesNotGrowByAMessageThatIsThere)
{
    MessageTable table;
    table.add(960);
    EXPECT_EQ(table.add(960), MessageTable::Added::alreadyThere);
    EXPECT_EQ(table.count(), 1);
}

TEST(MessageTable, FillsAHoleBeforeItGrows)
{
    MessageTable table;
    table.add(1);
    table.add(2);
    table.add(3);
    EXPECT_TRUE(table.remove(2));
    EXPECT_EQ(table.count(), 3);
    EXPECT_EQ(table.entry(2), 0);
    EXPECT_FALSE(table.applies(2));
    table.add(4);
    EXPECT_EQ(table.count(), 3);
    EXPECT_EQ(table.entry(2), 4);
    table.add(5);
    EXPECT_EQ(table.count(), 4);
}

TEST(MessageTable, FillsAHoleWithAMessageThatStandsBehindIt)
{
    MessageTable table;
    table.add(1);
    table.add(2);
    table.remove(1);
    EXPECT_EQ(table.add(2), MessageTable::Added::yes);
    EXPECT_EQ(table.entry(1), 2);
    EXPECT_EQ(table.entry(2), 2);
}

TEST(MessageTable, RefusesWhenFullEvenWithAHole)
{
    MessageTable table = fullTable();
    table.remove(105);
    EXPECT_EQ(table.add(500), MessageTable::Added::overflow);
    EXPECT_EQ(table.entry(5), 0);
}

TEST(MessageTable, HoleAppliesToMessageZero)
{
    MessageTable table;
    table.add(1);
    table.remove(1);
    EXPECT_TRUE(table.applies(0));
}

TEST(MessageTable, AppliesToAllMessages)
{
    MessageTable table;
    table.add(7);
    table.add(ALL_MESSAGES);
    EXPECT_EQ(table.count(), -1);
    EXPECT_TRUE(table.applies(7));
    EXPECT_TRUE(table.applies(960));
    EXPECT_TRUE(table.applies(0));
}

TEST(MessageTable, OfAllMessagesBecomesOneOfTheMessageThatIsAdded)
{
    MessageTable table;
    table.add(7);
    table.add(8);
    table.add(ALL_MESSAGES);
    EXPECT_EQ(table.add(960), MessageTable::Added::yes);
    EXPECT_EQ(table.count(), 1);
    EXPECT_EQ(table.entry(1), 960);
    EXPECT_FALSE(table.applies(8));
}

TEST(MessageTable, OfAllMessagesHoldsNoMessageToRemove)
{
    MessageTable table;
    table.add(960);
    table.add(ALL_MESSAGES);
    EXPECT_FALSE(table.remove(960));
    EXPECT_EQ(table.count(), -1);
}

TEST(MessageTable, IsEmptiedByRemovingAllMessages)
{
    MessageTable table = fullTable();
    EXPECT_TRUE(table.remove(ALL_MESSAGES));
    EXPECT_EQ(table.count(), 0);
    EXPECT_FALSE(table.applies(101));
    EXPECT_FALSE(table.applies(0));
}

TEST(MessageTable, SaysThatAMessageIsNotThere)
{
    MessageTable table;
    table.add(1);
    EXPECT_FALSE(table.remove(2));
    EXPECT_EQ(table.count(), 1);
}

TEST(MessageTable, HasNoEntryBeyondItsLast)
{
    const MessageTable table;
    EXPECT_NO_THROW(table.entry(32));
    EXPECT_THROW(table.entry(33), std::out_of_range);
    EXPECT_THROW(table.entry(0), std::out_of_range);
}
