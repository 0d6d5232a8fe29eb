#pragma once

#include "drawing/colour.h"

namespace quillora::drawing {

/// How the pen meets the pixel: the values are those of the platform's binary raster operations.
enum class RasterOperation { xorPen = 7, copyPen = 13 };
/// A dotted pen is always one pixel wide.
enum class PenStyle { solid = 0, dotted = 2 };
enum class FillPattern { solid = 0, transparent = 1 };

/// What an operation does to each pixel that it reaches.
struct Ink {
    Colour colour = 0;
    RasterOperation operation = RasterOperation::copyPen;
};

/// What lines and outlines are drawn with.
struct Pen {
    Ink ink;
    /// In pixels, at least 1; 1 where the style is dotted.
    int width = 1;
    PenStyle style = PenStyle::solid;
};

} // namespace quillora::drawing
