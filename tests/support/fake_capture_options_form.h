#pragma once

#include "session/capture_options_form.h"
#include "tests/support/call_log.h"

#include <functional>

namespace quillora::tests {

/// A form that nobody sees. While it is shown modally, a test may act on it.
class FakeCaptureOptionsForm : public session::CaptureOptionsForm {
  public:
    explicit FakeCaptureOptionsForm(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    bool visible = false;
    bool topMost = false;
    /// What it shows.
    session::OptionControls controls{};
    std::function<void()> whileModal = [] {};

    void showModal(const session::OptionControls& shown) override
    {
        log.add("CaptureOptions_frm modal");
        visible = true;
        controls = shown;
        whileModal();
    }
    void show(const session::OptionControls& shown) override
    {
        log.add("CaptureOptions_frm shown");
        visible = true;
        controls = shown;
    }
    void SetTopMost(bool flag) override { topMost = flag; }
    void update(const session::OptionControls& changed) override { controls = changed; }
    void hide() override
    {
        log.add("CaptureOptions_frm hidden");
        visible = false;
    }
};

} // namespace quillora::tests
