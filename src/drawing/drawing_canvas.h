#pragma once

#include "base/pixel_rectangle.h"
#include "base/twips.h"
#include "drawing/drawing_dialogs.h"
#include "drawing/option_grids.h"
#include "drawing/palette_table.h"
#include "drawing/snapshot_ring.h"
#include "drawing/surface.h"
#include "drawing/tool_table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quillora::drawing {

/// The engine's state, as it is each time the drawing board is chosen.
struct DrawingFields {
    /// The number of the tool in force. The palette may show another one, since nothing moves its buttons
    /// back.
    int currentTool = toolId(Tool::pencil);
    /// What the Filter Brush applies. Nothing else is ever written to it.
    int filterId = 2;
    /// The tip of the Brush. Nothing else is ever written to it.
    int brushShape = 0;
    /// The chosen cell of the width grid; the pen is one wider.
    std::int16_t dotIndex = 0;
    /// The style of the drawing tools' pen, solid for good.
    std::int16_t penStyle = 0;
    /// 0 outline, 1 outline and inside, 2 inside alone.
    int fillMode = 0;
    /// The brush of a filled shape, solid for good.
    std::int16_t fillPattern = 0;
    /// The press point; for the pencil its newest point.
    int startX = 0;
    int startY = 0;
    /// The current end; for the pencil its point before.
    int endX = 0;
    int endY = 0;
    /// Set by a left press and cleared by no tool but the Zoom: what ends a stroke is the button's state in
    /// the move events.
    bool pointerDown = false;
    bool polygonOpen = false;
    /// Stays after the polygon is closed, until the next one begins.
    std::vector<base::PixelPoint> polygonPoints{};
    /// A curve handle is being dragged, or the Hand is pressed.
    bool handleDragging = false;
    /// The grab point inside a handle; the canvas's left and top for the Hand. In twips.
    int handleGrabX = 0;
    int handleGrabY = 0;
    /// The selection was just lifted, and what lies under it is still untouched.
    bool selectionFresh = false;
    bool selectionDragging = false;
    /// Set by the canvas's resize event, read by nothing.
    bool canvasResized = false;
};

/// `MousePointer` values: the system's arrow, or the cursor in `MouseIcon`.
inline constexpr int kSystemArrow = 0;
inline constexpr int kCustomCursor = 99;

/// The canvas `picPaint`. Left, top, width and height are those of the control on the stage.
struct PaintSurface {
    Surface surface;
    base::Twips Left{};
    base::Twips Top{};
    base::Twips Width{};
    base::Twips Height{};
    bool Visible = false;
    int BorderStyle = 0;
    int MousePointer = kSystemArrow;
    /// File name of a cursor that could be loaded; empty before the first.
    std::string MouseIcon{};
};

/// The lifted selection `picSelect`, floating over the canvas. Its rectangle is in the canvas's pixels; that
/// it is visible means that there is a selection.
struct SelectionSurface {
    Surface surface;
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    bool Visible = false;
};

/// One of the four images `imgBezier`. In twips on the canvas.
struct CurveHandle {
    static constexpr int kSide = 60;

    // Off the canvas until a curve is begun: a curve drawn before that can't be seen.
    float Left = -6000;
    float Top = -6000;
    bool Visible = false;
};

/// The text box `txtText`. Left, top and height in pixels of the canvas.
struct DrawingTextBox {
    static constexpr base::Twips kWidth{2025};

    float Left = 0;
    float Top = 0;
    int Height = 0;
    bool Visible = false;
    std::string Text{};
    /// "moving" from a press that moves the box until it loses the focus.
    std::string Tag{};
    Colour BackColor = kWhite;
    Colour ForeColor = kBlack;
    TextFont Font{};
};

/// The hidden label `lblTextSize`, whose height the text box takes on. Its font is not the box's.
struct TextSizeLabel {
    std::string Caption{};
    TextFont Font{.name = "Arial", .sizePoints = 9.75};
};

/// State and surfaces of the drawing board: the canvas, what floats over it, and the palette's controls,
/// which double as its data. Plain data on one thread: the tools change it, and the form shows it as it
/// stands.
struct DrawingCanvas {
    static constexpr base::Twips kWidth{11200};
    static constexpr base::Twips kHeight{6300};
    static constexpr Colour kBackColour = rgb(201, 198, 255);

    /// A canvas of @p width by @p height pixels. The screens may be null; what is given must outlive the
    /// canvas.
    DrawingCanvas(int width, int height, TextRasteriser* text = nullptr,
                  SurfaceScreen* canvasScreen = nullptr, SurfaceScreen* selectionScreen = nullptr);

    DrawingFields fields;
    SnapshotRing ring;
    PaintSurface picPaint;
    SelectionSurface picSelect;
    std::array<CurveHandle, 4> imgBezier{};
    DrawingTextBox txtText;
    TextSizeLabel lblTextSize;
    /// The pen colour and the fill colour.
    Colour lblForeColor = kFirstPenColour;
    Colour lblFillColor = kFirstFillColour;
    std::array<Colour, kColourCells> lblColor{};
    WidthGrid widthGrid;
    FillColumn fillColumn;
    bool fraOptDotVisible = false;
    bool fraOptFillVisible = false;
    DrawingDialogs dialogs;

    Surface& surface() { return picPaint.surface; }
    const Surface& surface() const { return picPaint.surface; }

    base::PixelPoint start() const { return {fields.startX, fields.startY}; }
    base::PixelPoint end() const { return {fields.endX, fields.endY}; }
    void setStart(base::PixelPoint place);
    void setEnd(base::PixelPoint place);

    /// The colour that shows as @p wanted over untouched background when a pen goes over it by exclusive-or.
    Colour bandColour(Colour wanted) const { return surface().BackColor() ^ wanted; }
    FillPattern fillStyle() const { return static_cast<FillPattern>(fields.fillPattern); }
    PenStyle penStyle() const { return static_cast<PenStyle>(fields.penStyle); }
};

/// Sets pen and brush for a closed shape in these colours, as the fill mode says: without an inside, with
/// one, or with outline and inside in the colour of the inside.
void setPenAndBrush(DrawingCanvas& canvas, Colour pen, Colour inside);

/// Stores the canvas in the ring.
void TakeSnapshot(DrawingCanvas& canvas);

} // namespace quillora::drawing
