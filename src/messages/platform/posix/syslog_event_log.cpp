#include "messages/platform/posix/syslog_event_log.h"

#include <algorithm>

#include <syslog.h>

namespace quillora::messages {

void SyslogEventLog::error(const std::string& line)
{
    // An entry of the log is one line; what is a line end in the text would begin another.
    std::string oneLine = line;
    std::ranges::replace_if(
        oneLine, [](char each) { return each == '\n' || each == '\r'; }, ' ');
    syslog(LOG_USER | LOG_ERR, "%s", oneLine.c_str());
}

} // namespace quillora::messages
