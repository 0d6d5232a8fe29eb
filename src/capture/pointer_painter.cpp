#include "capture/pointer_painter.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillora::capture {
namespace {

constexpr int kBytesPerPixel = 4;

/// What black and white become in the middle of the highlight, in the order blue, green, red. All other
/// values lie on the line between. Contrast of the two by WCAG 2 is 9.3 : 1, above the 7 : 1 asked of good
/// text.
constexpr std::uint8_t kBlackBecomes[3] = {0, 58, 70};
constexpr std::uint8_t kWhiteBecomes[3] = {90, 235, 255};

/// The outermost pixels of the highlight, over which it fades out.
constexpr double kSoftEdge = 4;

/// A highlight wider than any screen is as good as one of this size.
constexpr int kLargestHighlight = 1 << 15;

std::uint8_t* pixelAt(ScreenImage& image, int x, int y)
{
    return image.pixels.data() +
           kBytesPerPixel * (static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                             static_cast<std::size_t>(x));
}

PixelRectangle within(const ScreenImage& image, const PixelRectangle& clip)
{
    return intersection(clip, {0, 0, image.width, image.height});
}

std::uint8_t overlay(std::uint32_t premultiplied, std::uint32_t alpha, std::uint32_t below)
{
    // Cursors whose colours exceed their alpha exist; they glow, and must not wrap.
    return static_cast<std::uint8_t>(std::min(255U, premultiplied + (below * (255 - alpha) + 127) / 255));
}

using Tints = std::array<std::array<std::uint8_t, 256>, 3>;

constexpr Tints tints()
{
    Tints table{};
    for (std::size_t channel = 0; channel < 3; ++channel)
        for (int value = 0; value < 256; ++value)
            table[channel][static_cast<std::size_t>(value)] = static_cast<std::uint8_t>(
                kBlackBecomes[channel] +
                (value * (kWhiteBecomes[channel] - kBlackBecomes[channel]) + 127) / 255);
    return table;
}

/// What each value of each channel becomes in the middle of the highlight.
constexpr Tints kTints = tints();

/// @p strength is from 0 to 256.
void tint(std::uint8_t* pixel, int strength)
{
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const int value = pixel[channel];
        pixel[channel] =
            static_cast<std::uint8_t>(value + (kTints[channel][pixel[channel]] - value) * strength / 256);
    }
}

} // namespace

PixelRectangle cursorArea(const CursorImage& cursor, PixelPoint position)
{
    return {position.x - cursor.hotSpot.x, position.y - cursor.hotSpot.y, cursor.width, cursor.height};
}

void paintCursor(ScreenImage& image, const PixelRectangle& clip, const CursorImage& cursor,
                 PixelPoint position)
{
    const PixelRectangle area = cursorArea(cursor, position);
    const PixelRectangle drawn = intersection(area, within(image, clip));
    for (int y = drawn.top; y < drawn.bottom(); ++y) {
        const std::uint32_t* row = cursor.pixels.data() + static_cast<std::size_t>(y - area.top) *
                                                              static_cast<std::size_t>(cursor.width);
        for (int x = drawn.left; x < drawn.right(); ++x) {
            const std::uint32_t over = row[x - area.left];
            const std::uint32_t alpha = over >> 24;
            std::uint8_t* pixel = pixelAt(image, x, y);
            pixel[0] = overlay(over & 0xff, alpha, pixel[0]);
            pixel[1] = overlay(over >> 8 & 0xff, alpha, pixel[1]);
            pixel[2] = overlay(over >> 16 & 0xff, alpha, pixel[2]);
        }
    }
}

PixelRectangle highlightArea(PixelPoint position, int diameter)
{
    if (diameter < 1)
        return {};
    // The disc is centred on the middle of a pixel, so an even diameter covers one pixel less.
    const int reach = (std::min(diameter, kLargestHighlight) - 1) / 2;
    return {position.x - reach, position.y - reach, 2 * reach + 1, 2 * reach + 1};
}

void paintHighlight(ScreenImage& image, const PixelRectangle& clip, PixelPoint position, int diameter)
{
    const PixelRectangle drawn = intersection(highlightArea(position, diameter), within(image, clip));
    const double radius = std::min(diameter, kLargestHighlight) / 2.0;
    for (int y = drawn.top; y < drawn.bottom(); ++y) {
        for (int x = drawn.left; x < drawn.right(); ++x) {
            const double squared = static_cast<double>(x - position.x) * (x - position.x) +
                                   static_cast<double>(y - position.y) * (y - position.y);
            const double strength = std::clamp((radius - std::sqrt(squared)) / kSoftEdge, 0.0, 1.0);
            tint(pixelAt(image, x, y), static_cast<int>(256 * strength));
        }
    }
}

} // namespace quillora::capture
