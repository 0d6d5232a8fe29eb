#pragma once

#include "panels/default_application.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

namespace quillora::tests {

class FakeDefaultApplication : public panels::DefaultApplication {
  public:
    explicit FakeDefaultApplication(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "open".
    FailingCalls failing{};

    void open(const std::string& target) override
    {
        log.add("open " + target);
        failing.check("open");
    }
};

} // namespace quillora::tests
