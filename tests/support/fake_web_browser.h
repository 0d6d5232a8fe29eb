#pragma once

#include "panels/web_browser.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <functional>
#include <utility>

namespace quillora::tests {

/// A browser whose page answers at once, or when a test says so.
class FakeWebBrowser : public panels::WebBrowser {
  public:
    FakeWebBrowser(CallLog& callLog, std::string controlName) : log(callLog), name(std::move(controlName)) {}

    enum class Page { answers, answersLater, hasNoBody };

    CallLog& log;
    std::string name;
    /// "Navigate", "GoBack", "GoForward", "Stop", "Zoom" or "Silent".
    FailingCalls failing{};
    Page page = Page::answers;
    /// Zoom of the document's body; empty: the page's own.
    std::string bodyZoom{};
    NewWindow2 newWindow2{};

    void answer()
    {
        const auto waiting = std::exchange(m_waiting, nullptr);
        waiting();
    }

    void Navigate(const std::string& address) override
    {
        log.add(name + ".Navigate " + address);
        failing.check("Navigate");
        bodyZoom.clear();
    }
    void GoBack() override { call("GoBack"); }
    void GoForward() override { call("GoForward"); }
    void Stop() override { call("Stop"); }
    void setDocumentZoom(const std::string& zoom, std::function<void(panels::ZoomOutcome)> done) override
    {
        log.add(name + ".Zoom " + zoom);
        failing.check("Zoom");
        const auto act = [this, zoom, done = std::move(done)] {
            if (page == Page::hasNoBody) {
                done(panels::ZoomOutcome::failed);
                return;
            }
            bodyZoom = zoom;
            done(panels::ZoomOutcome::applied);
        };
        if (page == Page::answersLater)
            m_waiting = act;
        else
            act();
    }
    void setSilent(bool silent) override
    {
        log.add(name + (silent ? ".Silent True" : ".Silent False"));
        failing.check("Silent");
    }
    void setNewWindow2(NewWindow2 handler) override { newWindow2 = std::move(handler); }

  private:
    void call(const std::string& operation)
    {
        log.add(name + "." + operation);
        failing.check(operation);
    }

    std::function<void()> m_waiting{};
};

} // namespace quillora::tests
