#pragma once

#include "stage/newest_frame.h"

#include <cstdint>
#include <span>

namespace quillora::stage {

/// How much of a byte the brightness uses: cameras send 16 to 235, still pictures in a stream (JPEG) 0 to
/// 255.
enum class YuvRange { limited, full };

/// Turns a planar picture (all brightness, then the two colour planes at half the width and height, rounded
/// up, without gaps) into @p frame, by the matrix of ITU-R BT.601, which is what cameras of this size use. @p
/// width and @p height are at least 1. Throws std::invalid_argument when @p planes is shorter than the
/// picture.
void toRgb(std::span<const std::uint8_t> planes, int width, int height, YuvRange range, CameraFrame& frame);

} // namespace quillora::stage
