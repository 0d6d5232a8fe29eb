#pragma once

#include "messages/event_log.h"

namespace quillora::messages {

/// The system log, as facility "user" and priority "err".
class SyslogEventLog : public EventLog {
  public:
    void error(const std::string& line) override;
};

} // namespace quillora::messages
