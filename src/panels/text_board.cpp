#include "panels/text_board.h"

#include "base/skip_failures.h"

#include <algorithm>
#include <iterator>

namespace quillora::panels {

using base::skipFailures;

namespace {

enum Code { bold = 0, italic = 1, underline = 2, bullets = 3, left = 4, centre = 5, right = 6 };

constexpr int kAltAlone = 4;
constexpr double kFontSizeStep = 4;

struct KeyedCode {
    std::string_view key;
    Code code;
};

constexpr KeyedCode kToolbar1[] = {{"bold", bold}, {"italic", italic}, {"under", underline}};
constexpr KeyedCode kToolbar2[] = {
    {"bullets", bullets}, {"left", left}, {"center", centre}, {"right", right}};

struct LetterCode {
    int letter;
    Code code;
};

constexpr LetterCode kLetters[] = {{'B', bold}, {'I', italic}, {'U', underline}, {'C', centre}, {'R', right}};

/// Calls @p found with the row's code.
void withRow(const auto& table, const auto& wanted, auto member, auto&& found)
{
    if (const auto* row = std::ranges::find(table, wanted, member); row != std::end(table))
        found(row->code);
}

std::string valueOf(const PropertySet& properties, std::string_view key)
{
    const auto found = properties.find(key);
    return found == properties.end() ? std::string() : found->second;
}

} // namespace

void TextBoard::ApplyTextFormat(int code)
{
    auto& control = m_textBoard_txt;
    switch (code) {
    case bold:
        control.setSelBold(!control.SelBold().value_or(false));
        break;
    case italic:
        control.setSelItalic(!control.SelItalic().value_or(false));
        break;
    case underline:
        control.setSelUnderline(!control.SelUnderline().value_or(false));
        break;
    case bullets:
        control.setSelBullet(!control.SelBullet().value_or(false));
        break;
    case left:
        if (control.SelAlignment() != Alignment::left)
            control.setSelAlignment(Alignment::left);
        break;
    case centre:
        toggleAlignment(Alignment::centre);
        break;
    case right:
        toggleAlignment(Alignment::right);
        break;
    default:
        break;
    }
}

void TextBoard::toggleAlignment(Alignment alignment)
{
    if (m_textBoard_txt.SelAlignment() == alignment)
        ApplyTextFormat(left);
    else
        m_textBoard_txt.setSelAlignment(alignment);
}

void TextBoard::addToFontSize(double points)
{
    if (const auto size = m_textBoard_txt.SelFontSize())
        m_textBoard_txt.setSelFontSize(*size + points);
}

void TextBoard::text1_TB_ButtonClick(std::string_view key)
{
    skipFailures([&] {
        withRow(kToolbar1, key, &KeyedCode::key, [&](int code) { ApplyTextFormat(code); });
        if (key == "grow")
            addToFontSize(kFontSizeStep);
        if (key == "shrink")
            addToFontSize(-kFontSizeStep);
    });
}

void TextBoard::text2_TB_ButtonClick(std::string_view key)
{
    skipFailures([&] {
        withRow(kToolbar2, key, &KeyedCode::key, [&](int code) { ApplyTextFormat(code); });
        if (key == "cut")
            m_textBoard_txt.setText("");
    });
}

void TextBoard::Swatch_Click(base::Colour BackColor)
{
    skipFailures([&] { m_textBoard_txt.setSelColor(BackColor); });
}

void TextBoard::textBoard_txt_KeyDown(int keyCode, int shift)
{
    if (shift != kAltAlone)
        return;
    skipFailures(
        [&] { withRow(kLetters, keyCode, &LetterCode::letter, [&](int code) { ApplyTextFormat(code); }); });
}

void TextBoard::ReadProperties(const PropertySet& properties)
{
    m_textBoard_txt.setText(valueOf(properties, "Text"));
    m_textBoard_txt.setTextRTF(valueOf(properties, "TextRTF"));
}

void TextBoard::WriteProperties(PropertySet& properties) const
{
    properties.insert_or_assign("Text", m_textBoard_txt.Text());
    properties.insert_or_assign("TextRTF", m_textBoard_txt.TextRTF());
}

} // namespace quillora::panels
