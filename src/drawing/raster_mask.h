#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillora::drawing {

/// A set of pixels of a picture, a bit each. The pieces that a shape is put together from are gathered here,
/// so that where they overlap the pixel is still drawn once. Whatever lies outside the picture is left out.
class RasterMask {
  public:
    RasterMask(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }

    /// Row @p y from @p left to @p right, both in it.
    void addSpan(std::int64_t y, std::int64_t left, std::int64_t right);
    /// Row @p y from @p left to its end changes sides. Takes effect with settleEdges, and until then nothing
    /// but edges may be added.
    void toggleFrom(std::int64_t y, std::int64_t left);
    /// Makes of the edges the pixels with an odd number of them at or left of them.
    void settleEdges();
    /// Takes out every pixel of @p other, a mask of the same size.
    void subtract(const RasterMask& other);
    /// Costs what was added since it was last empty.
    void clear();

    /// Calls @p visit(y, left, right), right not in it, for each longest run of pixels, by rows.
    template <typename Visit>
    void forEachRun(Visit visit) const;
    /// The same for the runs that settleEdges would make, while there are only edges: it costs less than
    /// both.
    template <typename Visit>
    void forEachRunBetweenEdges(Visit visit) const;

  private:
    static constexpr int kWordBits = 64;
    using Word = std::uint64_t;

    const Word* rowWords(int y) const { return &m_words[static_cast<std::size_t>(y) * m_rowWords]; }
    Word* rowWords(int y) { return &m_words[static_cast<std::size_t>(y) * m_rowWords]; }
    void noteRow(int y);
    bool untouched() const { return m_top > m_bottom; }

    int m_width;
    int m_height;
    std::size_t m_rowWords;
    std::vector<Word> m_words;
    int m_top;
    int m_bottom = -1;
};

template <typename Visit>
void RasterMask::forEachRun(Visit visit) const
{
    constexpr int kNone = -1;
    for (int y = m_top; y <= m_bottom; ++y) {
        const Word* words = rowWords(y);
        int runLeft = kNone;
        for (std::size_t index = 0; index < m_rowWords; ++index) {
            const int wordLeft = static_cast<int>(index) * kWordBits;
            const Word word = words[index];
            // From one change of bits to the next: past the first bit at which a run begins, then at which it
            // ends.
            for (int bit = 0; bit < kWordBits;) {
                const Word rest = (runLeft == kNone ? word : ~word) >> bit;
                if (rest == 0)
                    break;
                bit += std::countr_zero(rest);
                if (runLeft == kNone) {
                    runLeft = wordLeft + bit;
                } else {
                    visit(y, runLeft, wordLeft + bit);
                    runLeft = kNone;
                }
            }
        }
        if (runLeft != kNone)
            visit(y, runLeft, m_width);
    }
}

template <typename Visit>
void RasterMask::forEachRunBetweenEdges(Visit visit) const
{
    constexpr int kNone = -1;
    for (int y = m_top; y <= m_bottom; ++y) {
        const Word* words = rowWords(y);
        int runLeft = kNone;
        for (std::size_t index = 0; index < m_rowWords; ++index) {
            for (Word rest = words[index]; rest != 0; rest &= rest - 1) {
                const int edge = static_cast<int>(index) * kWordBits + std::countr_zero(rest);
                if (runLeft != kNone)
                    visit(y, runLeft, edge);
                runLeft = runLeft == kNone ? edge : kNone;
            }
        }
        if (runLeft != kNone)
            visit(y, runLeft, m_width);
    }
}

} // namespace quillora::drawing
