#include "panels/rtf_writer.h"

#include "panels/rtf_words.h"
#include "panels/unicode.h"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillora::panels {

namespace {

constexpr int kTwipsPerHalfPoint = 10;
/// How far the text of a paragraph with a bullet stands in, and its bullet out again.
constexpr int kBulletIndentTwips = 600;

/// Values in the order in which they first came up.
template <typename Value>
class NumberedValues {
  public:
    std::size_t numberOf(const Value& value)
    {
        const auto [found, isNew] = m_numbers.try_emplace(value, m_values.size());
        if (isNew)
            m_values.push_back(value);
        return found->second;
    }
    const std::vector<Value>& values() const { return m_values; }

  private:
    std::unordered_map<Value, std::size_t> m_numbers{};
    std::vector<Value> m_values{};
};

class Writer {
  public:
    std::string write(const RichText& text);

  private:
    void paragraph(const Paragraph& paragraph);
    void format(const CharacterFormat& format);
    void text(std::string_view utf8);
    void character(char32_t character);
    std::string head();

    void word(std::string_view name)
    {
        m_body.append("\\").append(name);
        m_wordIsOpen = true;
    }
    void word(std::string_view name, long long parameter)
    {
        word(name);
        m_body.append(std::to_string(parameter));
    }
    void on(std::string_view name, bool value)
    {
        word(name);
        if (!value)
            m_body.push_back('0');
    }
    void verbatim(std::string_view rtf)
    {
        m_body.append(rtf);
        m_wordIsOpen = false;
    }

    std::string m_body{};
    /// Whether a letter or digit that comes now would be read as part of the last word.
    bool m_wordIsOpen = false;
    std::optional<CharacterFormat> m_format{};
    NumberedValues<std::string> m_fonts{};
    NumberedValues<base::Colour> m_colours{};
    bool m_hasBullets = false;
};

/// A font of symbols for the bullets, far from the numbers of the text's own fonts.
constexpr std::string_view kBulletFont = "{\\f9999\\fnil\\fcharset2 Symbol;}";
constexpr std::string_view kBullet = "{\\pntext\\f9999\\'b7\\tab}"
                                     "{\\*\\pn\\pnlvlblt\\pnf9999\\pnindent0{\\pntxtb\\'b7}}";

std::string Writer::write(const RichText& text)
{
    for (const Paragraph& each : text.paragraphs)
        paragraph(each);
    return head() + m_body + "}\r\n";
}

std::string Writer::head()
{
    const std::string body = std::exchange(m_body, {});
    verbatim("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1");
    verbatim("{\\fonttbl");
    std::size_t number = 0;
    for (const std::string& name : m_fonts.values()) {
        verbatim("{");
        word("f", static_cast<long long>(number++));
        word("fnil");
        word("fcharset0");
        text(name);
        verbatim(";}");
    }
    if (m_hasBullets)
        verbatim(kBulletFont);
    // Colour 0 is the reader's own.
    verbatim("}\r\n{\\colortbl ;");
    for (const base::Colour colour : m_colours.values()) {
        word("red", base::redOf(colour));
        word("green", base::greenOf(colour));
        word("blue", base::blueOf(colour));
        verbatim(";");
    }
    verbatim("}\r\n");
    return std::exchange(m_body, body);
}

void Writer::paragraph(const Paragraph& paragraph)
{
    word("pard");
    if (paragraph.alignment == Alignment::centre)
        word("qc");
    if (paragraph.alignment == Alignment::right)
        word("qr");
    if (paragraph.bullet) {
        m_hasBullets = true;
        verbatim(kBullet);
        word("fi", -kBulletIndentTwips);
        word("li", kBulletIndentTwips);
    }
    for (const TextRun& run : paragraph.runs) {
        format(run.format);
        text(run.text);
    }
    format(paragraph.mark);
    word("par");
    verbatim("\r\n");
}

void Writer::format(const CharacterFormat& format)
{
    if (m_format == format)
        return;
    const CharacterFormat* before = m_format ? &*m_format : nullptr;
    if (before == nullptr || before->font != format.font)
        word("f", static_cast<long long>(m_fonts.numberOf(format.font)));
    if (before == nullptr || before->size != format.size) {
        const int halfPoints = format.size.value / kTwipsPerHalfPoint;
        word("fs", halfPoints);
        if (halfPoints * kTwipsPerHalfPoint != format.size.value)
            word(kTwipsWord, format.size.value);
    }
    if (before == nullptr || before->colour != format.colour)
        word("cf", static_cast<long long>(m_colours.numberOf(format.colour)) + 1);
    if (before == nullptr || before->bold != format.bold)
        on("b", format.bold);
    if (before == nullptr || before->italic != format.italic)
        on("i", format.italic);
    if (before == nullptr || before->underline != format.underline)
        word(format.underline ? "ul" : "ulnone");
    m_format = format;
}

void Writer::text(std::string_view utf8)
{
    while (!utf8.empty())
        character(takeCharacter(utf8));
}

void Writer::character(char32_t character)
{
    const auto unit = [this](char32_t value) {
        word("u", value < 0x8000 ? static_cast<long long>(value) : static_cast<long long>(value) - 0x10000);
        verbatim("?");
    };
    if (character == U'\t') {
        word("tab");
    } else if (character == kLineBreak) {
        word("line");
    } else if (character == U'\\' || character == U'{' || character == U'}') {
        const char escaped[] = {'\\', static_cast<char>(character), '\0'};
        verbatim(escaped);
    } else if (character >= 0x20 && character < 0x7F) {
        if (m_wordIsOpen)
            m_body.push_back(' ');
        m_body.push_back(static_cast<char>(character));
        m_wordIsOpen = false;
    } else if (character < 0x10000) {
        unit(character);
    } else {
        unit(0xD800 + ((character - 0x10000) >> 10));
        unit(0xDC00 + ((character - 0x10000) & 0x3FFU));
    }
}

} // namespace

std::string writeRtf(const RichText& text) { return Writer().write(text); }

} // namespace quillora::panels
