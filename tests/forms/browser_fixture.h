#pragma once

#include "forms/platform/webengine/browser_process.h"
#include "forms/web_browser_widget.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/page_server.h"

#include <QAbstractButton>
#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace quillora::tests {

inline constexpr QSize kStage{747, 420};

/// The value of an entry of /proc/PID/status; empty where the process is gone.
inline std::string statusOf(qint64 process, const std::string& entry)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(entry + ":"))
            return line.substr(line.find_first_not_of(" \t", entry.size() + 1));
    return "";
}

inline bool isGone(qint64 process)
{
    const std::string state = statusOf(process, "State");
    return state.empty() || state.starts_with("Z");
}

inline bool descendsFrom(qint64 process, qint64 ancestor)
{
    for (int depth = 0; process > 1 && depth < 10; ++depth) {
        process = std::atoll(statusOf(process, "PPid").c_str());
        if (process == ancestor)
            return true;
    }
    return false;
}

/// The processes in which pages run: they are the engine's, and so are their parents.
inline std::vector<qint64> pageProcesses(qint64 browser)
{
    std::vector<qint64> found;
    for (const QString& name : QDir("/proc").entryList(QDir::Dirs)) {
        const qint64 process = name.toLongLong();
        if (process > 0 && descendsFrom(process, browser) && statusOf(process, "Name") == "QtWebEngineProc" &&
            std::to_string(browser) != statusOf(process, "PPid"))
            found.push_back(process);
    }
    return found;
}

/// A browser surface on the screen, with a host of its own and pages from the test's server.
class WebBrowserTest : public testing::Test {
  protected:
    WebBrowserTest()
    {
        ::setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 1);
        // What the engine itself does with its memory is no fault of the browser's, and would end it.
        ::setenv("ASAN_OPTIONS", "new_delete_type_mismatch=0:detect_leaks=0", 1);
        window.setFixedSize(kStage);
        window.setObjectName("stage");
        browser.setGeometry(window.rect());
        browser.setPageHost(host);
        browser.hide();
        window.show();
        // A window manager that has only just begun gives no focus to a window that it finds there already.
        QElapsedTimer sinceAsked;
        sinceAsked.start();
        EXPECT_TRUE(waitUntil([&] {
            if (sinceAsked.elapsed() > 500) {
                // Asked for by a pager, it is given.
                runToEnd({"xdotool", "windowactivate", std::to_string(window.winId())});
                sinceAsked.start();
            }
            return window.isActiveWindow() && probe.isMapped(std::uint32_t(window.winId()));
        }));
        settle(100);
        server.servePage("/plain", "<script>told('plain')</script>");
        server.servePage("/red", "<style>body{background:#ff0000}</style><script>told('red')</script>");
        server.servePage("/blue", "<style>body{background:#0000ff}</style><script>told('blue')</script>");
    }

    void TearDown() override
    {
        if (!HasFailure())
            return;
        for (const PageServer::Request& request : server.requests())
            std::printf("  asked for %s\n", request.target.substr(0, 100).c_str());
    }

    void visit(const std::string& path, const std::string& told)
    {
        browser.show();
        browser.Navigate(server.address(path));
        ASSERT_TRUE(waitUntil([&] { return server.wasTold(told); })) << path;
    }

    /// A page takes no pointer and no key before it is painted for the first time. @p path was served by
    /// servePage, and shows its ground near the lower right corner, and some text: without any, the
    /// engine waits for more of the page.
    void visitAndSee(const std::string& path, const std::string& told)
    {
        visit(path, told);
        ASSERT_TRUE(waitUntil([&] {
            const QImage picture = grab();
            return picture.pixelColor(picture.width() - 40, picture.height() - 1) == QColor(0xF0, 0xF8, 0xFF);
        }));
        settle(200);
    }

    QImage grab() { return probe.grab({browser.mapToGlobal(QPoint()), browser.size()}); }

    bool shows(QColor colour)
    {
        return waitUntil([&] { return grab() == plainPicture(browser.size(), colour); });
    }

    /// That the browser does what it is told, as far as the server can see.
    bool isAlive()
    {
        static int count = 0;
        const std::string what = "alive" + std::to_string(++count);
        server.servePage("/alive", QByteArray::fromStdString("<script>told('" + what + "')</script>"));
        browser.Navigate(server.address("/alive"));
        return waitUntil([&] { return server.wasTold(what); });
    }

    std::optional<panels::ZoomOutcome> zoom(const std::string& text)
    {
        std::optional<panels::ZoomOutcome> outcome;
        browser.setDocumentZoom(text, [&outcome](panels::ZoomOutcome value) { outcome = value; });
        waitUntil([&] { return outcome.has_value(); });
        return outcome;
    }

    QWidget* notice() { return browser.findChild<QWidget*>("browser_notice"); }
    bool showsNotice()
    {
        return waitUntil([&] { return notice()->isVisible(); });
    }
    void pressReload() { browser.findChild<QAbstractButton*>("browser_reload")->click(); }

    PageServer server;
    X11Probe probe;
    TemporaryFolder folder;
    QWidget window;
    forms::WebBrowserWidget browser{"WebBrowser1", "Web page", &window};
    forms::webengine::BrowserProcess host{QUILLORA_BROWSER};
};

} // namespace quillora::tests
