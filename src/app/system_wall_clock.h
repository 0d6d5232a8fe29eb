#pragma once

#include "base/clock.h"

namespace quillora::app {

/// The system's own clock, without its fractions of a second.
class SystemWallClock : public base::WallClock {
  public:
    std::chrono::sys_seconds now() const override
    {
        return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    }
};

} // namespace quillora::app
