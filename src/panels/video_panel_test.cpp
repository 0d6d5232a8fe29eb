#include "panels/video_panel.h"

#include "panels/service_addresses.h"
#include "tests/support/fake_web_browser.h"

#include <gtest/gtest.h>

using namespace quillora;
using namespace quillora::panels;

namespace {

struct FakeControls : VideoPanelControls {
    std::string text = "dQ";

    std::string yturl_txt() const override { return text; }
    void setYturl_txt(const std::string& value) override { text = value; }
};

class VideoPanelTest : public testing::Test {
  protected:
    using Calls = std::vector<std::string>;

    std::string played(const std::string& text)
    {
        controls.text = text;
        log.clear();
        panel.Command3_Click();
        const std::string before = "WebBrowser2.Navigate " + PlayerBaseUrl();
        return log.calls.size() == 1 && log.calls[0].starts_with(before) ? log.calls[0].substr(before.size())
                                                                         : "not played";
    }

    tests::CallLog log;
    tests::FakeWebBrowser browser{log, "WebBrowser2"};
    FakeControls controls;
    VideoPanel panel{{.WebBrowser2 = browser, .controls = controls}};
};

} // namespace

TEST_F(VideoPanelTest, BothButtonsPlayTheSame)
{
    panel.asxToolbar1_ButtonClick("youtube");
    panel.Command3_Click();
    ASSERT_EQ(log.calls.size(), 2U);
    EXPECT_EQ(log.calls[0], "WebBrowser2.Navigate " + PlayerBaseUrl() + "?v=dQ");
    EXPECT_EQ(log.calls[1], log.calls[0]);
}

TEST_F(VideoPanelTest, AnUnknownKeyDoesNothing)
{
    for (const char* key : {"", "YouTube", "play", "youtube "})
        panel.asxToolbar1_ButtonClick(key);
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(VideoPanelTest, ThePromptIsSentWithItsBlank) { EXPECT_EQ(played("Video URL"), "?v=Video URL"); }

TEST_F(VideoPanelTest, AnEmptiedBoxIsSentAsNothing) { EXPECT_EQ(played(""), "?v="); }

TEST_F(VideoPanelTest, FurtherKeysOfALinkBecomeKeysOfThePlayersQuery)
{
    EXPECT_EQ(played("https://www.youtube.com/watch?v=abc&t=10&list=x#part"),
              "?v=https://www.youtube.com/watch?v=abc&t=10&list=x#part");
}

TEST_F(VideoPanelTest, NothingOfTheTextIsTrimmedOrEncoded)
{
    EXPECT_EQ(played("  ä%20+\"<> "), "?v=  ä%20+\"<> ");
}

TEST_F(VideoPanelTest, GainingTheFocusClearsThePromptAlone)
{
    struct Row {
        const char* before;
        const char* after;
    };
    for (const Row row : {Row{"Video URL", ""}, Row{"video url", "video url"},
                          Row{"Video URL ", "Video URL "}, Row{"", ""}, Row{"abc", "abc"}}) {
        controls.text = row.before;
        panel.yturl_txt_GotFocus();
        EXPECT_EQ(controls.text, row.after);
    }
}

TEST_F(VideoPanelTest, LosingTheFocusBringsThePromptBackToAnEmptyBox)
{
    struct Row {
        const char* before;
        const char* after;
    };
    for (const Row row :
         {Row{"", "Video URL"}, Row{" ", " "}, Row{"abc", "abc"}, Row{"Video URL", "Video URL"}}) {
        controls.text = row.before;
        panel.yturl_txt_LostFocus();
        EXPECT_EQ(controls.text, row.after);
    }
}

TEST_F(VideoPanelTest, KeepsTheBrowsersFailureToItself)
{
    browser.failing = {{"Navigate"}};
    EXPECT_NO_THROW(panel.Command3_Click());
    EXPECT_EQ(log.calls.size(), 1U);
}
