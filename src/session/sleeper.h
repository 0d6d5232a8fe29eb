#pragma once

#include <chrono>

namespace quillora::session {

/// Waits, as a port, so that tests need not.
class Sleeper {
  public:
    virtual ~Sleeper() = default;
    /// Returns after @p duration. No event is handled meanwhile.
    virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

} // namespace quillora::session
