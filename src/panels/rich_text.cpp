#include "panels/rich_text.h"

#include "panels/unicode.h"

#include <utility>

namespace quillora::panels {

bool isBoardCharacter(char32_t character)
{
    constexpr char32_t kParagraphSeparator = 0x2029;
    constexpr char32_t kFirstNonCharacter = 0xFDD0;
    constexpr char32_t kLastNonCharacter = 0xFDEF;
    constexpr char32_t kObjectReplacement = 0xFFFC;
    if (character < 0x20)
        return character == U'\t';
    return !(character >= 0x7F && character < 0xA0) && !isSurrogate(character) && character <= 0x10FFFF &&
           character != kParagraphSeparator && character != kObjectReplacement &&
           !(character >= kFirstNonCharacter && character <= kLastNonCharacter) &&
           (character & 0xFFFEU) != 0xFFFEU;
}

std::string plainText(const RichText& text)
{
    std::string plain;
    for (const Paragraph& paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            plain += "\r\n";
        for (const TextRun& run : paragraph.runs) {
            constexpr std::string_view kBreak = "\u2028";
            std::string_view rest = run.text;
            for (auto at = rest.find(kBreak); at != rest.npos; at = rest.find(kBreak)) {
                plain.append(rest.substr(0, at)).push_back('\v');
                rest.remove_prefix(at + kBreak.size());
            }
            plain.append(rest);
        }
    }
    return plain;
}

RichText fromPlainText(std::string_view text, const CharacterFormat& format, std::size_t limit)
{
    RichTextBuilder builder(limit);
    while (!text.empty() && !builder.full()) {
        const char32_t character = takeCharacter(text);
        if (character == U'\r' && text.starts_with('\n'))
            continue;
        if (character == U'\r' || character == U'\n' || character == 0x2029)
            builder.endParagraph(Alignment::left, false, format);
        else
            builder.add(character == U'\v' ? kLineBreak : character, format);
    }
    builder.endParagraph(Alignment::left, false, format);
    return builder.take();
}

void RichTextBuilder::add(char32_t character, const CharacterFormat& format)
{
    if (full() || !isBoardCharacter(character))
        return;
    if (m_paragraphLength == kLongestParagraph)
        breakParagraph();
    if (m_paragraph.runs.empty() || m_paragraph.runs.back().format != format)
        m_paragraph.runs.push_back({.text = {}, .format = format});
    put(character);
}

void RichTextBuilder::addAlike(char32_t character)
{
    if (m_paragraphLength == kLongestParagraph)
        add(character, CharacterFormat(m_paragraph.runs.back().format));
    else if (!full() && isBoardCharacter(character))
        put(character);
}

void RichTextBuilder::put(char32_t character)
{
    appendUtf8(m_paragraph.runs.back().text, character);
    ++m_paragraphLength;
    --m_room;
}

void RichTextBuilder::breakParagraph()
{
    m_paragraph.mark = m_paragraph.runs.back().format;
    m_text.paragraphs.push_back(std::exchange(m_paragraph, {}));
    m_paragraphLength = 0;
    ++m_pieces;
}

void RichTextBuilder::endParagraph(Alignment alignment, bool bullet, const CharacterFormat& mark)
{
    // The last paragraph of a text that was cut still has to be ended.
    if (full() && m_paragraph.runs.empty() && !m_text.paragraphs.empty())
        return;
    m_paragraph.mark = mark;
    m_text.paragraphs.push_back(std::exchange(m_paragraph, {}));
    const auto first = m_text.paragraphs.end() - static_cast<std::ptrdiff_t>(m_pieces + 1);
    for (auto piece = first; piece != m_text.paragraphs.end(); ++piece)
        piece->alignment = alignment;
    first->bullet = bullet;
    m_paragraphLength = m_pieces = 0;
    if (m_room > 0)
        --m_room;
}

RichText RichTextBuilder::take()
{
    if (m_text.paragraphs.empty())
        m_text.paragraphs.emplace_back();
    return std::exchange(m_text, RichText{.paragraphs = {}});
}

} // namespace quillora::panels
