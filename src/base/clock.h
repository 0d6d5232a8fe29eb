#pragma once

#include <chrono>

namespace quillora::base {

/// The wall clock that the recording's time is taken from. It has whole seconds only, and it jumps when the
/// system's clock is set: both show in the running time and in the slide-time index.
class WallClock {
  public:
    virtual ~WallClock() = default;
    virtual std::chrono::sys_seconds now() const = 0;
};

} // namespace quillora::base
