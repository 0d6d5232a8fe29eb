#pragma once

#include "drawing/surface.h"

#include <array>
#include <ostream>
#include <random>
#include <vector>

namespace quillora::tests {

/// A drawing operation of any kind with any properties, that can be carried out again and elsewhere.
struct RandomShape {
    enum class Kind { line, box, filledBox, circle, dot, roundRect, polygon, curve };
    static constexpr int kKinds = 8;

    Kind kind = Kind::line;
    int width = 1;
    drawing::PenStyle style = drawing::PenStyle::solid;
    drawing::FillPattern fill = drawing::FillPattern::solid;
    /// At least four.
    std::vector<base::PixelPoint> points;
    double radius = 0;
    double aspect = 1;

    /// Points from -@p reach to @p reach on either side of a picture of this size.
    template <typename Random>
    static RandomShape make(Random& random, int pictureWidth, int pictureHeight, int reach)
    {
        const auto number = [&](int low, int high) {
            return std::uniform_int_distribution(low, high)(random);
        };
        RandomShape shape;
        shape.kind = static_cast<Kind>(number(0, kKinds - 1));
        shape.width = number(1, 12);
        shape.style = number(0, 4) == 0 ? drawing::PenStyle::dotted : drawing::PenStyle::solid;
        shape.fill = number(0, 1) == 0 ? drawing::FillPattern::solid : drawing::FillPattern::transparent;
        for (int count = number(4, 8); count > 0; --count)
            shape.points.push_back(
                {number(-reach, pictureWidth + reach), number(-reach, pictureHeight + reach)});
        if (number(0, 9) == 0)
            shape.points[1] = shape.points[0];
        if (number(0, 9) == 0)
            shape.points[1].x = shape.points[0].x;
        if (number(0, 9) == 0)
            shape.points[1].y = shape.points[0].y;
        shape.radius = number(0, pictureWidth) / 2.0;
        shape.aspect = number(0, 40) / 10.0;
        return shape;
    }

    void setProperties(drawing::Surface& surface) const
    {
        surface.DrawWidth = width;
        surface.DrawStyle = style;
        surface.FillStyle = fill;
    }

    /// Moved by so much.
    void draw(drawing::Surface& surface, int right = 0, int down = 0) const
    {
        std::vector<base::PixelPoint> at = points;
        for (base::PixelPoint& point : at) {
            point.x += right;
            point.y += down;
        }
        switch (kind) {
        case Kind::line:
            return surface.Line(at[0].x, at[0].y, at[1].x, at[1].y);
        case Kind::box:
            return surface.Line(at[0].x, at[0].y, at[1].x, at[1].y, drawing::LineForm::box);
        case Kind::filledBox:
            return surface.Line(at[0].x, at[0].y, at[1].x, at[1].y, drawing::LineForm::filledBox);
        case Kind::circle:
            return surface.Circle(at[0].x, at[0].y, radius, aspect);
        case Kind::dot:
            return surface.PSet(at[0].x, at[0].y);
        case Kind::roundRect:
            return surface.RoundRect(at[0].x, at[0].y, at[1].x, at[1].y, 10, 10);
        case Kind::polygon:
            return surface.Polygon(at);
        case Kind::curve:
            return surface.PolyBezier({at[0], at[1], at[2], at[3]});
        }
    }

    friend std::ostream& operator<<(std::ostream& out, const RandomShape& shape)
    {
        out << "kind " << static_cast<int>(shape.kind) << ", width " << shape.width << ", style "
            << static_cast<int>(shape.style) << ", fill " << static_cast<int>(shape.fill) << ", radius "
            << shape.radius << ", aspect " << shape.aspect << ", points";
        for (const base::PixelPoint& point : shape.points)
            out << " (" << point.x << ", " << point.y << ")";
        return out;
    }
};

} // namespace quillora::tests
