#include "tests/forms/browser_fixture.h"

#include "tests/support/file_contents.h"

#include <QTest>

#include <algorithm>
#include <csignal>

using namespace quillora;
using panels::ZoomOutcome;
using tests::isGone;
using tests::pageProcesses;
using tests::settle;
using tests::waitUntil;

namespace {

class BadPagesTest : public tests::WebBrowserTest {
  protected:
    void click(QPoint place) { QTest::mouseClick(&browser, Qt::LeftButton, {}, place); }

    /// Whether any window on the screen has @p title.
    bool isOnTheScreen(const std::string& title)
    {
        return tests::runToEnd({"xdotool", "search", "--onlyvisible", "--name", title}) == 0;
    }
};

} // namespace

TEST_F(BadPagesTest, TypedAddressesThatAreNotOfTheWebChangeNothing)
{
    const auto secret = folder.path() / "secret.html";
    tests::writeFile(secret, "<body style='background:#00ff00'>");
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    for (const std::string& address :
         {"file://" + secret.string(), secret.string(),
          std::string("javascript:document.body.style.background='#0f0'"),
          std::string("data:text/html,<body style='background:%2300ff00'>"),
          "view-source:" + server.address("/blue"), std::string("chrome://version"),
          std::string("about:blank"), std::string("qrc:/quillora/quillora.svg"), std::string(""),
          std::string(100'000, 'x') + ":y"}) {
        browser.Navigate(address);
        settle(300);
        EXPECT_EQ(grab(), tests::plainPicture(browser.size(), Qt::red)) << address.substr(0, 40);
    }
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, AnAddressOf100000CharactersIsAskedForAsItIs)
{
    const std::string target = "/long?" + std::string(100'000, 'x');
    server.servePage("/long", "<script>told('long')</script>");
    visit(target, "long");
    EXPECT_TRUE(server.wasAsked(target));
}

TEST_F(BadPagesTest, AnAddressOfNineMillionCharactersChangesNothing)
{
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    const qint64 process = host.processId();
    browser.Navigate(std::string(9'000'000, 'x'));
    settle(300);
    EXPECT_EQ(grab(), tests::plainPicture(browser.size(), Qt::red));
    EXPECT_TRUE(isAlive());
    EXPECT_EQ(host.processId(), process);
}

TEST_F(BadPagesTest, AnAddressWithoutASchemeIsAHost)
{
    browser.show();
    browser.Navigate(server.address("/plain").substr(std::string("http://").size()));
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("plain"); }));
}

TEST_F(BadPagesTest, PagesDoNotReachFilesByRedirectOrFrameOrScript)
{
    const auto secret = folder.path() / "secret.html";
    tests::writeFile(secret, "<script>parent.told('secret')</script>");
    const QByteArray url = QByteArray::fromStdString("file://" + secret.string());
    server.serve("/redirect", {.status = "302 Found", .headers = "Location: " + url + "\r\n"});
    server.servePage("/frames", "<iframe src='" + url +
                                    "'></iframe><iframe src='/redirect'></iframe>"
                                    "<iframe src='chrome://version'></iframe><object data='" +
                                    url +
                                    "'></object>"
                                    "<script>fetch('" +
                                    url +
                                    "').then(() => told('read'), () => told('refused'));"
                                    "setTimeout(() => { try { location = '" +
                                    url +
                                    "' } catch (e) {} told('stayed') }, 300);"
                                    "setTimeout(() => told('stillhere'), 1000)</script>");
    visit("/frames", "refused");
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("stillhere"); }));
    EXPECT_FALSE(server.wasTold("read"));
    EXPECT_FALSE(server.wasTold("secret"));
    browser.Navigate(server.address("/redirect"));
    settle(500);
    EXPECT_FALSE(server.wasTold("secret"));
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, PopUpsAreRefusedWhereTheirOwnerSaysSo)
{
    int asked = 0;
    browser.setNewWindow2([&](bool& Cancel) {
        ++asked;
        Cancel = true;
    });
    server.servePage("/popups",
                     "<a href='/blue' target=_blank style='display:block;height:100px'>link</a><script>"
                     "for (let i = 0; i < 20; ++i) window.open('/blue');"
                     "told('here')</script>");
    visitAndSee("/popups", "here");
    click({20, 20});
    EXPECT_TRUE(waitUntil([&] { return asked == 21; }));
    settle(500);
    EXPECT_FALSE(server.wasAsked("/blue"));
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, ALinkOpensAWindowOfItsOwnWhereThatIsGranted)
{
    bool granted = false;
    browser.setNewWindow2([&](bool& Cancel) { Cancel = !granted; });
    server.serve("/named", {.body = "<title>a granted window</title><script>fetch('/told?named')</script>"});
    server.servePage("/opener", "<a href='/named' target=_blank style='display:block;height:100px'>link</a>"
                                "<script>told('here')</script>");
    visitAndSee("/opener", "here");
    click({20, 20});
    settle(500);
    EXPECT_FALSE(server.wasAsked("/named"));
    granted = true;
    click({20, 20});
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("named"); }));
    EXPECT_TRUE(waitUntil([&] { return isOnTheScreen("a granted window"); }));
}

TEST_F(BadPagesTest, AnAnswerThatComesTooLateIsNotTakenForThatToTheNextQuestion)
{
    int asked = 0;
    browser.setNewWindow2([&](bool& Cancel) {
        Cancel = ++asked > 1;
        // The page has given up on the first answer by then, and waits for the second.
        if (asked == 1)
            QThread::msleep(2500);
    });
    server.servePage("/two", "<script>window.open('/red'); window.open('/blue'); told('opened')</script>");
    visit("/two", "opened");
    EXPECT_TRUE(waitUntil([&] { return asked == 2; }));
    settle(500);
    EXPECT_FALSE(server.wasAsked("/red"));
    EXPECT_FALSE(server.wasAsked("/blue"));
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, WindowsAreGrantedFreelyWhereNobodyIsAskedButNotWithoutEnd)
{
    server.serve("/window", {.body = "<script>fetch('/told?w' + location.search)</script>"});
    server.servePage("/many", "<script>for (let i = 0; i < 50; ++i) window.open('/window?' + i);"
                              "told('opened')</script>");
    visit("/many", "opened");
    EXPECT_TRUE(waitUntil([&] { return server.wasAsked("/window?7"); }));
    settle(1000);
    EXPECT_FALSE(server.wasAsked("/window?8"));
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, CameraMicrophoneScreenPlaceAndNotificationsAreRefused)
{
    server.servePage(
        "/devices",
        "<script>const refused = what => told('no-' + what), granted = what => told('yes-' + what);"
        "navigator.mediaDevices.getUserMedia({video: true}).then(() => granted('camera'), () => "
        "refused('camera'));"
        "navigator.mediaDevices.getUserMedia({audio: true}).then(() => granted('mic'), () => refused('mic'));"
        "navigator.mediaDevices.getDisplayMedia({video: true}).then(() => granted('screen'), () => "
        "refused('screen'));"
        "navigator.geolocation.getCurrentPosition(() => granted('place'), () => refused('place'));"
        "Notification.requestPermission().then(p => p == 'granted' ? granted('note') : refused('note'));"
        "told('here')</script>");
    visit("/devices", "here");
    for (const char* what : {"camera", "mic", "screen", "place", "note"}) {
        EXPECT_TRUE(waitUntil([&] { return server.wasTold(std::string("no-") + what); })) << what;
        EXPECT_FALSE(server.wasTold(std::string("yes-") + what)) << what;
    }
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, DownloadsAreRefused)
{
    server.serve("/file", {.body = "a file",
                           .type = "application/octet-stream",
                           .headers = "Content-Disposition: attachment; filename=taken.bin\r\n"});
    server.servePage("/download", "<a id=a href='/file' download></a>"
                                  "<script>a.click(); setTimeout(() => told('here'), 500)</script>");
    visit("/download", "here");
    browser.Navigate(server.address("/file"));
    settle(700);
    EXPECT_TRUE(isAlive());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(std::getenv("HOME")))
        EXPECT_EQ(entry.path().string().find("taken"), std::string::npos) << entry.path();
}

TEST_F(BadPagesTest, AFileOfThisComputerCannotBeChosen)
{
    server.servePage("/upload",
                     "<input id=f type=file style='position:absolute;left:0;top:0;width:300px;height:60px'>"
                     "<script>f.onclick = () => told('clicked'); f.onchange = () => told('chosen');"
                     "told('here')</script>");
    visitAndSee("/upload", "here");
    click({20, 20});
    ASSERT_TRUE(waitUntil([&] { return server.wasTold("clicked"); }));
    settle(700);
    EXPECT_FALSE(server.wasTold("chosen"));
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, BoxesOfScriptsAreAnsweredUnseenWhereTheyAreSilent)
{
    browser.setSilent(true);
    server.servePage("/boxes",
                     "<script>for (let i = 0; i < 100; ++i) alert(i);"
                     "told(confirm('?') ? 'yes' : 'no'); told(prompt('?', 'x') === null ? 'none' : 'some')"
                     "</script>");
    visit("/boxes", "none");
    EXPECT_TRUE(server.wasTold("no"));
}

TEST_F(BadPagesTest, APageThatAsksToStayIsLeftWhereBoxesAreSilent)
{
    browser.setSilent(true);
    const QByteArray stays = "onbeforeunload = e => { e.preventDefault(); return e.returnValue = 'x' };";
    server.servePage("/inner", "<script>" + stays + "</script>");
    server.servePage("/stays", "<p>text<iframe src='/inner'></iframe><script>" + stays +
                                   "onclick = () => told('clicked'); told('here')</script>");
    const auto isPressed = [this] {
        const int before = server.timesAsked("/told?clicked");
        visitAndSee("/stays", "here");
        click({20, 20});
        return waitUntil([&] { return server.timesAsked("/told?clicked") > before; });
    };
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    ASSERT_TRUE(isPressed());
    browser.Navigate(server.address("/blue"));
    EXPECT_TRUE(shows(Qt::blue));
    visit("/red", "red");
    ASSERT_TRUE(shows(Qt::red));
    ASSERT_TRUE(isPressed());
    browser.GoBack();
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(BadPagesTest, ABoxOfAScriptDoesNotHoldUpTheRecorder)
{
    server.servePage("/box", "<script>told('here'); alert('look'); told('after')</script>");
    visit("/box", "here");
    ASSERT_TRUE(waitUntil([&] { return isOnTheScreen("Alert"); }));
    settle(300);
    EXPECT_FALSE(server.wasTold("after"));
    EXPECT_TRUE(waitUntil([&] {
        tests::runToEnd(
            {"xdotool", "search", "--onlyvisible", "--name", "Alert", "windowfocus", "key", "Return"});
        settle(200);
        return server.wasTold("after");
    }));
}

TEST_F(BadPagesTest, FullScreenIsTheWholeOfTheSurface)
{
    server.servePage("/full", "<div id=d style='background:#00f;width:100px;height:100px'>text</div><script>"
                              "d.onclick = () => d.requestFullscreen().then("
                              "() => setTimeout(() => told('full' + innerWidth + 'x' + innerHeight), 300));"
                              "told('here')</script>");
    visitAndSee("/full", "here");
    click({50, 50});
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("full747x420"); }));
    EXPECT_TRUE(waitUntil([&] { return grab().pixelColor(700, 400) == QColor(Qt::blue); }));
    EXPECT_EQ(window.size(), tests::kStage);
}

TEST_F(BadPagesTest, APageThatAsksForAPasswordIsSimplyClosed)
{
    server.serve("/closed", {.body = "<script>fetch('/told?closed')</script>",
                             .status = "401 Unauthorized",
                             .headers = "WWW-Authenticate: Basic realm=\"x\"\r\n"});
    visit("/closed", "closed");
    EXPECT_TRUE(isAlive());
}

TEST_F(BadPagesTest, NothingIsKeptOfAVisit)
{
    server.serve("/cookie", {.body = "<script>localStorage.x = 1; fetch('/told?cookie')</script>",
                             .headers = "Set-Cookie: a=b; Max-Age=100000\r\n"});
    visit("/cookie", "cookie");
    host.start();
    browser.setGeometry(0, 0, 747, 419);
    server.servePage("/later", "<script>told('later' + document.cookie + localStorage.x)</script>");
    browser.Navigate(server.address("/later"));
    EXPECT_TRUE(waitUntil([&] { return server.wasTold("laterundefined"); }));
}
