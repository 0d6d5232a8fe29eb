#include "tests/forms/browser_fixture.h"

#include "tests/support/file_contents.h"

#include <QPushButton>
#include <QTest>
#include <QWheelEvent>

using namespace quillora;
using panels::ZoomOutcome;
using tests::settle;
using tests::waitUntil;
using tests::WebBrowserTest;

TEST_F(WebBrowserTest, IsNotThereBeforeItIsShown)
{
    browser.Navigate(server.address("/plain"));
    settle(500);
    EXPECT_EQ(host.processId(), 0);
    EXPECT_TRUE(server.requests().empty());
    browser.show();
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("plain"); }));
    EXPECT_NE(host.processId(), 0);
}

TEST_F(WebBrowserTest, ComesUpUnseenForAPageThatIsAskedForAfterTheFirst)
{
    browser.Navigate(server.address("/plain"));
    browser.Navigate(server.address("/red"));
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("red"); }));
}

TEST_F(WebBrowserTest, ShowsThePageOnEveryOneOfItsPixels)
{
    visit("/red", "red");
    EXPECT_TRUE(shows(Qt::red));
    browser.setGeometry(0, 0, 560, 420);
    EXPECT_TRUE(shows(Qt::red));
    browser.setGeometry(0, 0, 747, 420);
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(WebBrowserTest, ShowsAPageWhereMemoryToShareIsScarce)
{
    const auto program = folder.path() / "browser";
    tests::writeFile(program,
                     "#!/bin/sh\nexec bwrap --dev-bind / / --size 65536 --tmpfs /dev/shm --die-with-parent " +
                         std::string(QUILLORA_BROWSER) + " \"$@\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    forms::webengine::BrowserProcess poorHost(program);
    browser.setPageHost(poorHost);
    visit("/red", "red");
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(WebBrowserTest, ShowsThePageAgainThatWasLeftBehindTheOthers)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    browser.hide();
    browser.Navigate(server.address("/blue"));
    ASSERT_TRUE(waitUntil([&] { return server.wasTold("blue"); }));
    browser.show();
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(WebBrowserTest, PlaysOnBehindASurfaceThatCoversIt)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    QWidget cover(&window);
    cover.setAutoFillBackground(true);
    cover.setGeometry(window.rect());
    cover.show();
    settle(200);
    browser.Navigate(server.address("/blue"));
    ASSERT_TRUE(waitUntil([&] { return server.wasTold("blue"); }));
    settle(300);
    cover.hide();
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(WebBrowserTest, IsPassedOverByTabWhileItIsCovered)
{
    auto* before = new QPushButton("before", &window);
    auto* after = new QPushButton("after", &window);
    QWidget::setTabOrder(before, &browser);
    QWidget::setTabOrder(&browser, after);
    browser.show();
    QWidget cover(&window);
    cover.setAutoFillBackground(true);
    cover.setGeometry(window.rect());
    for (QWidget* each : {&cover, static_cast<QWidget*>(before), static_cast<QWidget*>(after)}) {
        each->show();
        each->raise();
    }
    settle(100);
    before->setFocus();
    QTest::keyClick(before, Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    QTest::keyClick(after, Qt::Key_Backtab);
    EXPECT_TRUE(before->hasFocus());
    cover.hide();
    settle(100);
    QTest::keyClick(before, Qt::Key_Tab);
    EXPECT_TRUE(browser.hasFocus());
}

TEST_F(WebBrowserTest, GoesBackAndForward)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    visit("/blue", "blue");
    ASSERT_TRUE(shows(Qt::blue));
    browser.GoBack();
    EXPECT_TRUE(shows(Qt::red));
    browser.GoForward();
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(WebBrowserTest, WithoutAHistoryStaysWhereItIs)
{
    browser.GoBack();
    browser.GoForward();
    browser.Stop();
    visit("/red", "red");
    browser.GoBack();
    browser.GoForward();
    browser.Stop();
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(WebBrowserTest, StopsAPageThatNeverEnds)
{
    server.serve("/endless", {.body = "<body><script>fetch('/told?endless')</script>", .endless = true});
    visit("/endless", "endless");
    ASSERT_TRUE(waitUntil([&] { return server.openConnections() == 1; }));
    browser.Stop();
    EXPECT_TRUE(waitUntil([&] { return server.openConnections() == 0; }));
    EXPECT_TRUE(isAlive());
}

TEST_F(WebBrowserTest, TakesThePointerAndTheKeyboard)
{
    server.servePage("/form", "<input id=i style='position:absolute;left:0;top:0;width:300px;height:40px'>"
                              "<p style='margin-top:100px'>some text"
                              "<script>i.onfocus = () => told('focus');"
                              "i.oninput = () => { if (i.value == 'ab c') told('typed') };"
                              "i.onkeydown = event => { if (event.key == 'Enter') told('enter') };</script>"
                              "<script>told('here')</script>");
    visitAndSee("/form", "here");
    QTest::mouseClick(&browser, Qt::LeftButton, {}, {50, 20});
    ASSERT_TRUE(waitUntil([&] { return server.wasTold("focus"); }));
    EXPECT_TRUE(browser.hasFocus());
    QTest::keyClicks(&browser, "ab c");
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("typed"); }));
    QTest::keyClick(&browser, Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("enter"); }));
}

TEST_F(WebBrowserTest, FollowsALinkAndTheWheel)
{
    server.servePage("/link", "<a href='/red' style='display:block;width:600px;height:100px'>red</a>"
                              "<div style='height:3000px'></div>"
                              "<script>onscroll = () => told('scrolled'); told('here')</script>");
    visitAndSee("/link", "here");
    QWheelEvent wheel({300, 300}, browser.mapToGlobal(QPointF(300, 300)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&browser, &wheel);
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("scrolled"); }));
    visitAndSee("/link?again", "here");
    QTest::mouseClick(&browser, Qt::LeftButton, {}, {20, 10});
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(WebBrowserTest, GivesTheFocusOnBehindTheLastElementOfThePage)
{
    server.servePage("/tab", "<input id=a><input id=b><script>b.onfocus = () => told('second');"
                             "a.onfocus = () => told('first'); told('here')</script>");
    auto* after = new QPushButton("after", &window);
    after->setGeometry(0, 400, 50, 20);
    after->show();
    visitAndSee("/tab", "here");
    browser.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(waitUntil([&] {
        if (server.wasTold("second"))
            return true;
        QTest::keyClick(&browser, Qt::Key_Tab);
        settle(200);
        return false;
    }));
    EXPECT_TRUE(server.wasTold("first"));
    EXPECT_TRUE(waitUntil([&] {
        if (after->hasFocus())
            return true;
        QTest::keyClick(&browser, Qt::Key_Tab);
        settle(200);
        return false;
    }));
}

TEST_F(WebBrowserTest, ZoomsThroughTheStyleOfTheBody)
{
    server.servePage("/zoom",
                     "<script>setInterval(() => { if (document.body.style.zoom)"
                     " told(parseFloat(getComputedStyle(document.body).zoom)) }, 50); told('here')</script>");
    visit("/zoom", "here");
    EXPECT_EQ(zoom("110%"), ZoomOutcome::applied);
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("1.1"); }));
    EXPECT_EQ(zoom("30%"), ZoomOutcome::applied);
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("0.3"); }));
}

TEST_F(WebBrowserTest, CannotZoomWhereThereIsNoPage) { EXPECT_EQ(zoom("110%"), ZoomOutcome::failed); }

TEST_F(WebBrowserTest, CannotZoomADocumentWithoutABody)
{
    server.servePage("/bare", "<script>document.body.remove(); told('bare')</script>");
    visit("/bare", "bare");
    EXPECT_EQ(zoom("110%"), ZoomOutcome::failed);
}

TEST_F(WebBrowserTest, DoesNotWaitForAPageThatHangs)
{
    server.servePage("/hang", "<script>told('hang'); setTimeout(() => { for (;;) {} }, 500)</script>");
    visit("/hang", "hang");
    settle(1000);
    EXPECT_EQ(zoom("110%"), ZoomOutcome::failed);
    // The window is alive all the while: the event loop turned to bring this answer.
    EXPECT_TRUE(isAlive());
}
