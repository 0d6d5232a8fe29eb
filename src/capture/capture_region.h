#pragma once

#include "capture/capture_engine.h"
#include "capture/pixel_rectangle.h"
#include "capture/screen_source.h"

namespace quillora::capture {

/// What of the screen a segment of a recording shows.
struct CaptureView {
    CaptureMode mode = CaptureMode::rectangle;
    /// For CaptureMode::rectangle.
    PixelRectangle rectangle{};
    PointerDrawing pointer{};
};

/// The region to grab for @p view at this moment; never empty, and never so large that its picture could not
/// be held. Around the mouse it has the size of the video frame, so that the text there stays as sharp as on
/// the stage; the pointer is in its centre except near the edges of the screen, which it doesn't leave.
/// Throws like @p source does.
PixelRectangle regionOf(const CaptureView& view, ScreenSource& source, int outputWidth, int outputHeight);

} // namespace quillora::capture
