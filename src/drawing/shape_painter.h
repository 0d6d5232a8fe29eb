#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/pen.h"
#include "drawing/raster_image.h"
#include "drawing/raster_line.h"
#include "drawing/raster_mask.h"
#include "drawing/raster_oval.h"

#include <array>
#include <optional>
#include <span>

namespace quillora::drawing {

/// Draws shapes on a picture with a pen and, where they have an inside, a brush, so that each pixel of a
/// shape is touched exactly once as far as can be seen: shapes whose runs don't overlap go straight to the
/// picture; the overlapping pieces of others do so under the copy pen, which hides it, and else through a
/// mask. All operations take any coordinates within reach (see raster_line.h), cost no more than the
/// picture's size explains, and give a rectangle that holds what they touched.
class ShapePainter {
  public:
    /// @p image must outlive the painter; it may change its size.
    explicit ShapePainter(RasterImage& image) : m_image(image), m_outline(0, 0), m_inside(0, 0) {}

    /// Without its last pixel, where the pen is one pixel wide; else with round ends.
    base::PixelRectangle drawLine(const base::PixelPoint& from, const base::PixelPoint& to, const Pen& pen);
    base::PixelRectangle drawDot(const base::PixelPoint& point, const Pen& pen);
    base::PixelRectangle drawOval(const Oval& oval, const Pen& pen, std::optional<Ink> brush);
    base::PixelRectangle drawPolygon(std::span<const base::PixelPoint> points, const Pen& pen,
                                     std::optional<Ink> brush);
    base::PixelRectangle drawCurve(const std::array<base::PixelPoint, 4>& points, const Pen& pen);

  private:
    base::PixelRectangle drawThinLine(const ThinLine& line, const Pen& pen);
    base::PixelRectangle drawWideLine(const Edge& edge, const Pen& pen);
    /// All pixels of all edges, with their last ones.
    base::PixelRectangle drawEdges(std::span<const Edge> edges, const Pen& pen);
    void addEdges(std::span<const Edge> edges, const Pen& pen, RasterMask& mask) const;
    /// As edges, still to be settled.
    void addInsideEdges(std::span<const Edge> edges, RasterMask& mask) const;
    RasterMask& emptied(RasterMask& mask) const;
    base::PixelRectangle paint(const RasterMask& mask, const Ink& ink);

    RasterImage& m_image;
    RasterMask m_outline;
    RasterMask m_inside;
};

} // namespace quillora::drawing
