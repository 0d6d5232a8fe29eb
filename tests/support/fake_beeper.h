#pragma once

#include "session/beeper.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

namespace quillora::tests {

class FakeBeeper : public session::Beeper {
  public:
    explicit FakeBeeper(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "Beep".
    FailingCalls failing{};

    void Beep(int frequencyHz, std::chrono::milliseconds duration) override
    {
        log.add("Beep " + std::to_string(frequencyHz) + " " + std::to_string(duration.count()));
        failing.check("Beep");
    }
};

} // namespace quillora::tests
