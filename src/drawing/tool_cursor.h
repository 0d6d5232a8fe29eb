#pragma once

#include "drawing/drawing_assets.h"
#include "drawing/drawing_canvas.h"

#include <string_view>

namespace quillora::drawing {

/// Gives the canvas this cursor's picture; throws where it can't be loaded, and the pointer keeps the one it
/// had.
void showCursor(DrawingCanvas& canvas, DrawingAssets& assets, std::string_view fileName);

/// The cursor of the tool in force: the system's arrow for Select Area and Curve. Throws as showCursor.
void ApplyToolCursor(DrawingCanvas& canvas, DrawingAssets& assets);

} // namespace quillora::drawing
