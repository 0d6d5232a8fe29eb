#include "drawing/raster_mask.h"

#include <algorithm>

namespace quillora::drawing {

RasterMask::RasterMask(int width, int height)
    : m_width(std::max(width, 0)),
      m_height(std::max(height, 0)),
      m_rowWords((static_cast<std::size_t>(m_width) + kWordBits - 1) / kWordBits),
      m_words(m_rowWords * static_cast<std::size_t>(m_height)),
      m_top(m_height)
{}

void RasterMask::addSpan(std::int64_t y, std::int64_t left, std::int64_t right)
{
    left = std::max<std::int64_t>(left, 0);
    right = std::min<std::int64_t>(right, m_width - 1);
    if (y < 0 || y >= m_height || left > right)
        return;
    noteRow(static_cast<int>(y));
    Word* words = rowWords(static_cast<int>(y));
    const auto firstWord = static_cast<std::size_t>(left) / kWordBits;
    const auto lastWord = static_cast<std::size_t>(right) / kWordBits;
    const Word fromLeft = ~Word{0} << (left % kWordBits);
    const Word upToRight = ~Word{0} >> (kWordBits - 1 - right % kWordBits);
    if (firstWord == lastWord) {
        words[firstWord] |= fromLeft & upToRight;
        return;
    }
    words[firstWord] |= fromLeft;
    std::fill(words + firstWord + 1, words + lastWord, ~Word{0});
    words[lastWord] |= upToRight;
}

void RasterMask::toggleFrom(std::int64_t y, std::int64_t left)
{
    left = std::max<std::int64_t>(left, 0);
    if (y < 0 || y >= m_height || left >= m_width)
        return;
    noteRow(static_cast<int>(y));
    rowWords(static_cast<int>(y))[left / kWordBits] ^= Word{1} << (left % kWordBits);
}

void RasterMask::settleEdges()
{
    const int unused = static_cast<int>(m_rowWords) * kWordBits - m_width;
    for (int y = m_top; y <= m_bottom; ++y) {
        Word* words = rowWords(y);
        Word carried = 0;
        for (std::size_t index = 0; index < m_rowWords; ++index) {
            // Each doubling of the shift makes a bit the parity of twice as many bits up to it.
            Word parity = words[index];
            for (int shift = 1; shift < kWordBits; shift *= 2)
                parity ^= parity << shift;
            words[index] = parity ^ carried;
            carried = Word{0} - (words[index] >> (kWordBits - 1));
        }
        words[m_rowWords - 1] &= ~Word{0} >> unused;
    }
}

void RasterMask::subtract(const RasterMask& other)
{
    const int top = std::max(m_top, other.m_top);
    const int bottom = std::min(m_bottom, other.m_bottom);
    for (int y = top; y <= bottom; ++y) {
        Word* words = rowWords(y);
        const Word* others = other.rowWords(y);
        for (std::size_t index = 0; index < m_rowWords; ++index)
            words[index] &= ~others[index];
    }
}

void RasterMask::clear()
{
    if (untouched())
        return;
    std::fill(rowWords(m_top), rowWords(m_bottom) + m_rowWords, Word{0});
    m_top = m_height;
    m_bottom = -1;
}

void RasterMask::noteRow(int y)
{
    m_top = std::min(m_top, y);
    m_bottom = std::max(m_bottom, y);
}

} // namespace quillora::drawing
