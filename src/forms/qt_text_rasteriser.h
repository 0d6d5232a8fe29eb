#pragma once

#include "drawing/text_rasteriser.h"

namespace quillora::forms {

/// The toolkit's fonts for the drawing board's texts, with smooth edges in shades of grey. What can't be
/// printed in a text, such as the end of a line, is a blank. Needs the application object of the toolkit.
class QtTextRasteriser : public drawing::TextRasteriser {
  public:
    drawing::TextSize measure(const drawing::TextFont& font, std::string_view text) override;
    void rasterise(const drawing::TextFont& font, std::string_view text, const base::PixelRectangle& part,
                   std::span<std::uint8_t> coverage) override;
};

} // namespace quillora::forms
