#include "forms/platform/webengine/browser_messages.h"

#include <QSize>
#include <QString>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace quillora::forms::webengine;

TEST(BrowserMessages, ComeOutOfThePipeAsTheyWentIn)
{
    MessageReader reader(1000);
    const QByteArray whole = message(Order::zoom, quint32(7), QString("110%")) + message(Order::back);
    // As a pipe may cut them: byte by byte.
    std::vector<QByteArray> received;
    for (const char byte : whole) {
        reader.append(QByteArray(1, byte));
        while (auto next = reader.next())
            received.push_back(*next);
    }
    ASSERT_EQ(received.size(), 2U);
    QDataStream in(received[0]);
    quint8 kind = 0;
    quint32 request = 0;
    QString zoom;
    in >> kind >> request >> zoom;
    EXPECT_EQ(Order(kind), Order::zoom);
    EXPECT_EQ(request, 7U);
    EXPECT_EQ(zoom, "110%");
    EXPECT_EQ(received[1], QByteArray(1, char(Order::back)));
}

TEST(BrowserMessages, OfALengthThatNoMessageHasAreRefused)
{
    MessageReader tooLong(10);
    tooLong.append(QByteArray("\x00\x00\x00\x0B", 4));
    EXPECT_THROW(tooLong.next(), std::runtime_error);
    MessageReader empty(10);
    empty.append(QByteArray(4, '\0'));
    EXPECT_THROW(empty.next(), std::runtime_error);
    MessageReader huge(10);
    huge.append(QByteArray("\xFF\xFF\xFF\xFF", 4));
    EXPECT_THROW(huge.next(), std::runtime_error);
}

TEST(BrowserMessages, AreWaitedForWhileIncomplete)
{
    MessageReader reader(10);
    reader.append(QByteArray("\x00\x00\x00", 3));
    EXPECT_FALSE(reader.next());
    reader.append(QByteArray("\x02"
                             "a",
                             2));
    EXPECT_FALSE(reader.next());
    reader.append("b");
    EXPECT_EQ(reader.next(), "ab");
    EXPECT_FALSE(reader.next());
}

TEST(BrowserMessages, TellOfNoPictureThatDoesNotFit)
{
    EXPECT_TRUE(fitsThePicture({747, 420}));
    EXPECT_TRUE(fitsThePicture({3840, 2160}));
    EXPECT_FALSE(fitsThePicture({3841, 2160}));
    EXPECT_FALSE(fitsThePicture({0, 420}));
    EXPECT_FALSE(fitsThePicture({-747, -420}));
    EXPECT_FALSE(fitsThePicture({2147483647, 2147483647}));
}
