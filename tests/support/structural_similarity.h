#pragma once

#include "tests/support/slide_picture.h"

namespace quillora::tests {

/// The mean structural similarity of two pictures in grey, each first averaged down to 747 by 420: 1 for
/// equal ones. Wang, Bovik, Sheikh and Simoncelli, "Image quality assessment", 2004, with square windows of 8
/// pixels.
double structuralSimilarity(const SlidePicture& first, const SlidePicture& second);

} // namespace quillora::tests
