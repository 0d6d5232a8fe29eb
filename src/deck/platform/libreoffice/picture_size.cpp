#include "deck/platform/libreoffice/picture_size.h"

#include "base/rounding.h"

#include <algorithm>

namespace quillora::deck::libreoffice {

namespace {

constexpr int kSeriesWidth = 1280;
constexpr int kMaxSeriesHeight = 5120;

} // namespace

PictureSize seriesSize(int pageWidth, int pageHeight)
{
    const double ratio = static_cast<double>(pageHeight) / pageWidth;
    const int height = base::roundToInt(kSeriesWidth * ratio);
    if (height > kMaxSeriesHeight)
        return {std::max(1, base::roundToInt(kMaxSeriesHeight / ratio)), kMaxSeriesHeight};
    return {kSeriesWidth, std::max(1, height)};
}

} // namespace quillora::deck::libreoffice
