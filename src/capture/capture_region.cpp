#include "capture/capture_region.h"

#include <algorithm>

namespace quillora::capture {

namespace {

/// No screen is larger; a picture of this size takes 256 MiB.
constexpr int kLongestEdge = 8192;

/// Where an interval of @p length starts so that @p centre is its middle, as far as the bounds allow.
int centred(int centre, int length, int lowest, std::int64_t end)
{
    const std::int64_t highest = std::max<std::int64_t>(lowest, end - length);
    return int(std::clamp<std::int64_t>(std::int64_t{centre} - length / 2, lowest, highest));
}

PixelRectangle around(const PixelPoint& pointer, const PixelRectangle& screen, int width, int height)
{
    return {centred(pointer.x, width, screen.left, screen.right()),
            centred(pointer.y, height, screen.top, screen.bottom()), width, height};
}

} // namespace

PixelRectangle regionOf(const CaptureView& view, ScreenSource& source, int outputWidth, int outputHeight)
{
    PixelRectangle region = view.rectangle;
    if (view.mode == CaptureMode::wholeScreen)
        region = source.screen();
    else if (view.mode == CaptureMode::aroundMouse)
        region = around(source.pointer(), source.screen(), outputWidth, outputHeight);
    region.width = std::clamp(region.width, 1, kLongestEdge);
    region.height = std::clamp(region.height, 1, kLongestEdge);
    return region;
}

} // namespace quillora::capture
