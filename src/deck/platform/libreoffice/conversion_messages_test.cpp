#include "deck/platform/libreoffice/conversion_messages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillora::deck::libreoffice {
namespace {

TEST(ConversionMessages, EveryReplySurvivesItsLine)
{
    const std::vector<Reply> replies{Ready{},
                                     Refused{},
                                     Opened{0},
                                     Opened{23},
                                     LaidOut{72000, 40501},
                                     Painted{1, 0},
                                     Unpaintable{10000, 3}};
    for (const Reply& reply : replies) {
        std::string line = lineOf(reply);
        ASSERT_EQ(line.back(), '\n');
        line.pop_back();
        EXPECT_EQ(parseReply(line), reply) << line;
    }
}

TEST(ConversionMessages, EveryRequestSurvivesItsLine)
{
    const std::vector<Request> requests{OpenRequest{}, LayOutRequest{}, PaintRequest{7, 3, 1280, 720}};
    for (const Request& request : requests) {
        std::string line = lineOf(request);
        line.pop_back();
        EXPECT_EQ(parseRequest(line), request) << line;
    }
}

TEST(ConversionMessages, ATruncatedReplyIsRefused)
{
    for (const char* line : {"", " ", "read", "opened", "opened ", "laid-out 720", "laid-out 720 ",
                             "painted 1", "painted", "unpaintable 3 "})
        EXPECT_THROW(parseReply(line), ProtocolError) << '"' << line << '"';
}

TEST(ConversionMessages, NumbersOutOfTheirRangeAreRefused)
{
    for (const char* line : {"opened -1", "opened 10001", "opened 99999999999999999999", "laid-out 0 40500",
                             "laid-out 72000 2000001", "painted 0 0", "painted 1 4", "painted 1 -1"})
        EXPECT_THROW(parseReply(line), ProtocolError) << line;
}

TEST(ConversionMessages, GarbageIsRefused)
{
    for (const std::string& line :
         {std::string("opened 1x"), std::string("opened  1"), std::string("opened +1"),
          std::string("opened 0x1"), std::string("opened 1 2"), std::string("ready "), std::string("READY"),
          std::string("opened 1\r"), std::string("opened 1\0", 9), std::string("\xff\xfe\x00", 3),
          std::string("open")})
        EXPECT_THROW(parseReply(line), ProtocolError) << line;
}

TEST(ConversionMessages, ARequestForMoreThanASlotHoldsIsRefused)
{
    for (const char* line : {"paint 1 0 0 720", "paint 1 0 1280 16385", "paint 1 4 1280 720",
                             "paint 1 0 1280", "paint 0 0 1280 720", "ready"})
        EXPECT_THROW(parseRequest(line), ProtocolError) << line;
}

TEST(LineCutter, LinesComeWholeHoweverTheBytesArrive)
{
    LineCutter cutter;
    EXPECT_EQ(cutter.next(), std::nullopt);
    cutter.add("rea");
    EXPECT_EQ(cutter.next(), std::nullopt);
    cutter.add("dy\nopened 3\npain");
    EXPECT_EQ(cutter.next(), "ready");
    EXPECT_EQ(cutter.next(), "opened 3");
    EXPECT_EQ(cutter.next(), std::nullopt);
}

TEST(LineCutter, ALineThatNeverEndsIsRefused)
{
    LineCutter cutter;
    cutter.add(std::string(81, 'a'));
    EXPECT_THROW(cutter.next(), ProtocolError);
}

TEST(LineCutter, ALongLineIsRefusedEvenWhenItEnds)
{
    LineCutter cutter;
    cutter.add(std::string(81, 'a') + "\nready\n");
    EXPECT_THROW(cutter.next(), ProtocolError);
}

} // namespace
} // namespace quillora::deck::libreoffice
