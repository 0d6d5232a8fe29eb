#pragma once

#include "base/colour.h"
#include "base/twips.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillora::panels {

/// Numbered as `SelAlignment` is.
enum class Alignment { left = 0, right = 1, centre = 2 };

/// How a character looks. As it stands, a character of the board that nothing was done to.
struct CharacterFormat {
    std::string font = "Times New Roman";
    base::Twips size{525};
    base::Colour colour = base::rgb(0, 0, 0);
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const CharacterFormat&) const = default;
};

/// The sizes that the board takes, 1 to 1638 points: what office programs let one choose.
inline constexpr base::Twips kSmallestFontSize{20};
inline constexpr base::Twips kLargestFontSize{1638 * 20};

/// Characters of one look. UTF-8, in it only what isBoardCharacter() says.
struct TextRun {
    std::string text;
    CharacterFormat format{};

    bool operator==(const TextRun&) const = default;
};

/// What stands between two paragraph ends.
struct Paragraph {
    Alignment alignment = Alignment::left;
    bool bullet = false;
    /// No two neighbours have the same format, and none is empty.
    std::vector<TextRun> runs{};
    /// What is typed at the end takes this format; it also gives an empty paragraph its height.
    CharacterFormat mark{};

    bool operator==(const Paragraph&) const = default;
};

/// All that the text board can hold, and nothing else: no pictures, tables or links. There is always one
/// paragraph.
struct RichText {
    std::vector<Paragraph> paragraphs{Paragraph{}};

    bool operator==(const RichText&) const = default;
};

/// A break of the line inside a paragraph, in the text of a run.
inline constexpr char32_t kLineBreak = 0x2028;

/// A longer paragraph goes on in a next one. It is nine stages full of text; lines of text without blanks
/// take text components time by the square of their paragraph's length.
inline constexpr std::size_t kLongestParagraph = 4'000;

/// Whether @p character may stand in a run: any but control characters other than the tab, surrogates, and
/// what text components keep for their own marks.
bool isBoardCharacter(char32_t character);

/// The paragraphs with "\r\n" between them and "\v" for a break of the line.
std::string plainText(const RichText& text);

/// The other way: "\r\n", "\r" and "\n" part paragraphs. What the board can't hold is left out, and so is
/// everything after @p limit characters.
RichText fromPlainText(std::string_view text, const CharacterFormat& format, std::size_t limit);

/// Puts a RichText together from front to back, keeping its promises. Takes time in proportion to what is put
/// in.
class RichTextBuilder {
  public:
    /// Of characters and paragraph ends together; what comes after it is left out.
    explicit RichTextBuilder(std::size_t limit) : m_room(limit) {}

    /// Leaves out what isBoardCharacter() refuses.
    void add(char32_t character, const CharacterFormat& format);
    /// As add(), for a character of the same format as the one before it: saves the comparison.
    void addAlike(char32_t character);
    void endParagraph(Alignment alignment, bool bullet, const CharacterFormat& mark);

    bool full() const { return m_room == 0; }
    bool paragraphIsEmpty() const { return m_paragraph.runs.empty(); }
    std::size_t paragraphCount() const { return m_text.paragraphs.size(); }

    /// What was put in. A paragraph that was begun and not ended must be ended first.
    RichText take();

  private:
    void put(char32_t character);
    void breakParagraph();

    RichText m_text{.paragraphs = {}};
    Paragraph m_paragraph{};
    std::size_t m_paragraphLength = 0;
    /// Paragraphs that the present one filled.
    std::size_t m_pieces = 0;
    std::size_t m_room;
};

} // namespace quillora::panels
