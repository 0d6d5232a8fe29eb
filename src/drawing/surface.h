#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/colour.h"
#include "drawing/pen.h"
#include "drawing/raster_image.h"
#include "drawing/shape_painter.h"
#include "drawing/surface_screen.h"
#include "drawing/text_rasteriser.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace quillora::drawing {

enum class ScaleUnit { twips = 1, pixels = 3 };
/// The parts B and BF of the `Line` operation.
enum class LineForm { line, box, filledBox };

/// A picture in memory that is drawn on with pens and brushes, and the screen that shows it. Colours replace
/// a pixel or go over it by exclusive-or; one operation touches each of its pixels exactly once, so that the
/// same operation under exclusive-or takes itself back, at every width, style and clipping.
///
/// The properties are plain members: they are read by each operation, and any value is safe. Coordinates are
/// any number at all. They are rounded to whole pixels, a half to the even neighbour, NaN to 0, and held
/// within kFarthestCoordinate; nothing outside the surface is read or written, and no operation takes longer
/// than the surface's size explains. On one thread.
class Surface {
  public:
    static constexpr int kWidestPen = 256;

    /// Blank, in @p backColour. Without a screen nothing is told to anyone; without a rasteriser `Print`
    /// draws nothing. Both must outlive the surface. Throws std::length_error for a side above
    /// RasterImage::kLongestSide; a side below 1 gives a surface without pixels.
    Surface(int width, int height, Colour backColour, SurfaceScreen* screen = nullptr,
            TextRasteriser* text = nullptr);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    RasterOperation DrawMode = RasterOperation::copyPen;
    /// In pixels; below 1 counts as 1, above kWidestPen as that. Pens wider than 1 are round.
    int DrawWidth = 1;
    PenStyle DrawStyle = PenStyle::solid;
    Colour ForeColor = rgb(0, 0, 0);
    Colour FillColor = rgb(0, 0, 0);
    FillPattern FillStyle = FillPattern::transparent;
    /// What the coordinates of the surface's own operations are counted in; those of the device context are
    /// pixels always.
    ScaleUnit ScaleMode = ScaleUnit::pixels;
    double CurrentX = 0;
    double CurrentY = 0;
    TextFont Font;

    Colour BackColor() const { return m_backColour; }
    /// In pixels.
    int width() const { return m_image.width(); }
    int height() const { return m_image.height(); }
    /// In the unit of ScaleMode.
    double ScaleWidth() const;
    double ScaleHeight() const;

    // The surface's own operations: the screen is told at once.

    /// A line from one point to another without its last pixel, or a box with both corners in it, given in
    /// any order: its outline in the pen and its inside in the brush, or outline and inside in the pen's
    /// colour.
    /// @p colour takes the place of ForeColor for this call. A line wider than one pixel has round ends round
    /// both points; a thin one from a point to itself draws nothing.
    void Line(double x1, double y1, double x2, double y2, LineForm form = LineForm::line,
              std::optional<Colour> colour = {});
    /// An ellipse. @p radius is its horizontal half axis where @p aspect is at most 1, else its vertical one;
    /// aspect is the vertical by the horizontal. A radius or aspect below 0, or NaN, draws nothing.
    void Circle(double x, double y, double radius, double aspect = 1);
    /// One dot of the pen's size.
    void PSet(double x, double y);
    /// kNoColour outside the surface.
    Colour Point(double x, double y) const;
    /// Copies @p part of @p picture, or all of it, with its top left to (x, y); what of @p part lies outside
    /// the picture changes nothing. @p part is in pixels.
    void PaintPicture(const RasterImage& picture, double x, double y,
                      std::optional<base::PixelRectangle> part = {});
    /// The text with its top left at the current point, in ForeColor, blended in where a letter covers a part
    /// of a pixel. DrawMode has no say.
    void Print(std::string_view text);
    /// Back to the back colour and the `Picture`.
    void Cls();

    /// The background, at the top left; empty for none. Setting it replaces the persistent image.
    void setPicture(RasterImage picture);
    const RasterImage& Picture() const { return m_picture; }
    /// The persistent image; copy it to keep it.
    const RasterImage& Image() const { return m_image; }
    /// What stood at a place that stays stands there still; new places show the background. Throws as the
    /// constructor does.
    void resize(int width, int height);
    /// Brings the screen up to date, before it returns.
    void Refresh();
    /// What was drawn through the device context since the last Refresh, for a screen that is about to show
    /// it for reasons of its own; the next Refresh then leaves it out. Empty where that is nothing.
    base::PixelRectangle takeUnshown();

    // The operations of the device context, in pixels: the screen is told with the next Refresh.

    /// Fills with the brush every pixel of @p colour that is joined to (x, y) by its sides through pixels of
    /// that colour. Nothing where the start has another colour, lies outside, or the brush is transparent.
    void ExtFloodFill(int x, int y, Colour colour);
    /// Right and bottom are the first column and row outside. The corners are quarters of an ellipse of this
    /// size.
    void RoundRect(int left, int top, int right, int bottom, int ellipseWidth, int ellipseHeight);
    /// Closed from the last point to the first; where it crosses itself, every second region is inside. Fewer
    /// than two points draw nothing.
    void Polygon(std::span<const base::PixelPoint> points);
    /// From the first point to the last, both drawn, pulled by the two between.
    void PolyBezier(const std::array<base::PixelPoint, 4>& points);
    /// kNoColour outside.
    Colour GetPixel(int x, int y) const { return m_image.contains(x, y) ? m_image.at(x, y) : kNoColour; }
    /// Nothing outside. DrawMode has no say.
    void SetPixel(int x, int y, Colour colour);
    /// The persistent image for work on many pixels at once: as SetPixel, with the promise that only what
    /// lies in
    /// @p touched changes, and that no high byte is set.
    RasterImage& devicePixels(const base::PixelRectangle& touched);

  private:
    Pen pen(std::optional<Colour> colour = {}) const;
    std::optional<Ink> brush() const;
    base::PixelPoint toPixel(double x, double y) const;
    double pixelsPerUnit() const;
    void paintBackground();
    void shown(const base::PixelRectangle& changed);
    void drawnByDevice(const base::PixelRectangle& changed);

    Colour m_backColour;
    SurfaceScreen* m_screen;
    TextRasteriser* m_text;
    RasterImage m_image;
    RasterImage m_picture;
    base::PixelRectangle m_unshown;
    ShapePainter m_painter{m_image};
};

} // namespace quillora::drawing
