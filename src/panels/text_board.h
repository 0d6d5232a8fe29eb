#pragma once

#include "panels/rich_text_control.h"

#include <map>
#include <string>
#include <string_view>

namespace quillora::panels {

/// Values by their key; a key that isn't there has its reader's default.
using PropertySet = std::map<std::string, std::string, std::less<>>;

/// The commands of the text board: two toolbars, four swatches and a few keys, all of them on the selection
/// of `textBoard_txt`, where the text and its formats live. Handlers of events never throw, and say nothing:
/// a step that the control refuses ends its command. On the one thread of forms and logic.
class TextBoard {
  public:
    /// @p textBoard_txt must outlive this object.
    explicit TextBoard(RichTextControl& textBoard_txt) : m_textBoard_txt(textBoard_txt) {}

    /// Codes: 0 bold, 1 italic, 2 underline, 3 bullets, 4 left, 5 centre, 6 right; any other does nothing.
    /// The first four turn what they name on or off, a mixed selection on; centre and right fall back to
    /// left. Throws what the control throws.
    void ApplyTextFormat(int code);

    /// "bold", "italic", "under", "grow" or "shrink".
    void text1_TB_ButtonClick(std::string_view key);
    /// "bullets", "left", "center", "right", or "cut", which empties the board and leaves the clipboard
    /// alone.
    void text2_TB_ButtonClick(std::string_view key);
    /// One of the swatches `Picture5` to `Picture8`, which has this colour.
    void Swatch_Click(base::Colour BackColor);
    /// @p keyCode: that of the key's capital letter. @p shift: the sum of 1 Shift, 2 Ctrl, 4 Alt.
    void textBoard_txt_KeyDown(int keyCode, int shift);

    std::string Text() const { return m_textBoard_txt.Text(); }
    void setText(const std::string& text) { m_textBoard_txt.setText(text); }
    std::string TextRTF() const { return m_textBoard_txt.TextRTF(); }
    void setTextRTF(const std::string& rtf) { m_textBoard_txt.setTextRTF(rtf); }

    /// Takes "Text", then "TextRTF", so that the latter is what stays. Throws what the control throws.
    void ReadProperties(const PropertySet& properties);
    void WriteProperties(PropertySet& properties) const;

  private:
    void toggleAlignment(Alignment alignment);
    void addToFontSize(double points);

    RichTextControl& m_textBoard_txt;
};

} // namespace quillora::panels
