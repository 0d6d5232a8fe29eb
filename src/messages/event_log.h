#pragma once

#include <string>

namespace quillora::messages {

/// Where the system keeps what went wrong in a program, for whoever looks after the machine.
class EventLog {
  public:
    virtual ~EventLog() = default;
    /// One line of type error, UTF-8. Never throws, never waits.
    virtual void error(const std::string& line) = 0;
};

} // namespace quillora::messages
