#pragma once

#include "base/colour.h"
#include "panels/rich_text.h"

#include <optional>
#include <string>

namespace quillora::panels {

/// The rich text control `textBoard_txt`. What begins with Sel is about the selection, or without one about
/// what is typed next; it reads as undefined (no value) where the selection is mixed. Writing it writes all
/// of the selection. Failures are exceptions derived from std::exception; the control then keeps what it had.
class RichTextControl {
  public:
    virtual ~RichTextControl() = default;

    /// UTF-8; "\r\n" parts paragraphs, and "\v" breaks a line in one.
    virtual std::string Text() const = 0;
    /// A text that is given takes the look that the board begins with.
    virtual void setText(const std::string& text) = 0;
    virtual std::string TextRTF() const = 0;
    /// An empty text empties the board; one that is no RTF fails.
    virtual void setTextRTF(const std::string& rtf) = 0;

    virtual std::optional<base::Colour> SelColor() const = 0;
    virtual void setSelColor(base::Colour colour) = 0;
    /// In points. Fails for a size outside kSmallestFontSize to kLargestFontSize.
    virtual std::optional<double> SelFontSize() const = 0;
    virtual void setSelFontSize(double points) = 0;
    virtual std::optional<bool> SelBold() const = 0;
    virtual void setSelBold(bool bold) = 0;
    virtual std::optional<bool> SelItalic() const = 0;
    virtual void setSelItalic(bool italic) = 0;
    virtual std::optional<bool> SelUnderline() const = 0;
    virtual void setSelUnderline(bool underline) = 0;
    virtual std::optional<Alignment> SelAlignment() const = 0;
    virtual void setSelAlignment(Alignment alignment) = 0;
    virtual std::optional<bool> SelBullet() const = 0;
    virtual void setSelBullet(bool bullet) = 0;
};

} // namespace quillora::panels
