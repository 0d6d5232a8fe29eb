#pragma once

#include "base/clock.h"

#include <cstdint>
#include <string>

namespace quillora::capture {

/// Makes up names of video files. Seeded from the clock at each call, and from the number of calls so far:
/// the clock has whole seconds only, and the names of one recording are made within the same one.
class RandomNames {
  public:
    /// @p clock must outlive this object.
    explicit RandomNames(const base::WallClock& clock) : m_clock(clock) {}

    /// @p length characters out of the 26 letters in both cases and the 10 digits; empty for 0 and less.
    std::string RandomString(std::int16_t length);

  private:
    const base::WallClock& m_clock;
    std::uint32_t m_calls = 0;
};

} // namespace quillora::capture
