#include "drawing/drawing_canvas.h"

namespace quillora::drawing {

DrawingCanvas::DrawingCanvas(int width, int height, TextRasteriser* text, SurfaceScreen* canvasScreen,
                             SurfaceScreen* selectionScreen)
    : picPaint{.surface = Surface(width, height, kBackColour, canvasScreen, text),
               .Width = kWidth,
               .Height = kHeight},
      picSelect{.surface = Surface(0, 0, kBackColour, selectionScreen, text)}
{
    for (int i = 0; i < kColourCells; ++i)
        lblColor[i] = kColourPalette[i].BackColor;
}

void DrawingCanvas::setStart(base::PixelPoint place)
{
    fields.startX = place.x;
    fields.startY = place.y;
}

void DrawingCanvas::setEnd(base::PixelPoint place)
{
    fields.endX = place.x;
    fields.endY = place.y;
}

void setPenAndBrush(DrawingCanvas& canvas, Colour pen, Colour inside)
{
    auto& surface = canvas.surface();
    const bool hasInside = canvas.fields.fillMode == 1 || canvas.fields.fillMode == 2;
    surface.FillStyle = hasInside ? canvas.fillStyle() : FillPattern::transparent;
    surface.ForeColor = canvas.fields.fillMode == 2 ? inside : pen;
    if (hasInside)
        surface.FillColor = inside;
}

void TakeSnapshot(DrawingCanvas& canvas)
{
    canvas.ring.take(canvas.surface().Image(), canvas.picPaint.Width.value, canvas.picPaint.Height.value);
}

} // namespace quillora::drawing
