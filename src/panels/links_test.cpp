#include "panels/links.h"

#include "panels/service_addresses.h"
#include "tests/support/fake_default_application.h"

#include <gtest/gtest.h>

using namespace quillora;
using namespace quillora::panels;

namespace {

struct FakeAboutForm : AboutForm {
    explicit FakeAboutForm(tests::CallLog& callLog) : log(callLog) {}
    void showModal() override { log.add("frmAbout.showModal"); }

    tests::CallLog& log;
};

class LinksTest : public testing::Test {
  protected:
    using Calls = std::vector<std::string>;

    session::SessionFields fields;
    tests::CallLog log;
    tests::FakeDefaultApplication shell{log};
    FakeAboutForm about{log};
    Links links{{.fields = fields, .shell = shell, .frmAbout = about, .programFolder = "/opt/a b/quillora"}};
};

} // namespace

TEST_F(LinksTest, LeadWhereTheirKeysSay)
{
    const std::vector<std::pair<std::string, std::string>> targets = {
        {"help", "open /opt/a b/quillora/Vantry_QGuide.pdf"},
        {"online", "open /opt/a b/quillora/Support.chm"},
        {"onlinesupport", "open " + onlineSupportUrl()},
        {"facebookgroup", "open " + facebookGroupUrl()},
        {"about", "frmAbout.showModal"},
    };
    for (const auto& [key, call] : targets) {
        log.clear();
        links.ebDemo_ItemClick(key);
        EXPECT_EQ(log.calls, Calls{call}) << key;
    }
}

TEST_F(LinksTest, OfUnknownKeysDoNothing)
{
    for (const char* key : {"", "Help", "HELP", "start1", "mic", "dec", "exit", "help "})
        links.ebDemo_ItemClick(key);
    EXPECT_EQ(log.calls, Calls{});
}

TEST_F(LinksTest, MakersLineOpensTheMakersPage)
{
    links.Label1_Click();
    EXPECT_EQ(log.calls, Calls{"open " + makersUrl()});
}

TEST_F(LinksTest, ThatCannotBeOpenedAreSilent)
{
    shell.failing = {{"open"}};
    for (const char* key : {"help", "online", "onlinesupport", "facebookgroup"})
        EXPECT_NO_THROW(links.ebDemo_ItemClick(key)) << key;
    EXPECT_NO_THROW(links.Label1_Click());
    EXPECT_NO_THROW(links.toolbar_upload());
    EXPECT_EQ(log.calls.size(), 6U);
}

TEST_F(LinksTest, UploadOpensItsPageUnlessARecordingIsOn)
{
    const std::vector<std::pair<std::string, Calls>> states = {
        {"stop", {"open " + uploadUrl()}}, {"pause", {"open " + uploadUrl()}}, {"record", {}}};
    for (const auto& [state, calls] : states) {
        fields.recordState = state;
        log.clear();
        links.toolbar_upload();
        EXPECT_EQ(log.calls, calls) << state;
    }
}

TEST_F(LinksTest, OnlinehelpIsEmpty) { EXPECT_EQ(Links::Onlinehelp(), ""); }
