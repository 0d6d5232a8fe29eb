#pragma once

#include "base/clock.h"

namespace quillora::tests {

/// Stands still until it is told to move.
class FakeClock : public base::WallClock {
  public:
    std::chrono::sys_seconds time{std::chrono::sys_days{std::chrono::year{2031} / 3 / 14} +
                                  std::chrono::hours(9)};

    void advance(std::chrono::seconds by) { time += by; }
    std::chrono::sys_seconds now() const override { return time; }
};

} // namespace quillora::tests
