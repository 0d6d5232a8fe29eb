#pragma once

#include "session/microphone_setting.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

namespace quillora::tests {

class FakeMicrophoneSetting : public session::MicrophoneSetting {
  public:
    explicit FakeMicrophoneSetting(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "lblVolPer".
    FailingCalls failing{};
    std::string level = "100%";

    std::string lblVolPer() override
    {
        failing.check("lblVolPer");
        return level;
    }
    void showModal() override { log.add("mic_frm shown"); }
};

} // namespace quillora::tests
