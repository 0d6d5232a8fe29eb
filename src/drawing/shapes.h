#pragma once

#include "base/pixel_rectangle.h"
#include "drawing/surface.h"

namespace quillora::drawing {

/// An ellipse in the terms of Surface::Circle.
struct EllipseShape {
    double centreX = 0;
    double centreY = 0;
    double radius = 0;
    double aspect = 1;
};

/// The ellipse that touches all four sides of the rectangle between two corners, given in any order. They
/// must not stand above each other: there the aspect is not defined.
EllipseShape ellipseBetween(const base::PixelPoint& one, const base::PixelPoint& other);

/// Where the two strokes of an arrow's head end that begin at its tip.
struct ArrowHead {
    base::PixelPoint first;
    base::PixelPoint second;

    bool operator==(const ArrowHead&) const = default;
};

/// Strokes of ten pixels at 45 degrees on either side of the shaft, whatever its length; of none where the
/// shaft has none. Throws std::overflow_error where an end leaves the range of a 16-bit number.
ArrowHead arrowHead(const base::PixelPoint& tail, const base::PixelPoint& tip);

/// The shaft and then the head, in the pen of the moment. Throws as arrowHead does, with the shaft drawn.
void drawArrow(Surface& surface, const base::PixelPoint& tail, const base::PixelPoint& tip);

} // namespace quillora::drawing
