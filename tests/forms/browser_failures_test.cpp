#include "tests/forms/browser_fixture.h"

#include "tests/support/file_contents.h"

#include <QTest>

#include <csignal>

using namespace quillora;
using panels::ZoomOutcome;
using tests::isGone;
using tests::settle;
using tests::waitUntil;

namespace {

/// A browser whose processes crash, hang, talk nonsense, or cannot be started.
class BrowserFailuresTest : public tests::WebBrowserTest {
  protected:
    void kill(qint64 process) { ::kill(pid_t(process), SIGKILL); }

    void killPages()
    {
        const auto pages = tests::pageProcesses(host.processId());
        ASSERT_FALSE(pages.empty());
        for (const qint64 page : pages)
            kill(page);
    }
};

} // namespace

TEST_F(BrowserFailuresTest, APageThatCrashesSaysSoAndCanBeLoadedAgain)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    killPages();
    ASSERT_TRUE(showsNotice());
    EXPECT_NE(host.processId(), 0);
    EXPECT_EQ(zoom("110%"), ZoomOutcome::failed);
    pressReload();
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(BrowserFailuresTest, APageThatCrashesIsLeftByTheNextAddress)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    killPages();
    ASSERT_TRUE(showsNotice());
    browser.Navigate(server.address("/blue"));
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(BrowserFailuresTest, APageThatCrashesIsLeftForTheOneBeforeAndTheOneBehindIt)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    visit("/blue", "blue");
    ASSERT_TRUE(shows(Qt::blue));
    killPages();
    ASSERT_TRUE(showsNotice());
    browser.GoBack();
    EXPECT_TRUE(shows(Qt::red));
    killPages();
    ASSERT_TRUE(showsNotice());
    browser.GoForward();
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(BrowserFailuresTest, APageThatCrashedWithNothingBeforeItKeepsItsNotice)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    killPages();
    ASSERT_TRUE(showsNotice());
    browser.GoBack();
    settle(500);
    EXPECT_TRUE(notice()->isVisible());
}

TEST_F(BrowserFailuresTest, APageThatCrashedIsLoadedAgainOnce)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    killPages();
    ASSERT_TRUE(showsNotice());
    pressReload();
    ASSERT_TRUE(shows(Qt::red));
    // Longer than a page that is told to go has to answer.
    settle(3000);
    EXPECT_EQ(server.timesAsked("/red"), 2);
    EXPECT_FALSE(notice()->isVisible());
}

TEST_F(BrowserFailuresTest, ABrowserThatCrashesSaysSoAndComesBack)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    const qint64 first = host.processId();
    kill(first);
    ASSERT_TRUE(showsNotice());
    EXPECT_EQ(host.processId(), 0);
    EXPECT_EQ(zoom("110%"), ZoomOutcome::failed);
    pressReload();
    EXPECT_TRUE(shows(Qt::red));
    EXPECT_NE(host.processId(), first);
}

TEST_F(BrowserFailuresTest, ABrowserThatHangsHoldsUpNothing)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    const qint64 process = host.processId();
    ::kill(pid_t(process), SIGSTOP);
    for (int i = 0; i < 20'000; ++i)
        QTest::mouseMove(&browser, {i % 700, i % 400});
    EXPECT_EQ(zoom("110%"), ZoomOutcome::failed);
    EXPECT_EQ(grab(), tests::plainPicture(browser.size(), Qt::red));
    ::kill(pid_t(process), SIGCONT);
    EXPECT_TRUE(isAlive());
}

TEST_F(BrowserFailuresTest, TheAdministratorGetsAPlainPageInstead)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "not the administrator";
    ::unsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    browser.show();
    browser.Navigate(server.address("/plain"));
    EXPECT_TRUE(showsNotice());
    EXPECT_EQ(host.processId(), 0);
    EXPECT_FALSE(browser.findChild<QWidget*>("browser_reload")->isVisible());
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(BrowserFailuresTest, ABrowserThatTalksNonsenseIsEnded)
{
    const auto program = folder.path() / "nonsense";
    const auto number = folder.path() / "number";
    tests::writeFile(program, "#!/bin/sh\necho $$ >'" + number.string() +
                                  "'\nprintf '\\377\\377\\377\\377'\nexec sleep 1000\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    forms::webengine::BrowserProcess nonsense(program);
    forms::WebBrowserWidget other("WebBrowser2", "Video", &window);
    other.setGeometry(window.rect());
    other.setPageHost(nonsense);
    other.show();
    EXPECT_TRUE(waitUntil([&] { return other.findChild<QWidget*>("browser_notice")->isVisible(); }));
    const qint64 process = std::atoll(tests::readFile(number).c_str());
    ASSERT_GT(process, 0);
    EXPECT_TRUE(waitUntil([&] { return isGone(process); }));
}

TEST_F(BrowserFailuresTest, ABrowserThatIsNotInstalledIsTold)
{
    forms::webengine::BrowserProcess missing(folder.path() / "no browser");
    forms::WebBrowserWidget other("WebBrowser2", "Video", &window);
    other.setGeometry(window.rect());
    other.setPageHost(missing);
    other.Navigate(server.address("/plain"));
    other.show();
    EXPECT_TRUE(waitUntil([&] { return other.findChild<QWidget*>("browser_notice")->isVisible(); }));
}

TEST_F(BrowserFailuresTest, ABrowserEndsWithItsSurface)
{
    qint64 process = 0;
    {
        forms::webengine::BrowserProcess second(QUILLORA_BROWSER);
        second.start();
        second.resize(tests::kStage);
        second.setShown(true);
        second.navigate(QString::fromStdString(server.address("/plain")));
        ASSERT_TRUE(waitUntil([&] { return server.wasTold("plain"); }));
        process = second.processId();
        ASSERT_FALSE(isGone(process));
    }
    EXPECT_TRUE(waitUntil([&] { return isGone(process); }));
}
