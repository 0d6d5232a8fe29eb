#pragma once

#include "drawing/paint_engine.h"
#include "tests/support/fake_drawing_ports.h"
#include "tests/support/fake_random_numbers.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/fake_text_rasteriser.h"
#include "tests/support/pixel_grid.h"

#include <gtest/gtest.h>

#include <string>

namespace quillora::tests {

/// A small drawing board as it comes up, with a presenter's hand on it. The pen is one pixel wide and black.
struct DrawingBoard : testing::Test {
    static constexpr int kWidth = 16;
    static constexpr int kHeight = 10;
    static constexpr drawing::Colour kBack = drawing::DrawingCanvas::kBackColour;
    static constexpr drawing::Colour kFillColour = drawing::kFirstFillColour;
    static constexpr drawing::Colour kRed = drawing::rgb(255, 0, 0);

    FakeTextRasteriser text;
    FakeRandomNumbers random;
    FakeDrawingAssets assets;
    FakeDrawingFocus focus;
    FakeColourDialog cdlColor;
    FakeSurfaceScreen screen;
    drawing::DrawingCanvas canvas{kWidth, kHeight, &text, &screen};
    drawing::PaintEngine engine{canvas, {text, random, assets, focus, cdlColor}};
    drawing::Surface& surface = canvas.surface();
    drawing::DrawingFields& fields = canvas.fields;
    /// Held for the whole gesture.
    int shift = 0;

    DrawingBoard()
    {
        engine.DrawPrepare();
        fields.dotIndex = 0;
    }

    void choose(drawing::Tool tool) { engine.SelectTool(drawing::toolId(tool), drawing::kLeftButton); }
    drawing::PointerEvent left(float x, float y) const { return {drawing::kLeftButton, shift, x, y}; }
    void press(float x, float y) { engine.picPaint_MouseDown(left(x, y)); }
    void move(float x, float y) { engine.picPaint_MouseMove(left(x, y)); }
    void release(float x, float y) { engine.picPaint_MouseUp(left(x, y)); }
    void click(float x, float y)
    {
        press(x, y);
        release(x, y);
    }
    void drag(float x1, float y1, float x2, float y2)
    {
        press(x1, y1);
        move(x2, y2);
        release(x2, y2);
    }
    void doubleClick(float x, float y)
    {
        click(x, y);
        engine.picPaint_DblClick();
    }

    /// '.' for the back colour, '#' for black, 'f' for the fill colour, 'r' for red.
    std::string grid() const { return gridOf(canvas.surface().Image()); }
    static std::string gridOf(const drawing::RasterImage& image)
    {
        return pixelGrid(image, {{'.', kBack}, {'#', drawing::kBlack}, {'f', kFillColour}, {'r', kRed}});
    }
    int snapshots() const { return canvas.ring.bufferNewest; }
};

} // namespace quillora::tests
