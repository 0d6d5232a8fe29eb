#pragma once

#include "drawing/drawing_assets.h"
#include "drawing/drawing_dialogs.h"
#include "drawing/drawing_focus.h"
#include "drawing/random_numbers.h"
#include "drawing/text_rasteriser.h"

namespace quillora::drawing {

/// What the engine asks of the world outside. All of it must outlive whoever holds this.
struct DrawingPorts {
    TextRasteriser& text;
    RandomNumbers& random;
    DrawingAssets& assets;
    DrawingFocus& focus;
    ColourDialog& cdlColor;
};

} // namespace quillora::drawing
