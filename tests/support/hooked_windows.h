#pragma once

#include "messages/hook_engine.h"
#include "messages/message_windows.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/plain_message_queue.h"

#include <functional>
#include <memory>
#include <string>

namespace quillora::tests {

/// Keeps its lines in the call log, where their order to the boxes shows.
class FakeEventLog : public messages::EventLog {
  public:
    explicit FakeEventLog(CallLog& callLog) : log(callLog) {}

    CallLog& log;

    void error(const std::string& line) override { log.add("log " + line); }
};

class FakeSystemErrors : public messages::SystemErrors {
  public:
    std::uint32_t number = 0;
    std::string textOfNumber{};

    std::uint32_t lastError() const override { return number; }
    std::string text(std::uint32_t asked) const override { return asked == number ? textOfNumber : ""; }
};

/// Says in the log that it was called, and answers what it is told to.
class OldProcedure : public messages::WindowProcedure {
  public:
    explicit OldProcedure(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    messages::Result answer = 70;
    std::function<void(const messages::WindowMessage&)> action{};

    messages::Result process(const messages::WindowMessage& message) override
    {
        log.add("old " + std::to_string(message.iMsg));
        if (action)
            action(message);
        return answer;
    }
};

/// Message windows among which are one of another process and one that refuses another procedure.
class FakeWindows : public messages::MessageWindows {
  public:
    using MessageWindows::MessageWindows;

    messages::WindowHandle foreign = 0;
    messages::WindowHandle stubborn = 0;
    /// Passes for the procedure of each window that a hook is set on, where it is set.
    std::shared_ptr<messages::WindowProcedure> old{};

    bool belongsToThisProcess(messages::WindowHandle window) const override { return window != foreign; }
    std::shared_ptr<messages::WindowProcedure>
    exchangeProcedure(messages::WindowHandle window,
                      std::shared_ptr<messages::WindowProcedure> procedure) override
    {
        if (window == stubborn)
            return nullptr;
        const auto own = MessageWindows::exchangeProcedure(window, std::move(procedure));
        return own && old ? old : own;
    }
};

/// What hooks stand on: windows, a queue, and where reports go.
struct HookedWindows {
    CallLog log{};
    FakeEventLog events{log};
    FakeMessageBoxes boxes{log};
    FakeSystemErrors errors{};
    PlainMessageQueue queue{};
    FakeWindows windows{queue};

    messages::HookEngine::Ports ports()
    {
        return {.windows = windows, .log = events, .boxes = boxes, .errors = errors};
    }
};

} // namespace quillora::tests
