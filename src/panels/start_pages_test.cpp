#include "panels/start_pages.h"

#include "panels/service_addresses.h"
#include "tests/support/fake_timer.h"
#include "tests/support/fake_web_browser.h"

#include <gtest/gtest.h>

using namespace quillora;
using namespace quillora::panels;

namespace {

class StartPagesTest : public testing::Test {
  protected:
    StartPagesTest()
    {
        Timer1.handler = [this] { pages.Timer1_Timer(); };
    }

    using Calls = std::vector<std::string>;

    tests::CallLog log;
    tests::FakeWebBrowser first{log, "WebBrowser1"};
    tests::FakeWebBrowser second{log, "WebBrowser2"};
    tests::FakeTimer Timer1{log, "Timer1"};
    StartPages pages{{.WebBrowser1 = first, .WebBrowser2 = second, .Timer1 = Timer1}};
};

} // namespace

TEST_F(StartPagesTest, AreOneForEachBrowserAndThePlayersHasNoQuery)
{
    pages.navigate();
    EXPECT_EQ(log.calls,
              (Calls{"WebBrowser1.Navigate " + WebStartUrl(), "WebBrowser2.Navigate " + PlayerBaseUrl()}));
}

TEST_F(StartPagesTest, OfTheSecondBrowserComesThoughTheFirstFails)
{
    first.failing = {{"Navigate"}};
    EXPECT_NO_THROW(pages.navigate());
    EXPECT_EQ(log.calls.back(), "WebBrowser2.Navigate " + PlayerBaseUrl());
}

TEST_F(StartPagesTest, OfTheFirstBrowserAreSilentFromTheOneTickOn)
{
    Timer1.enable();
    log.clear();
    Timer1.tick();
    Timer1.tick();
    EXPECT_EQ(log.calls, (Calls{"WebBrowser1.Silent True", "Timer1.disable"}));
}

TEST_F(StartPagesTest, TickOnceThoughTheBrowserFails)
{
    first.failing = {{"Silent"}};
    Timer1.enable();
    Timer1.tick();
    EXPECT_FALSE(Timer1.enabled);
}
