#pragma once

#include "drawing/random_numbers.h"
#include "drawing/surface.h"

namespace quillora::drawing {

// Both reckon in 16-bit integers and throw std::overflow_error past their range. What was set up to then
// stays: the pen is one wide after such a failure.

/// Random dots in the pen colour, a quarter as many as the square of @p size round the point has pixels. It
/// is a square and not a disc that they fill. Begins a new row of random numbers each time.
void SprayDots(Surface& surface, RandomNumbers& random, float x, float y, int size);

/// The ten tips of the Brush, three times the pen's width to each side of the point. A shape above 9, or
/// below 0, stamps nothing.
inline constexpr int kBrushShapes = 10;
void StampBrush(Surface& surface, FillPattern inside, int shape, float x, float y);

} // namespace quillora::drawing
