#pragma once

#include "base/timer.h"
#include "tests/support/call_log.h"

#include <functional>

namespace quillora::tests {

/// Ticks when a test says so, and only while it is enabled.
class FakeTimer : public base::Timer {
  public:
    FakeTimer(CallLog& callLog, std::string timerName) : log(callLog), name(std::move(timerName)) {}

    CallLog& log;
    std::string name;
    std::function<void()> handler{};
    bool enabled = false;

    void tick()
    {
        if (enabled)
            handler();
    }

    void enable() override
    {
        log.add(name + ".enable");
        enabled = true;
    }
    void disable() override
    {
        log.add(name + ".disable");
        enabled = false;
    }
};

} // namespace quillora::tests
