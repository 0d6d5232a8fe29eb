#pragma once

#include "base/pixel_rectangle.h"

namespace quillora::capture {

using base::boundingBox;
using base::intersection;
using base::PixelPoint;
using base::PixelRectangle;
using base::relativeTo;

} // namespace quillora::capture
