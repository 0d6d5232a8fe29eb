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

    tests::CallLog log;
    tests::FakeDefaultApplication shell{log};
    FakeAboutForm about{log};
    Links links{{.shell = shell, .frmAbout = about, .programFolder = "/opt/a b/quillora"}};
};

} // namespace

TEST_F(LinksTest, LeadToTheirTargets)
{
    const std::vector<std::pair<void (Links::*)(), std::string>> targets = {
        {&Links::openGuide, "open /opt/a b/quillora/Vantry_QGuide.pdf"},
        {&Links::openSupportFile, "open /opt/a b/quillora/Support.chm"},
        {&Links::openSupportPage, "open " + onlineSupportUrl()},
        {&Links::openUsersGroup, "open " + facebookGroupUrl()},
        {&Links::openUploadPage, "open " + uploadUrl()},
        {&Links::Label1_Click, "open " + makersUrl()},
        {&Links::showAbout, "frmAbout.showModal"},
    };
    for (const auto& [link, call] : targets) {
        log.clear();
        (links.*link)();
        EXPECT_EQ(log.calls, Calls{call});
        // One that can't be followed is silent.
        shell.failing = {{"open"}};
        EXPECT_NO_THROW((links.*link)()) << call;
        shell.failing = {};
    }
}

TEST_F(LinksTest, OnlinehelpIsEmpty) { EXPECT_EQ(Links::Onlinehelp(), ""); }
