#include "panels/html_cost.h"

#include <gtest/gtest.h>

#include <string>

namespace quillora::panels {
namespace {

std::u16string repeated(int times, std::u16string_view piece)
{
    std::u16string text;
    for (int i = 0; i < times; ++i)
        text += piece;
    return text;
}

std::u16string styled(const std::u16string& rules, const std::u16string& body)
{
    return u"<style>" + rules + u"</style>" + body;
}

} // namespace

TEST(HtmlCost, AnOrdinaryPageIsCheap)
{
    EXPECT_TRUE(isCheapHtml(u""));
    EXPECT_TRUE(isCheapHtml(u"a < b"));
    EXPECT_TRUE(
        isCheapHtml(u"<!DOCTYPE html><html><head><meta charset=utf-8><style>p { color: red }</style></head>"
                    u"<body><h1>Head</h1><p class='x'>a <b>b</b><br/>c</body></html>"));
}

TEST(HtmlCost, ALongTextIsNot)
{
    EXPECT_TRUE(isCheapHtml(std::u16string(2'000'000, u'x')));
    EXPECT_FALSE(isCheapHtml(std::u16string(2'000'001, u'x')));
}

TEST(HtmlCost, ManyElementsAreNot)
{
    EXPECT_TRUE(isCheapHtml(repeated(30'000, u"<p>")));
    EXPECT_FALSE(isCheapHtml(repeated(30'001, u"<p>")));
    EXPECT_FALSE(isCheapHtml(repeated(30'001, u"</p>")));
}

TEST(HtmlCost, ElementsThatLieDeepInEachOtherAreNot)
{
    // Some have names that only begin like one that holds nothing.
    for (const char16_t* element : {u"<b>", u"<B>", u"< b>", u"<\u00A0b>", u"<b class=x>", u"<table><tr><td>",
                                    u"<p:x>", u"<br-x>", u"<\u00E9>", u"<$>", u"<?>"}) {
        EXPECT_TRUE(isCheapHtml(repeated(100, element)));
        EXPECT_FALSE(isCheapHtml(repeated(101, element)));
    }
}

TEST(HtmlCost, ManyThatHoldNothingAreNotWhereToolkitsAreSlowWithThem)
{
    EXPECT_TRUE(isCheapHtml(repeated(500, u"<p><img></p><wbr>")));
    EXPECT_FALSE(isCheapHtml(repeated(501, u"<p><img></p><wbr>")));
}

TEST(HtmlCost, NeighboursDoNotLieInEachOther)
{
    for (const char16_t* element :
         {u"<div>x</div>", u"<DIV>x</div>", u"<p>x", u"<P>x", u"<p class=x>x", u"<li>x", u"<br/>", u"<br />",
          u"<!--x-->", u"<!x>", u"<>", u"<table><tbody><tr><td>x</table>"})
        EXPECT_TRUE(isCheapHtml(repeated(2'000, element)));
}

TEST(HtmlCost, AnEndThatFitsNothingClosesNothing)
{
    for (const char16_t* element :
         {u"<div></x>", u"<div><p></p>", u"<div></ div>", u"<div></>", u"<div></div:x>"}) {
        EXPECT_TRUE(isCheapHtml(repeated(100, element)));
        EXPECT_FALSE(isCheapHtml(repeated(101, element)));
    }
}

TEST(HtmlCost, AnEndInATagOrCommentClosesNothing)
{
    for (const char16_t* element :
         {u"<b title='</b>'>", u"<b title=\"> </b>\">", u"<b title= '> </b>'>", u"<b x'y='></b>'>",
          u"<b '></b>'>", u"<         b t='</b>'>", u"<b><!--</b>-->", u"<b><!-- > </b>-->"}) {
        EXPECT_TRUE(isCheapHtml(repeated(50, element)));
        EXPECT_FALSE(isCheapHtml(repeated(101, element)));
    }
}

TEST(HtmlCost, AnEndBehindATagOrCommentCloses)
{
    for (const char16_t* element : {u"<b title='> \"'>it's</b>", u"<b x = \"<\" y=z>\"x</b>",
                                    u"<b><!-- it's > --></b>", u"<b><!x></b>"})
        EXPECT_TRUE(isCheapHtml(repeated(2'000, element)));
}

TEST(HtmlCost, AStyleSheetIsCheapForFewElements)
{
    const std::u16string rules = repeated(1'000, u".a{}");
    EXPECT_TRUE(isCheapHtml(styled(rules, repeated(1'000, u"<p>"))));
    EXPECT_FALSE(isCheapHtml(styled(rules, repeated(3'000, u"<p>"))));
    EXPECT_TRUE(isCheapHtml(styled(u"", repeated(3'000, u"<p>") + rules)));
}

TEST(HtmlCost, AStyleSheetMayBeWrittenInAnyWay)
{
    const std::u16string rest = repeated(1'000, u".a{}") + u"</style>" + repeated(3'000, u"<p>");
    for (const char16_t* begin :
         {u"<STYLE>", u"<style type='text/css'>", u"< style>", u"<style></p>", u"<style><!-- </style> -->"})
        EXPECT_FALSE(isCheapHtml(begin + rest));
}

TEST(HtmlCost, AStyleSheetIsHeldAgainstEachClassOfAnElement)
{
    const std::u16string rules = repeated(1'000, u".a{}");
    EXPECT_TRUE(isCheapHtml(styled(rules, u"<p class='" + repeated(10'000, u"b ") + u"'>")));
    EXPECT_FALSE(isCheapHtml(styled(rules, u"<p class='" + repeated(30'000, u"b ") + u"'>")));
}

} // namespace quillora::panels
