#pragma once

#include "session/preview_form.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <functional>

namespace quillora::tests {

/// A form with a player that plays nothing. While it is shown modally, a test may act on it.
class FakePreviewForm : public session::PreviewForm, private session::VideoPlayer {
  public:
    explicit FakePreviewForm(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "setURL" or "play".
    FailingCalls failing{};
    bool loaded = false;
    std::string URL{};
    bool playing = false;
    std::function<void()> whileModal = [] {};

    void load() override
    {
        log.add("preview_frm loaded");
        loaded = true;
        URL.clear();
        playing = false;
    }
    void showModal() override
    {
        log.add("preview_frm modal");
        whileModal();
    }
    void unload() override
    {
        log.add("preview_frm unloaded");
        loaded = false;
    }
    session::VideoPlayer& WindowsMediaPlayer1() override { return *this; }

  private:
    void setURL(const std::string& path) override
    {
        log.add("setURL " + path);
        failing.check("setURL");
        URL = path;
    }
    void play() override
    {
        log.add("play");
        failing.check("play");
        playing = true;
    }
};

} // namespace quillora::tests
