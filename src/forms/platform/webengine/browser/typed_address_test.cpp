#include "forms/platform/webengine/browser/typed_address.h"

#include <gtest/gtest.h>

using namespace quillora::forms::webengine;

namespace {

/// The address as it is sent; empty where the text leads nowhere.
std::string sent(const QString& text)
{
    const auto address = typedAddress(text);
    return address ? address->toEncoded().toStdString() : "";
}

} // namespace

TEST(TypedAddress, OfTheWebIsItself)
{
    EXPECT_EQ(sent("http://a.example/b?c=d#e"), "http://a.example/b?c=d#e");
    EXPECT_EQ(sent("https://a.example"), "https://a.example");
    EXPECT_EQ(sent("HTTPS://a.example/"), "https://a.example/");
    EXPECT_EQ(sent("  http://a.example/ "), "http://a.example/");
}

TEST(TypedAddress, WithoutASchemeIsAHost)
{
    EXPECT_EQ(sent("a.example"), "http://a.example");
    EXPECT_EQ(sent("a.example/page?x=1"), "http://a.example/page?x=1");
    EXPECT_EQ(sent("localhost:8480/page"), "http://localhost:8480/page");
    EXPECT_EQ(sent("a.example:80"), "http://a.example:80");
    EXPECT_EQ(sent("//a.example/page"), "http://a.example/page");
    EXPECT_EQ(sent("[::1]:8480/page"), "http://[::1]:8480/page");
}

TEST(TypedAddress, OfAnythingButTheWebLeadsNowhere)
{
    for (const char* text : {"file:///etc/passwd",
                             "FILE:/etc/passwd",
                             " file:///etc/passwd",
                             "/etc/passwd",
                             "~/x",
                             "..",
                             "javascript:alert(1)",
                             "data:text/html,x",
                             "view-source:http://a.example/",
                             "chrome://settings",
                             "about:blank",
                             "qrc:/x",
                             "ftp://a.example/",
                             "blob:http://a.example/1",
                             "mailto:a@b.example",
                             "C:\\windows",
                             "ws://a.example/",
                             "filesystem:http://a.example/x",
                             "http:",
                             "http://",
                             "https:///path",
                             ":",
                             "?",
                             "#",
                             "",
                             "   ",
                             "\n"})
        EXPECT_EQ(sent(text), "") << text;
}

TEST(TypedAddress, KeepsTheQueryThatAPanelPutTogether)
{
    EXPECT_EQ(sent("http://a/p.php?v=Video URL"), "http://a/p.php?v=Video%20URL");
    EXPECT_EQ(sent("http://a/p.php?v=https://b/watch?v=abc&t=10#part"),
              "http://a/p.php?v=https://b/watch?v=abc&t=10#part");
    EXPECT_EQ(sent("http://a/p.php?v="), "http://a/p.php?v=");
}

TEST(TypedAddress, MayBeLongButNotEndless)
{
    const QString path(100'000, 'x');
    EXPECT_EQ(sent("http://a/" + path).size(), 100'009U);
    EXPECT_EQ(sent("http://a/" + QString(2'000'000, 'x')), "");
}

TEST(TypedAddress, OfNonsenseDoesNoHarm)
{
    for (const QString& text : {QString(100'000, 'x'), QString(100'000, ':'), QString(1000, QChar(0)),
                                QString("http://[") + QString(1000, '['), QString("http://a b c/"),
                                QString("%zz"), QString("http://%00/")})
        EXPECT_NO_THROW(sent(text));
}
