#pragma once

#include "drawing/random_numbers.h"

#include <cstddef>
#include <vector>

namespace quillora::tests {

/// Gives its numbers in turn, and from the first again after the last.
class FakeRandomNumbers : public drawing::RandomNumbers {
  public:
    std::vector<float> numbers{0.5F};
    int reseeded = 0;
    std::size_t given = 0;

    void reseedFromClock() override { ++reseeded; }
    float next() override { return numbers[given++ % numbers.size()]; }
};

} // namespace quillora::tests
