#include "panels/web_panel.h"

#include "tests/support/fake_web_browser.h"

#include <gtest/gtest.h>

using namespace quillora;
using namespace quillora::panels;
using tests::FakeWebBrowser;

namespace {

struct FakeControls : WebPanelControls {
    std::string address = "https://a.example/";
    std::string readOut = "100%";

    std::string http_txt() const override { return address; }
    std::string Label24() const override { return readOut; }
    void setLabel24(const std::string& text) override { readOut = text; }
};

struct FakeKeyState : KeyState {
    int asked = 0;
    std::uint16_t state = 0;

    std::uint16_t GetAsyncKeyState(int key) override
    {
        asked = key;
        return state;
    }
};

class WebPanelTest : public testing::Test {
  protected:
    using Calls = std::vector<std::string>;

    void press(const char* key) { panel.web_TB_ButtonClick(key); }

    tests::CallLog log;
    FakeWebBrowser browser{log, "WebBrowser1"};
    FakeControls controls;
    FakeKeyState keys;
    WebPanel panel{{.WebBrowser1 = browser, .controls = controls, .keys = keys}};
};

struct Button {
    const char* key;
    const char* call;
};

class WebPanelButtonTest : public WebPanelTest, public testing::WithParamInterface<Button> {};

} // namespace

TEST_P(WebPanelButtonTest, DoesWhatItsKeySays)
{
    press(GetParam().key);
    EXPECT_EQ(log.calls, Calls{std::string("WebBrowser1.") + GetParam().call});
}

TEST_P(WebPanelButtonTest, KeepsTheBrowsersFailureToItself)
{
    browser.failing = {{"Navigate", "GoBack", "GoForward", "Stop", "Zoom"}};
    EXPECT_NO_THROW(press(GetParam().key));
    EXPECT_EQ(log.calls.size(), 1U);
    EXPECT_EQ(controls.readOut, "100%");
}

INSTANTIATE_TEST_SUITE_P(Table, WebPanelButtonTest,
                         testing::Values(Button{"go", "Navigate https://a.example/"},
                                         Button{"back", "GoBack"}, Button{"stop", "Stop"},
                                         Button{"forward", "GoForward"}, Button{"zoomin", "Zoom 110%"},
                                         Button{"zoomout", "Zoom 90%"}),
                         [](const auto& button) { return std::string(button.param.key); });

TEST_F(WebPanelTest, AnUnknownKeyDoesNothing)
{
    for (const char* key : {"", "Go", "GO", "go ", "reload", "zoom"})
        press(key);
    EXPECT_EQ(log.calls, Calls{});
    EXPECT_EQ(controls.readOut, "100%");
}

TEST_F(WebPanelTest, EnterGoesToTheAddressAndAnyOtherKeyIsTheBoxs)
{
    for (const int character : {9, 10, 27, 32, int('a'), 0, 131})
        panel.http_txt_KeyPress(character);
    EXPECT_EQ(log.calls, Calls{});
    panel.http_txt_KeyPress(13);
    EXPECT_EQ(log.calls, Calls{"WebBrowser1.Navigate https://a.example/"});
}

TEST_F(WebPanelTest, AnAddressGoesAsItWasTyped)
{
    const std::string long_ = "http://a/" + std::string(100'000, 'x');
    for (const std::string& address :
         {std::string("no.scheme/page"), std::string("  blanks around  "), std::string(),
          std::string("file:///etc/passwd"), std::string("javascript:alert(1)"), std::string("ä€ %zz #?&"),
          long_}) {
        controls.address = address;
        log.clear();
        press("go");
        EXPECT_EQ(log.calls, Calls{"WebBrowser1.Navigate " + address});
    }
}

TEST_F(WebPanelTest, NavigationChangesNeitherTheReadOutNorTheBox)
{
    press("zoomin");
    press("go");
    EXPECT_EQ(controls.readOut, "110%");
    EXPECT_EQ(controls.address, "https://a.example/");
}

TEST_F(WebPanelTest, ZoomRunsFrom30To150InStepsOf10)
{
    for (int step = 1; step <= 5; ++step) {
        press("zoomin");
        EXPECT_EQ(controls.readOut, std::to_string(100 + 10 * step) + "%");
        EXPECT_EQ(browser.bodyZoom, controls.readOut);
    }
    for (int step = 1; step <= 12; ++step)
        press("zoomout");
    EXPECT_EQ(controls.readOut, "30%");
    EXPECT_EQ(browser.bodyZoom, "30%");
}

TEST_F(WebPanelTest, ZoomInAt150ChangesNothing)
{
    controls.readOut = "150%";
    press("zoomin");
    EXPECT_EQ(controls.readOut, "150%");
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(WebPanelTest, ZoomOutAt30ChangesNothing)
{
    controls.readOut = "30%";
    press("zoomout");
    EXPECT_EQ(controls.readOut, "30%");
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(WebPanelTest, AReadOutBetweenTheStepsStopsBeforeItLeavesTheRange)
{
    controls.readOut = "145%";
    press("zoomin");
    EXPECT_EQ(controls.readOut, "145%");
    controls.readOut = "35%";
    press("zoomout");
    EXPECT_EQ(controls.readOut, "35%");
}

TEST_F(WebPanelTest, AReadOutWithoutANumberCountsFromNothing)
{
    controls.readOut = "zoom";
    press("zoomout");
    EXPECT_EQ(controls.readOut, "zoom");
    press("zoomin");
    EXPECT_EQ(controls.readOut, "10%");
}

TEST_F(WebPanelTest, AFreshPageGetsTheNextStepOfTheReadOutAtOnce)
{
    press("zoomin");
    press("go");
    ASSERT_EQ(browser.bodyZoom, "");
    press("zoomin");
    EXPECT_EQ(browser.bodyZoom, "120%");
    EXPECT_EQ(controls.readOut, "120%");
}

TEST_F(WebPanelTest, APageWithoutABodyLeavesTheReadOut)
{
    browser.page = FakeWebBrowser::Page::hasNoBody;
    press("zoomin");
    EXPECT_EQ(controls.readOut, "100%");
    browser.page = FakeWebBrowser::Page::answers;
    press("zoomin");
    EXPECT_EQ(controls.readOut, "110%");
}

TEST_F(WebPanelTest, TheReadOutFollowsThePage)
{
    browser.page = FakeWebBrowser::Page::answersLater;
    press("zoomin");
    EXPECT_EQ(controls.readOut, "100%");
    browser.answer();
    EXPECT_EQ(controls.readOut, "110%");
}

TEST_F(WebPanelTest, StepsPressedWhileThePageIsBusyAllCount)
{
    browser.page = FakeWebBrowser::Page::answersLater;
    press("zoomin");
    press("zoomin");
    press("zoomout");
    browser.answer();
    browser.answer();
    EXPECT_EQ(controls.readOut, "120%");
    browser.answer();
    EXPECT_EQ(controls.readOut, "110%");
    EXPECT_EQ(log.calls, (Calls{"WebBrowser1.Zoom 110%", "WebBrowser1.Zoom 120%", "WebBrowser1.Zoom 110%"}));
}

TEST_F(WebPanelTest, ANewWindowIsRefusedUnlessControlIsDown)
{
    struct Row {
        std::uint16_t state;
        bool refused;
    };
    for (const Row row :
         {Row{0x0000, true}, Row{0x0001, true}, Row{0x7FFF, true}, Row{0x8000, false}, Row{0x8001, false}}) {
        keys.state = row.state;
        bool Cancel = false;
        browser.newWindow2(Cancel);
        EXPECT_EQ(Cancel, row.refused) << row.state;
    }
    EXPECT_EQ(keys.asked, 17);
}

TEST_F(WebPanelTest, ControlDoesNotTakeBackARefusalOfAnother)
{
    keys.state = 0x8000;
    bool Cancel = true;
    panel.WebBrowser1_NewWindow2(Cancel);
    EXPECT_TRUE(Cancel);
}
