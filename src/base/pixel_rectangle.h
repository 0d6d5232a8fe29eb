#pragma once

#include <algorithm>
#include <cstdint>

namespace quillora::base {

/// A rectangle of the screen or of a picture in pixels, right and bottom edges excluded. Width and height of
/// zero or less make it empty.
struct PixelRectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    constexpr bool empty() const { return width <= 0 || height <= 0; }
    /// Edges are beyond the range of int where a rectangle lies at its end.
    constexpr std::int64_t right() const { return std::int64_t{left} + width; }
    constexpr std::int64_t bottom() const { return std::int64_t{top} + height; }

    bool operator==(const PixelRectangle&) const = default;
};

/// A pixel of the screen or of a picture.
struct PixelPoint {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPoint&) const = default;
};

/// What two rectangles have in common; the empty rectangle at the origin when that is nothing.
constexpr PixelRectangle intersection(const PixelRectangle& one, const PixelRectangle& other)
{
    const int left = std::max(one.left, other.left);
    const int top = std::max(one.top, other.top);
    const std::int64_t right = std::min(one.right(), other.right());
    const std::int64_t bottom = std::min(one.bottom(), other.bottom());
    if (one.empty() || other.empty() || right <= left || bottom <= top)
        return {};
    return {left, top, static_cast<int>(right - left), static_cast<int>(bottom - top)};
}

/// The smallest rectangle that holds both; an empty one adds nothing.
constexpr PixelRectangle boundingBox(const PixelRectangle& one, const PixelRectangle& other)
{
    if (one.empty() || other.empty())
        return one.empty() ? other : one;
    const int left = std::min(one.left, other.left);
    const int top = std::min(one.top, other.top);
    return {left, top, static_cast<int>(std::max(one.right(), other.right()) - left),
            static_cast<int>(std::max(one.bottom(), other.bottom()) - top)};
}

/// @p rectangle as seen from @p origin.
constexpr PixelRectangle relativeTo(const PixelPoint& origin, const PixelRectangle& rectangle)
{
    return {rectangle.left - origin.x, rectangle.top - origin.y, rectangle.width, rectangle.height};
}

} // namespace quillora::base
