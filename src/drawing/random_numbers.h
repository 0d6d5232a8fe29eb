#pragma once

namespace quillora::drawing {

/// Where the spray and the diffusing filter take their chances from.
class RandomNumbers {
  public:
    virtual ~RandomNumbers() = default;
    /// Begins another row of numbers, which the clock chooses.
    virtual void reseedFromClock() = 0;
    /// Evenly spread over 0 to 1.
    virtual float next() = 0;
};

} // namespace quillora::drawing
