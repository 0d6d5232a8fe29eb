#pragma once

#include "drawing/random_numbers.h"

#include <random>

namespace quillora::drawing {

/// Numbers good enough for dots of paint, from a generator that is cheap to seed: the spray seeds it with
/// every move of the pointer.
class ClockedRandomNumbers : public RandomNumbers {
  public:
    void reseedFromClock() override;
    float next() override;

  private:
    std::minstd_rand m_generator;
};

} // namespace quillora::drawing
