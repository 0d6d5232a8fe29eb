#pragma once

#include "session/sleeper.h"
#include "tests/support/call_log.h"

namespace quillora::tests {

class FakeSleeper : public session::Sleeper {
  public:
    explicit FakeSleeper(CallLog& callLog) : log(callLog) {}

    CallLog& log;

    void Sleep(std::chrono::milliseconds duration) override
    {
        log.add("Sleep " + std::to_string(duration.count()));
    }
};

} // namespace quillora::tests
