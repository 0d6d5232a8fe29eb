#include "panels/service_addresses.h"

#include <gtest/gtest.h>

using namespace quillora::panels;

TEST(ServiceAddresses, AreTheServicesPathsOnItsOneHostOverPlainHttp)
{
    const std::string host = makersUrl();
    ASSERT_TRUE(host.starts_with("http://"));
    ASSERT_TRUE(host.ends_with("/"));
    ASSERT_GT(host.size(), std::string("http:///").size());
    const std::string service = host.substr(0, host.size() - 1);
    EXPECT_EQ(WebStartUrl(), service + "/recorderweb.php");
    EXPECT_EQ(PlayerBaseUrl(), service + "/youtubeplayer.php");
    EXPECT_EQ(uploadUrl(), service + "/v3/upload");
    EXPECT_EQ(onlineSupportUrl(), service + "/v3/support/");
}

TEST(ServiceAddresses, OfTheGroupLeadToItsSite)
{
    EXPECT_TRUE(facebookGroupUrl().starts_with("https://www.facebook.com/"));
}
