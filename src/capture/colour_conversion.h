#pragma once

#include "capture/pixel_rectangle.h"
#include "capture/screen_image.h"
#include "capture/video_picture.h"

namespace quillora::capture {

/// Converts the part @p changed of @p image into @p picture, which has the same size: ITU-R BT.601, luma 16
/// to 235, each chroma value the average of four pixels. Values are rounded to nearest.
void convertColours(const ScreenImageView& image, const PixelRectangle& changed, VideoPicture& picture);

} // namespace quillora::capture
