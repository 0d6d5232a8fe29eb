#include "capture/image_difference.h"

#include <cstring>

namespace quillora::capture {
namespace {

class Comparison {
  public:
    Comparison(PixelRows before, PixelRows after) : m_before(before), m_after(after) {}

    bool differ(int row, std::size_t from, std::size_t to) const
    {
        return std::memcmp(at(m_before, row, from), at(m_after, row, from), to - from) != 0;
    }

    /// Offset of the first byte of @p row below @p end that differs, or @p end.
    std::size_t firstDifference(int row, std::size_t end) const
    {
        if (!differ(row, 0, end))
            return end;
        std::size_t offset = 0;
        while (!differ(row, offset, offset + 1))
            ++offset;
        return offset;
    }

    /// Offset behind the last byte of @p row from @p begin to @p end that differs, or @p begin.
    std::size_t lastDifference(int row, std::size_t begin, std::size_t end) const
    {
        if (!differ(row, begin, end))
            return begin;
        std::size_t offset = end;
        while (!differ(row, offset - 1, offset))
            --offset;
        return offset;
    }

  private:
    static const std::uint8_t* at(PixelRows rows, int row, std::size_t offset)
    {
        return rows.first + static_cast<std::size_t>(row) * rows.stride + offset;
    }

    PixelRows m_before;
    PixelRows m_after;
};

} // namespace

PixelRectangle changedPart(PixelRows before, PixelRows after, int width, int height, int bytesPerPixel)
{
    if (width <= 0 || height <= 0)
        return {};
    const Comparison rows(before, after);
    const auto pixelBytes = static_cast<std::size_t>(bytesPerPixel);
    const std::size_t rowBytes = static_cast<std::size_t>(width) * pixelBytes;
    int top = 0;
    while (top < height && !rows.differ(top, 0, rowBytes))
        ++top;
    if (top == height)
        return {};
    int bottom = height;
    while (!rows.differ(bottom - 1, 0, rowBytes))
        --bottom;

    std::size_t begin = rowBytes;
    std::size_t end = 0;
    for (int row = top; row < bottom && (begin > 0 || end < rowBytes); ++row) {
        begin = rows.firstDifference(row, begin);
        end = rows.lastDifference(row, end, rowBytes);
    }
    const int left = static_cast<int>(begin / pixelBytes);
    const int right = static_cast<int>((end + pixelBytes - 1) / pixelBytes);
    return {left, top, right - left, bottom - top};
}

} // namespace quillora::capture
