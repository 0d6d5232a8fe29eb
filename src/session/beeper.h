#pragma once

#include <chrono>

namespace quillora::session {

/// Where tones are heard.
class Beeper {
  public:
    virtual ~Beeper() = default;
    /// Sounds a tone and returns when it is over. Silent where there is no sound output; never blocks for
    /// longer than a second beyond @p duration.
    virtual void Beep(int frequencyHz, std::chrono::milliseconds duration) = 0;
};

} // namespace quillora::session
