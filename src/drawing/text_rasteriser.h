#pragma once

#include "base/pixel_rectangle.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillora::drawing {

/// A font as the text tool asks for it.
struct TextFont {
    std::string name = "Verdana";
    double sizePoints = 14.25;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;

    bool operator==(const TextFont&) const = default;
};

/// In pixels.
struct TextSize {
    int width = 0;
    int height = 0;

    bool operator==(const TextSize&) const = default;
};

/// Turns a text into pixels, with the fonts of whoever has fonts. Texts are UTF-8.
class TextRasteriser {
  public:
    virtual ~TextRasteriser() = default;
    /// The box that holds the whole of @p text in @p font, in pixels.
    virtual TextSize measure(const TextFont& font, std::string_view text) = 0;
    /// Writes how much of each pixel the letters cover, 0 not at all to 255 wholly, for @p part of the text's
    /// box (whose top left is the origin), row by row into @p coverage, which has part.width times
    /// part.height elements, all 0. Only what can be seen is asked for, however long the text.
    virtual void rasterise(const TextFont& font, std::string_view text, const base::PixelRectangle& part,
                           std::span<std::uint8_t> coverage) = 0;
};

} // namespace quillora::drawing
