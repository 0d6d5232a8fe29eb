#pragma once

#include "session/full_screen_form.h"
#include "tests/support/call_log.h"

namespace quillora::tests {

class FakeFullScreenForm : public session::FullScreenForm {
  public:
    explicit FakeFullScreenForm(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    bool visible = false;
    bool aroundMouse = false;

    void show() override
    {
        log.add("FullScreen_frm shown");
        visible = true;
    }
    void hide() override
    {
        log.add("FullScreen_frm hidden");
        visible = false;
    }
    bool mouse_opt() const override { return aroundMouse; }
};

} // namespace quillora::tests
