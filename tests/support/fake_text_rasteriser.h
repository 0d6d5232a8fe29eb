#pragma once

#include "drawing/text_rasteriser.h"

#include <vector>

namespace quillora::tests {

/// Letters are boxes: each byte of a text covers all but the right column and the bottom row of a cell.
class FakeTextRasteriser : public drawing::TextRasteriser {
  public:
    static constexpr int kCellWidth = 4;
    static constexpr int kCellHeight = 5;

    drawing::TextSize measure(const drawing::TextFont& font, std::string_view text) override
    {
        lastFont = font;
        return {static_cast<int>(text.size()) * kCellWidth, kCellHeight};
    }

    void rasterise(const drawing::TextFont& font, std::string_view text, const base::PixelRectangle& part,
                   std::span<std::uint8_t> coverage) override
    {
        lastFont = font;
        lastText = text;
        parts.push_back(part);
        for (int y = 0; y < part.height; ++y) {
            for (int x = 0; x < part.width; ++x) {
                const bool inLetter =
                    (part.left + x) % kCellWidth != kCellWidth - 1 && part.top + y < kCellHeight - 1;
                coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(part.width) +
                         static_cast<std::size_t>(x)] = inLetter ? inkOfLetters : 0;
            }
        }
    }

    std::uint8_t inkOfLetters = 255;
    drawing::TextFont lastFont;
    std::string lastText;
    std::vector<base::PixelRectangle> parts;
};

} // namespace quillora::tests
